#include "nel_core/pi/cWorkQueue.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWqDebug.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFakeClock.h"
#include "tests/support/cQueueFixture.h"

namespace {

using npi::cWork;
using npi::cWorkQueue;

class cWorkQueueTest : public ntest::cQueueFixture { };

TEST_F(cWorkQueueTest, aCycleTriggersWhatIsDueInOrderAndWaitsForTheNext)
{
    EXPECT_EQ(queue->processEvents(true), 0u);
    EXPECT_TRUE(events->yields.empty()) << "there is nothing to wait for";

    cWork later, idle;
    queue->addJob(later);
    queue->addJob(idle);
    later.start(60000, cWork::SingleTask);
    queue->processEvents(true);
    ASSERT_EQ(events->yields.size(), 1u);
    EXPECT_LE(lastTimeout(), 60000u);
    EXPECT_GT(lastTimeout(), 50000u);
    EXPECT_EQ(events->yields[0].level, 0u);

    due('a');
    due('b');
    EXPECT_EQ(queue->processEvents(true), 1u);
    EXPECT_EQ(log, "ab");
    EXPECT_EQ(events->yields.size(), 1u + 1u) << "the pass that follows a change finds only the later work";
    queue->processEvents(false);
    EXPECT_EQ(log, "ab");
}

TEST_F(cWorkQueueTest, timeOutsAreThoseOfTheTableAndNeverWrap)
{
    struct {
        char const* name;
        unsigned int interval;
        bool withIO, withTimed;
        unsigned int least, most;
    } const rows[] = {
        {"only I/O", 0, true, false, 10000, 10000},
        {"timed and I/O", 20000, true, true, 19000, 20000},
        {"beyond 2^32 microseconds", 4294968, false, true, 4290000, 4294968},
        {"25 days", 2160000000u, false, true, 0x7fffffff, 0x7fffffff},
        {"49 days", 4294967295u, true, true, 0x7fffffff, 0x7fffffff},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cWork timed, io;
        queue->addJob(timed);
        queue->addJob(io);
        if (row.withTimed)
            timed.start(row.interval, cWork::Periodic);
        if (row.withIO)
            io.setAIOData(descriptors());
        EXPECT_EQ(queue->processEvents(true), unsigned(row.withTimed) + unsigned(row.withIO));
        EXPECT_GE(lastTimeout(), row.least);
        EXPECT_LE(lastTimeout(), row.most);
    }
}

TEST_F(cWorkQueueTest, anIOWorkRunsWhenItsEventIsSetAndOnlyThen)
{
    cWork work;
    queue->addJob(work);
    logs(work, 'i');
    work.setAIOData(descriptors());
    queue->processEvents(true);
    EXPECT_EQ(log, "");
    work.aioData().setEvent(true);
    queue->processEvents(false);
    EXPECT_TRUE(work.aioData().isEvent()) << "an event is not lost to a pass that triggers nothing";
    queue->processEvents(true);
    queue->processEvents(true);
    EXPECT_EQ(log, "i");
    EXPECT_FALSE(work.aioData().isEvent());

    // What became ready during the wait runs when the wait has finished.
    events->onYield = [&] {
        events->onYield = nullptr;
        work.aioData().setEvent(true);
        events->sigFinished();
    };
    queue->processEvents(true);
    EXPECT_EQ(log, "ii");
}

TEST_F(cWorkQueueTest, withoutDescriptorsAnIOWorkBecomesPeriodic)
{
    events->hasAIO = false;
    cWork work;
    queue->addJob(work);
    logs(work, 'i');
    work.start(30000, cWork::Periodic);
    work.setAIOData(descriptors());
    EXPECT_EQ(queue->processEvents(true), 1u);
    EXPECT_EQ(log, "i");
    EXPECT_EQ(work.type(), cWork::Periodic);
    EXPECT_EQ(work.interval(), 30000u);
    queue->processEvents(true);
    EXPECT_EQ(log, "i");
}

TEST_F(cWorkQueueTest, worksStayOrLeaveByTypeAndOwner)
{
    struct {
        char const* name;
        bool byReference;
        std::function<void(cWork&)> start, handler;
        unsigned int left;
        bool started;
    } const rows[] = {
        {"own single task", false, [](cWork& w) { w.start(); }, [](cWork&) {}, 0, false},
        {"single task by reference", true, [](cWork& w) { w.start(); }, [](cWork&) {}, 1, false},
        {"own single task that restarts", false, [](cWork& w) { w.start(); }, [](cWork& w) { w.start(); }, 1,
         true},
        {"own periodic", false, [](cWork& w) { w.start(0, cWork::Periodic); }, [](cWork&) {}, 1, true},
        {"own periodic that stops", false, [](cWork& w) { w.start(0, cWork::Periodic); },
         [](cWork& w) { w.stop(); }, 1, false},
        {"own single task kept by force", false,
         [](cWork& w) {
             w.setForceKeep(true);
             w.start();
         },
         [](cWork&) {}, 1, false},
        {"single task that turns to I/O", false, [](cWork& w) { w.start(); },
         [](cWork& w) { w.setAIOData(descriptors()); }, 1, true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cWork ours;
        nstd::tSharedObject<cWork> owned;
        if (row.byReference)
            queue->addJob(ours);
        else
            owned = queue->createJob();
        cWork& work = row.byReference ? ours : *owned;
        auto const& handler = row.handler;
        on(work, [&] { handler(work); });
        row.start(work);
        queue->processEvents(true);
        EXPECT_EQ(work.statistic().numTriggered(), 1u);
        EXPECT_EQ(queue->jobs().size(), row.left);
        EXPECT_EQ(work.isStarted(), row.started);
        queue->clear();
        EXPECT_EQ(queue->updateTimer(true, nullptr), false);
        EXPECT_TRUE(queue->jobs().empty());
    }
}

TEST_F(cWorkQueueTest, addingTwiceGivesOneEntryAndLeavingGivesNone)
{
    cWork work;
    queue->addJob(work);
    queue->addJob(work);
    EXPECT_EQ(queue->jobs().size(), 1u);
    EXPECT_TRUE(work.isForceKeep());
    queue->removeJob(work);
    queue->removeJob(work);
    work.start();
    queue->processEvents(true);
    EXPECT_TRUE(queue->jobs().empty());
    EXPECT_EQ(work.statistic().numTriggered(), 0u);
    {
        cWork dying;
        queue->addJob(dying);
        dying.start();
    }
    EXPECT_EQ(queue->processEvents(true), 0u);
    EXPECT_TRUE(queue->jobs().empty());

    // A shared work may have several entries, here and in another queue.
    cWorkQueue other;
    nstd::tSharedObject<cWork> const shared(new cWork);
    queue->addJob(shared);
    queue->addJob(shared);
    other.addJob(shared);
    queue->removeJob(*shared);
    EXPECT_EQ(shared.refCount(), 2u);
    other.removeJob(*shared);
    EXPECT_TRUE(shared.unique());
    EXPECT_TRUE(ntest::raisedBy<nstd::cBugException>([&] { queue->addJob(nstd::tSharedObject<cWork>()); }));
}

TEST_F(cWorkQueueTest, whatAHandlerSchedulesIsItsChildAndItsErrorsComeToTheParent)
{
    cWork parent;
    queue->addJob(parent);
    nstd::tSharedObject<cWork> child;
    auto& handler = on(parent, [&] {
        child = queue->createJob();
        on(*child, [] { ntest::fail("broken"); });
        child->start();
    });
    parent.sigActionError().connect(nrmi::slot(&handler, &ntest::cWorkSlots::sltError));
    parent.start();
    ntest::cDebugRecorder recorder;
    queue->processEvents(true);
    ASSERT_TRUE(child);
    EXPECT_EQ(child->parent(), &parent);
    EXPECT_EQ(handler.errors, std::vector<std::string>{"broken (descendant)"});
}

TEST_F(cWorkQueueTest, theFourthTriggerOfAFailingWorkStopsIt)
{
    cWork work;
    work.setName("wild");
    queue->addJob(work);
    unsigned int runs = 0;
    auto& handler = on(work, [&] {
        ++runs;
        ntest::fail("broken");
    });
    work.sigActionError().connect(nrmi::slot(&handler, &ntest::cWorkSlots::sltError));
    work.start(0, cWork::Periodic);
    ntest::cDebugRecorder recorder;
    for (int i = 0; i < 3; ++i)
        queue->processEvents(true);
    auto const error = ntest::raisedBy<nstd::cBugException>([&] { queue->processEvents(true); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "Stopping amuck work \"wild\"!");
    EXPECT_EQ(runs, 3u);
    EXPECT_FALSE(work.isStarted());
    EXPECT_EQ(queue->jobs().size(), 1u);
    queue->processEvents(true);
    EXPECT_EQ(runs, 3u);
}

TEST_F(cWorkQueueTest, descriptorsGetTheirTurnBesideAWorkThatIsAlwaysDue)
{
    cWork busy, io;
    queue->addJob(busy);
    queue->addJob(io);
    busy.start(0, cWork::Periodic);
    io.setAIOData(descriptors());
    for (int i = 0; i < 2 * 65; ++i)
        queue->processEvents(true);
    for (unsigned int i = 0; i < events->yields.size(); ++i)
        EXPECT_EQ(events->yields[i].timeout, i % 65 == 64 ? 1u : 0u) << i;
}

TEST_F(cWorkQueueTest, changesWakeTheProcessorOrRunAnAsynchronousOne)
{
    cWork work;
    queue->addJob(work);
    EXPECT_EQ(events->wakeUps, 1u);
    on(work, [&] { due('n'); });
    work.start();
    unsigned int const before = events->wakeUps;
    queue->processEvents(true);
    EXPECT_EQ(events->wakeUps, before) << "inside of a pass, without a local loop";

    events->isLoop = true;
    events->yields.clear();
    work.start();
    EXPECT_EQ(events->yields.size(), 1u) << "a change at level 0 runs a cycle that triggers nothing";
    queue->process();
    EXPECT_EQ(events->polls, 1u);
    events->sigFinished();
    EXPECT_EQ(log, "nn");

    events->onYield = [] { ntest::fail("broken"); };
    auto const entries = queue->jobs().size();
    EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>([&] { queue->createJob(); }));
    queue->clear();
    EXPECT_EQ(queue->jobs().size(), entries + 1);
    EXPECT_TRUE(
        std::none_of(queue->jobs().begin(), queue->jobs().end(), [](auto const& job) { return !!job; }));
}

TEST_F(cWorkQueueTest, withoutAProcessorNothingRuns)
{
    setEvents(nullptr);
    queue->process();
    cWork work;
    queue->addJob(work);
    ntest::cDebugRecorder recorder;
    auto const error = ntest::raisedBy<nstd::cBugException>([&] { queue->processEvents(true); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "No process event manager for workqueue!");
    ASSERT_GT(recorder.lines().size(), 3u);
    EXPECT_EQ(recorder.lines()[0], "*** WORKQUEUE HAS BEEN FOUND A BUG ***");
    EXPECT_EQ(recorder.lines()[1], "WorkQueue status:");
    EXPECT_EQ(recorder.lines()[2], "No event processor!");
}

TEST_F(cWorkQueueTest, theWallClockMayJump)
{
    ntest::cFakeClock clock;
    cWork work;
    queue->addJob(work);
    logs(work, 'p');
    work.start(20000, cWork::Periodic);
    clock.advance(15000);
    queue->processEvents(true);
    EXPECT_EQ(log, "");
    clock.advance(5001);
    queue->processEvents(true);
    EXPECT_EQ(log, "p");
    EXPECT_GT(lastTimeout(), 19000u) << "the period counts from the trigger";

    clock.advance(-3600000);
    queue->processEvents(true);
    EXPECT_EQ(log, "p");
    EXPECT_LE(lastTimeout(), 20000u) << "an hour back does not make it wait an hour longer";
    clock.advance(20001);
    queue->processEvents(true);
    EXPECT_EQ(log, "pp");
    clock.advance(50LL * 24 * 3600 * 1000);
    queue->processEvents(true);
    EXPECT_EQ(log, "ppp") << "once, however late";
}

TEST_F(cWorkQueueTest, theDumpTellsOfEveryWork)
{
    cWork timer;
    timer.setName("tick");
    queue->addJob(timer);
    timer.start(0, cWork::Periodic);
    timer.start(7000, cWork::Periodic);
    auto const task = queue->createJob();
    auto const gone = queue->createJob();
    queue->removeJob(*gone);
    ntest::cDebugRecorder recorder;
    queue->debugDump();
    auto const& lines = recorder.lines();
    ASSERT_GT(lines.size(), 8u);
    std::vector<std::string> const head(lines.begin(), lines.begin() + 7);
    EXPECT_EQ(head, (std::vector<std::string>{
                        "WorkQueue status:", "Have event object (synchronous event processor)", "",
                        "Tasks:", " * Work (tick)", "   * Periodic (7000ms interval) (scheduled) (keep)",
                        "   * Triggered: 0 / numStarted: 2"}));
    EXPECT_EQ(lines[7].substr(0, 20), "   * Last start at: ");
    EXPECT_EQ(recorder.count("   * Single task (planned in 0ms)"), 1u);
    EXPECT_EQ(recorder.count(" * zero item"), 1u);
    EXPECT_EQ(recorder.count("Last triggered"), 0u);
    EXPECT_EQ(recorder.files()[0], "nel_core/pi/cWorkQueue");
    EXPECT_NE(timer.statistic().hasDebugInfo(), nullptr);
}

TEST_F(cWorkQueueTest, theGraphShowsNodesAndEdges)
{
    cWork timer;
    timer.setName("tick");
    queue->addJob(timer);
    std::string graph;
    on(timer, [&] {
        cWork io;
        queue->addJob(io);
        io.setAIOData(descriptors());
        graph = ntest::text(npi::cWqDebug::dot(queue.get()));
        char line[200];
        std::snprintf(line, sizeof line, "\"%llx\" -> \"%llx\";\n",
                      static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(&timer)),
                      static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(&io)));
        EXPECT_NE(graph.find(line), std::string::npos);
    });
    timer.start(0, cWork::Periodic);
    queue->processEvents(true);
    EXPECT_EQ(graph.substr(0, 12), "digraph G {\n");
    EXPECT_EQ(graph.substr(graph.size() - 2), "}\n");
    EXPECT_NE(
        graph.find(
            " [ label=\"Periodic\\ntick\\n(0ms interval), Active, Keep, Current)\",shape=\"doubleoctagon\","
            "style=\"filled\",color=\"LightSteelBlue\" ];\n"),
        std::string::npos)
        << graph;
    EXPECT_NE(graph.find("label=\"Asynchronous I/O\\n\\n(Active, Keep)\",shape=\"ellipse\",style=\"filled\","
                         "color=\"PapayaWhip\" ];\n"),
              std::string::npos)
        << graph;
}

TEST_F(cWorkQueueTest, theSystemsQueueIsScheduledByFreeFunctions)
{
    ntest::cWorkSlots handler;
    handler.onAction = [this] { log += 'x'; };
    ntest::cDebugRecorder recorder;
    auto const once = npi::schedule(nrmi::slot(&handler, &ntest::cWorkSlots::sltAction), 0, "once");
    auto const nameless =
        npi::schedule(nrmi::slot(&handler, &ntest::cWorkSlots::sltAction), 60000, cWork::Periodic, nullptr);
    auto const given = npi::schedule(nstd::tAutoPtr<cWork>(new cWork));
    cWork ours;
    EXPECT_EQ(&npi::schedule(ours), &ours);
    EXPECT_EQ(once->name(), "once");
    EXPECT_EQ(recorder.count("Work scheduled without name!"), 1u);
    EXPECT_EQ(nameless->type(), cWork::Periodic);
    EXPECT_EQ(npi::system().workQueue.jobs().size(), 4u);
    npi::unschedule(ours);
    npi::unschedule(*nameless);
    npi::cSystem::exec();
    EXPECT_EQ(log, "x");
    EXPECT_EQ(npi::system().workQueue.jobs().size(), 1u);
}

} // namespace

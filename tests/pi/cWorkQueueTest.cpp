#include "nel_core/pi/cWorkQueue.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/pi/cWqDebug.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFakeClock.h"
#include "tests/support/cQueueFixture.h"

namespace {

using npi::cWork;
using npi::cWorkQueue;

class cWorkQueueTest : public ntest::cQueueFixture { };

TEST_F(cWorkQueueTest, timeOutsAreThoseOfTheTableAndNeverWrap)
{
    struct {
        char const* name;
        unsigned int interval; // of a periodic work; 0: there is none
        bool withIO;
        unsigned int least, most;
    } const rows[] = {
        {"only I/O", 0, true, 10000, 10000},
        {"timed and I/O", 20000, true, 19000, 20000},
        {"beyond 2^32 microseconds", 4294968, false, 4290000, 4294968},
        {"49 days", 4294967295u, true, 0x7fffffff, 0x7fffffff},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cWork timed, io;
        queue->addJob(timed);
        queue->addJob(io);
        if (row.interval != 0)
            timed.start(row.interval, cWork::Periodic);
        if (row.withIO)
            io.setAIOData(descriptors());
        queue->processEvents(true);
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

TEST_F(cWorkQueueTest, ownWorksStayOrLeaveByType)
{
    struct {
        char const* name;
        void (*prepare)(cWork&);
        void (*handler)(cWork&);
        unsigned int left;
        bool started;
    } const rows[] = {
        {"single task", [](cWork& w) { w.start(); }, [](cWork&) {}, 0, false},
        {"kept by force", [](cWork& w) { w.start(); }, [](cWork& w) { w.setForceKeep(true); }, 1, false},
        {"restarts", [](cWork& w) { w.start(); }, [](cWork& w) { w.start(); }, 1, true},
        {"periodic that stops", [](cWork& w) { w.start(0, cWork::Periodic); }, [](cWork& w) { w.stop(); }, 1,
         false},
        {"turns to I/O", [](cWork& w) { w.start(); }, [](cWork& w) { w.setAIOData(descriptors()); }, 1, true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        auto const work = queue->createJob();
        on(*work, [&] { row.handler(*work); });
        row.prepare(*work);
        queue->processEvents(true);
        EXPECT_EQ(work->statistic().numTriggered(), 1u);
        EXPECT_EQ(queue->jobs().size(), row.left);
        EXPECT_EQ(work->isStarted(), row.started);
        queue->clear();
        queue->updateTimer(true, nullptr);
        EXPECT_TRUE(queue->jobs().empty());
    }
}

TEST_F(cWorkQueueTest, addingTwiceGivesOneEntryAndLeavingGivesNone)
{
    cWork work;
    queue->addJob(work);
    queue->addJob(work);
    EXPECT_EQ(queue->jobs().size(), 1u);
    queue->removeJob(work);
    queue->removeJob(work);
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
    auto& handler = on(parent, [&] {
        auto const child = queue->createJob();
        on(*child, [] { ntest::fail("broken"); });
        child->start();
    });
    parent.sigActionError().connect(nrmi::slot(&handler, &ntest::cWorkSlots::sltError));
    parent.start();
    ntest::cDebugRecorder recorder;
    queue->processEvents(true);
    EXPECT_EQ(handler.errors, std::vector<std::string>{"broken (descendant)"});
}

TEST_F(cWorkQueueTest, theFourthTriggerOfAFailingWorkStopsIt)
{
    cWork work;
    work.setName("wild");
    queue->addJob(work);
    unsigned int runs = 0;
    auto& handler = on(work, [&] { ntest::fail(++runs > 3 ? "too often" : "broken"); });
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
    });
    timer.start(0, cWork::Periodic);
    queue->processEvents(true);
    EXPECT_EQ(graph.substr(0, 12), "digraph G {\n");
    EXPECT_EQ(graph.substr(graph.size() - 2), "}\n");
    for (char const* part :
         {" [ label=\"Periodic\\ntick\\n(0ms interval), Active, Keep, Current)\",shape=\"doubleoctagon\","
          "style=\"filled\",color=\"LightSteelBlue\" ];\n",
          "label=\"Asynchronous I/O\\n\\n(Active, Keep)\",shape=\"ellipse\",style=\"filled\","
          "color=\"PapayaWhip\" ];\n",
          "\" -> \""})
        EXPECT_NE(graph.find(part), std::string::npos) << graph;
}

} // namespace

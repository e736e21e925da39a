#include "nel_core/pi/cWork.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/std/cBugException.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cQueueFixture.h"

namespace {

using npi::cWork;
using ntest::cWorkSlots;

class cWorkTest : public ntest::cSystemFixture { };

TEST_F(cWorkTest, schedulingChangesStateTypeAndIntervalAndTellsOfIt)
{
    struct {
        char const* name;
        void (*change)(cWork&);
        cWork::Type type;
        unsigned int interval;
        bool started, keep;
        long long delay; // microseconds from the scheduled to the planned time
        char const* changes;
    } const rows[] = {
        {"new", [](cWork&) {}, cWork::SingleTask, 0, false, false, 0, ""},
        {"start", [](cWork& w) { w.start(); }, cWork::SingleTask, 0, true, false, 0, "s"},
        {"single", [](cWork& w) { w.start(20, cWork::SingleTask); }, cWork::SingleTask, 0, true, false, 20000,
         "s"},
        {"periodic", [](cWork& w) { w.start(20, cWork::Periodic); }, cWork::Periodic, 20, true, true, 20000,
         "s"},
        {"no such start", [](cWork& w) { w.start(7, cWork::AsynchronousIO); }, cWork::Periodic, 7, true, true,
         7000, "s"},
        {"beyond 32 bits", [](cWork& w) { w.start(4294968, cWork::Periodic); }, cWork::Periodic, 4294968,
         true, true, 4294968000, "s"},
        {"stop",
         [](cWork& w) {
             w.start(20, cWork::Periodic);
             w.stop();
         },
         cWork::Periodic, 20, false, true, 20000, "s-"},
        {"mark done",
         [](cWork& w) {
             w.start();
             w.markDone();
         },
         cWork::SingleTask, 0, false, false, 0, "s"},
        {"single again",
         [](cWork& w) {
             w.start(5, cWork::SingleTask);
             w.start();
         },
         cWork::SingleTask, 0, true, false, 0, "ss"},
        {"data", [](cWork& w) { w.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>(new npi::cFDAIOData)); },
         cWork::AsynchronousIO, 0, true, true, 0, "s"},
        {"data taken away",
         [](cWork& w) {
             w.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>(new npi::cFDAIOData));
             w.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>());
         },
         cWork::AsynchronousIO, 0, false, true, 0, "s-"},
        {"no data while started",
         [](cWork& w) {
             w.start();
             w.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>());
         },
         cWork::AsynchronousIO, 0, true, true, 0, "ss"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cWorkSlots handlers;
        cWork work;
        handlers.listen(work);
        row.change(work);
        EXPECT_EQ(work.type(), row.type);
        EXPECT_EQ(work.interval(), row.interval);
        EXPECT_EQ(work.isStarted(), row.started);
        EXPECT_EQ(work.isKeep(), row.keep);
        EXPECT_EQ(work.plannedTime(), work.scheduledTime() + row.delay);
        EXPECT_EQ(handlers.changes, row.changes);
    }
}

TEST_F(cWorkTest, ioDataIsAskedForByReferenceOrPointer)
{
    cWork work;
    EXPECT_EQ(work.hasAIOData(), nullptr);
    auto const error = ntest::raisedBy<nstd::cBugException>([&] { work.aioData(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "Work does not own asynchronous I/O data!");

    work.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>(new npi::cAbstractAIOData));
    auto const noFd = ntest::raisedBy<nstd::cBugException>([&] { work.aioData().fdAIOData(); });
    ASSERT_TRUE(noFd);
    EXPECT_EQ(ntest::messageOf(*noFd), "Asynchronous I/O data does not have file descriptor information!");
}

TEST_F(cWorkTest, anErrorGoesUpTheTreeToTheFirstHandlerThatReturns)
{
    cWorkSlots own, father, grandfather;
    cWork top, middle, work;
    middle.reparent(&top);
    work.reparent(&middle);
    own.handle(work);
    middle.sigActionError(); // nothing connected
    top.sigActionError().connect(nrmi::slot(&grandfather, &cWorkSlots::sltError));
    work.setName("child");
    own.onAction = [] { ntest::fail("broken"); };

    ntest::cDebugRecorder recorder;
    work.action();
    EXPECT_EQ(own.errors, std::vector<std::string>{"broken"});
    EXPECT_EQ(recorder.lines(),
              (std::vector<std::string>{"  * Checking handler in child", "  * Handler found in child"}));
    EXPECT_TRUE(grandfather.errors.empty());

    recorder.clear();
    own.onError = [] { throw std::runtime_error("the handler fails, too"); };
    work.action();
    EXPECT_EQ(grandfather.errors, std::vector<std::string>{"broken (descendant)"});
    EXPECT_EQ(recorder.count("  --------> exception in handler - try next..."), 1u);
    EXPECT_EQ(recorder.count("digraph G {"), 1u);
    EXPECT_EQ(recorder.count("Checking handler in "), 3u);

    grandfather.onError = [] { ntest::fail("nobody can help"); };
    auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { work.action(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "broken");
    EXPECT_TRUE(work.isAmuck());
}

TEST_F(cWorkTest, whatIsNoFrameworkExceptionReachesHandlersAsOneAndTheCallerAsItIs)
{
    cWorkSlots handlers;
    cWork work;
    work.setName("legacy");
    work.sigAction.connect(nrmi::slot(&handlers, &cWorkSlots::sltAction));
    handlers.onAction = [] { throw 7; };
    EXPECT_THROW(work.action(), int);
    work.sigActionError().connect(nrmi::slot(&handlers, &cWorkSlots::sltError));
    work.action();
    EXPECT_EQ(handlers.errors, std::vector<std::string>{"Error performing work legacy!"});
}

TEST_F(cWorkTest, failuresInARowMakeAmuckAndASuccessOrAStartForgivesThem)
{
    cWorkSlots handlers;
    cWork work;
    handlers.handle(work);
    auto const failTimes = [&](int count) {
        handlers.onAction = [] { ntest::fail("broken"); };
        for (int i = 0; i < count; ++i)
            work.action();
    };
    failTimes(2);
    EXPECT_FALSE(work.isAmuck());
    handlers.onAction = [] {};
    work.action();
    failTimes(2);
    EXPECT_FALSE(work.isAmuck());
    failTimes(1);
    EXPECT_TRUE(work.isAmuck());
    work.start();
    EXPECT_FALSE(work.isAmuck());

    work.setDelegateExceptions(false);
    for (int i = 0; i < 4; ++i)
        EXPECT_THROW(work.action(), nstd::cRuntimeException);
    EXPECT_FALSE(work.isAmuck());
    EXPECT_EQ(handlers.errors.size(), 6u - 1u);
}

TEST_F(cWorkTest, aHandlerMayDestroyItsWork)
{
    struct {
        char const* name;
        bool throws;
    } const rows[] = {{"and return", false}, {"and raise", true}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cWorkSlots handlers;
        auto work = std::make_unique<cWork>();
        handlers.handle(*work);
        handlers.onAction = [&] {
            work.reset();
            if (row.throws)
                ntest::fail("after the end");
        };
        if (row.throws)
            EXPECT_THROW(work->action(), nstd::cRuntimeException);
        else
            work->action();
        EXPECT_EQ(work, nullptr);
        EXPECT_TRUE(handlers.errors.empty());
    }
    // An action-error handler that destroys the work and fails.
    cWorkSlots handlers;
    auto work = std::make_unique<cWork>();
    handlers.handle(*work);
    handlers.onAction = [] { ntest::fail("broken"); };
    handlers.onError = [&] {
        work.reset();
        ntest::fail("no help");
    };
    EXPECT_THROW(work->action(), nstd::cRuntimeException);
}

TEST_F(cWorkTest, aDyingWorkTellsOfItAndLeavesItsChildrenToItsParent)
{
    cWorkSlots handlers;
    cWork root, child;
    {
        cWork work;
        handlers.listen(work);
        handlers.onDestroyed = [] { ntest::fail("a slot that fails does no harm"); };
        work.reparent(&root);
        child.reparent(&work);
        work.reparent(&child); // would close a ring
        work.start();
        EXPECT_EQ(work.parent(), &root);
    }
    EXPECT_EQ(handlers.changes, "s-d");
    EXPECT_EQ(child.parent(), &root);
}

TEST_F(cWorkTest, debuggingRecordsTimesAndTraces)
{
    cWork work;
    work.start();
    EXPECT_EQ(work.statistic().hasDebugInfo(), nullptr);
    work.enableDebug();
    auto const* const info = work.statistic().hasDebugInfo();
    ASSERT_NE(info, nullptr);
    EXPECT_NE(info->creationTrace().length(), 0u);
    EXPECT_EQ(info->startTrace().length(), 0u);
    work.start();
    work.action();
    EXPECT_NE(info->startTrace().length(), 0u);
    EXPECT_EQ(work.statistic().numStarted(), 2u);
    EXPECT_EQ(work.statistic().numTriggered(), 1u);
    work.statistic().setDebug(false);
    EXPECT_EQ(work.statistic().hasDebugInfo(), nullptr);
}

} // namespace

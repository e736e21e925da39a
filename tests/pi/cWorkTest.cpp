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
        {"no such start", [](cWork& w) { w.start(7, cWork::AsynchronousIO); }, cWork::Periodic, 7, true, true,
         7000, "s"},
        {"beyond 32 bits", [](cWork& w) { w.start(4294968, cWork::Periodic); }, cWork::Periodic, 4294968,
         true, true, 4294968000, "s"},
        {"data taken away",
         [](cWork& w) {
             w.setAIOData(ntest::cQueueFixture::descriptors());
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

TEST_F(cWorkTest, anErrorGoesUpTheTreeToTheFirstHandlerThatReturns)
{
    cWorkSlots own, grandfather;
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
    EXPECT_EQ(recorder.lines(),
              (std::vector<std::string>{"  * Checking handler in child", "  * Handler found in child"}));
    EXPECT_TRUE(grandfather.errors.empty());

    recorder.clear();
    own.onError = [] { throw std::runtime_error("the handler fails, too"); };
    work.action();
    EXPECT_EQ(grandfather.errors, std::vector<std::string>{"broken (descendant)"});
    EXPECT_EQ(recorder.count("  --------> exception in handler - try next..."), 1u);
    EXPECT_EQ(recorder.count("Checking handler in "), 3u);

    grandfather.onError = [] { ntest::fail("nobody can help"); };
    auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { work.action(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "broken");
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

TEST_F(cWorkTest, whatIsMissingIsNamed)
{
    cWork work;
    auto const error = ntest::raisedBy<nstd::cBugException>([&] { work.aioData(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(ntest::messageOf(*error), "Work does not own asynchronous I/O data!");
    ntest::cDebugRecorder recorder;
    cWorkSlots handlers;
    npi::schedule(nrmi::slot(&handlers, &cWorkSlots::sltAction), 60000, cWork::Periodic, nullptr);
    EXPECT_EQ(recorder.count("Work scheduled without name!"), 1u);
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
}

TEST_F(cWorkTest, aHandlerMayDestroyItsWork)
{
    cWorkSlots handlers;
    auto work = std::make_unique<cWork>();
    handlers.handle(*work);
    handlers.onAction = [&] {
        work.reset();
        ntest::fail("after the end");
    };
    EXPECT_THROW(work->action(), nstd::cRuntimeException);
    EXPECT_TRUE(handlers.errors.empty());

    // An action-error handler that destroys the work and fails.
    work = std::make_unique<cWork>();
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

} // namespace

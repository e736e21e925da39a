#include "nel_core/pi/cLocalEventProcessor.h"

#include <chrono>
#include <deque>
#include <functional>

#include <gtest/gtest.h>

#include "nel_core/pi/cLocalEventLoop.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tSharedObject.h"
#include "tests/support/cFakeEvents.h"
#include "tests/support/cSystemFixture.h"

namespace {

using npi::cWork;

class cLocalEventProcessorTest : public ntest::cSystemFixture, public nrmi::cConnectable {
public:
    cLocalEventProcessorTest()
    {
        events.sigFinished.connect(nrmi::slot(this, &cLocalEventProcessorTest::sltFinished));
    }
    piVoid sltFinished()
    {
        ++finished;
        return piVoid();
    }
    piVoid sltAction()
    {
        onAction();
        return piVoid();
    }
    // The milliseconds that a wait takes.
    long long wait(unsigned int timeout)
    {
        auto const begin = std::chrono::steady_clock::now();
        events.yield(0, jobs, timeout);
        auto const time = std::chrono::steady_clock::now() - begin;
        return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
    }

    npi::cLocalEventProcessor events;
    nstd::tList<nstd::tSharedObject<cWork>> jobs;
    unsigned int finished = 0;
    std::function<void()> onAction;
};

TEST_F(cLocalEventProcessorTest, aWaitEndsByJobsByTimeOrByAWakeUp)
{
    EXPECT_GE(wait(10), 9);
    EXPECT_EQ(finished, 1u);

    events.wakeUp();
    EXPECT_LT(wait(10000), 5000);
    EXPECT_GE(wait(10), 9) << "a wake-up is used up";
    events.wakeUp();
    wait(0);
    EXPECT_GE(wait(10), 9) << "also by a wait without time";

    jobs.append(nstd::tSharedObject<cWork>());
    EXPECT_LT(wait(10000), 5000);
    EXPECT_EQ(finished, 6u);
}

TEST_F(cLocalEventProcessorTest, aQueueRunsOnIt)
{
    npi::cWorkQueue queue;
    queue.setEvents(nstd::tAutoPtr<npi::cAbstractProcessEvents>(new npi::cLocalEventProcessor));
    cWork work;
    queue.addJob(work);
    unsigned int runs = 0;
    onAction = [&] { ++runs; };
    work.sigAction.connect(nrmi::slot(this, &cLocalEventProcessorTest::sltAction));
    work.start(1, cWork::Periodic);
    while (runs < 3)
        queue.process();
    EXPECT_EQ(queue.level(), 0u);
}

// The queue wakes its processor for a change from inside of a pass when there are as many loops as passes.
TEST_F(cLocalEventProcessorTest, localLoopsNest)
{
    struct {
        unsigned int loops, level;
        bool wakes;
    } const rows[] = {{0, 1, false}, {1, 1, true}, {1, 2, false}, {2, 2, true}};
    for (auto const& row : rows) {
        SCOPED_TRACE(testing::Message() << row.loops << " loops at level " << row.level);
        auto* const fake = new ntest::cFakeEvents;
        npi::cWorkQueue queue;
        queue.setEvents(nstd::tAutoPtr<npi::cAbstractProcessEvents>(fake));
        std::deque<npi::cLocalEventLoop> loops;
        for (unsigned int i = 0; i < row.loops; ++i)
            loops.emplace_back(&queue);
        cWork work;
        queue.addJob(work);
        work.sigAction.connect(nrmi::slot(this, &cLocalEventProcessorTest::sltAction));
        onAction = [&] {
            if (queue.level() < row.level) {
                work.start();
                queue.process();
            } else {
                auto const before = fake->wakeUps;
                work.stop();
                EXPECT_EQ(fake->wakeUps != before, row.wakes);
            }
        };
        work.start();
        loops.empty() ? queue.process() : loops.back().process();
        EXPECT_EQ(work.statistic().numTriggered(), row.level);
    }
}

TEST_F(cLocalEventProcessorTest, aLoopWithoutAQueueRunsTheSystems)
{
    bool hasRun = false;
    onAction = [&] { hasRun = true; };
    npi::schedule(nrmi::slot(this, &cLocalEventProcessorTest::sltAction), 0, "x");
    npi::cLocalEventLoop(nullptr).process();
    EXPECT_TRUE(hasRun);
}

} // namespace

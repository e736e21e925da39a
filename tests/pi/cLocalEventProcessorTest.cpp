#include "nel_core/pi/cLocalEventProcessor.h"

#include <deque>

#include <gtest/gtest.h>

#include "nel_core/pi/cLocalEventLoop.h"
#include "tests/support/cQueueFixture.h"

namespace {

using cLocalEventProcessorTest = ntest::tEventsFixture<npi::cLocalEventProcessor>;
using cLocalEventLoopTest = ntest::cQueueFixture;

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

    jobs.append(nstd::tSharedObject<npi::cWork>());
    EXPECT_LT(wait(10000), 5000);
    EXPECT_EQ(finished, 6u);
}

// The queue wakes its processor for a change from inside of a pass when there are as many loops as passes.
TEST_F(cLocalEventLoopTest, localLoopsNest)
{
    struct {
        unsigned int loops, level;
        bool wakes;
    } const rows[] = {{0, 1, false}, {1, 1, true}, {1, 2, false}, {2, 2, true}};
    for (auto const& row : rows) {
        SCOPED_TRACE(testing::Message() << row.loops << " loops at level " << row.level);
        std::deque<npi::cLocalEventLoop> loops;
        for (unsigned int i = 0; i < row.loops; ++i)
            loops.emplace_back(queue.get());
        npi::cWork work;
        queue->addJob(work);
        on(work, [&] {
            if (queue->level() < row.level) {
                work.start();
                queue->process();
            } else {
                auto const before = events->wakeUps;
                work.stop();
                EXPECT_EQ(events->wakeUps != before, row.wakes);
            }
        });
        work.start();
        loops.empty() ? queue->process() : loops.back().process();
        EXPECT_EQ(work.statistic().numTriggered(), row.level);
    }
}

} // namespace

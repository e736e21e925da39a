#include "nel_core/std/cTimer.h"

#include <memory>

#include <gtest/gtest.h>

#include "nel_core/pi/cSystem.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cQueueFixture.h"

namespace {

using nstd::cTimer;

class cTimerTest : public ntest::cSystemFixture {
protected:
    // Lets the time pass that a second timer takes; the first one had its chance, too, if it was due.
    static void runFor(unsigned int ms)
    {
        cTimer timer;
        timer.setSingleShot(ms);
        while (!timer())
            npi::cSystem::exec();
    }

    void count(cTimer& timer)
    {
        slots.onAction = [this] { ++calls; };
        timer.sigTimer.connect(nrmi::slot(&slots, &ntest::cWorkSlots::sltAction));
    }

    ntest::cWorkSlots slots;
    int calls = 0;
};

TEST_F(cTimerTest, aSingleShotFiresOnceAndStaysElapsed)
{
    cTimer timer;
    count(timer);
    timer.setSingleShot(2);
    EXPECT_FALSE(timer.isElapsed());
    nstd::cTime const start;
    while (!timer.isElapsed())
        npi::cSystem::exec();
    EXPECT_FALSE(start.diff() < nstd::cTime(1000));
    runFor(5);
    EXPECT_TRUE(timer() && timer.isElapsed());
    EXPECT_EQ(calls, 1);
}

TEST_F(cTimerTest, anIntervalFiresAgainAndAgainUntilReset)
{
    cTimer timer(1);
    count(timer);
    while (calls < 3)
        npi::cSystem::exec();
    EXPECT_TRUE(timer.isElapsed());
    timer.reset();
    int const before = calls;
    runFor(5);
    EXPECT_EQ(calls, before);
}

TEST_F(cTimerTest, aSlotMayDeleteTheTimer)
{
    ntest::cDebugRecorder const recorder; // takes the warning that the signal was destroyed by its slot
    auto timer = std::make_unique<cTimer>(1);
    count(*timer);
    slots.onAction = [&] { timer.reset(); };
    while (timer)
        npi::cSystem::exec();
    runFor(2);
}

} // namespace

#include "nel_core/std/cTimer.h"

#include <memory>

#include <gtest/gtest.h>

#include "nel_core/pi/cSystem.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cSystemFixture.h"

namespace {

using nstd::cTimer;

class cListener : public nrmi::cConnectable {
public:
    piVoid sltTimer()
    {
        ++miCalls;
        if (mpTimer)
            mpTimer.reset();
        return piVoid();
    }

    int miCalls = 0;
    std::unique_ptr<cTimer> mpTimer; ///< dropped when it fires
};

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

    cListener listener;
};

TEST_F(cTimerTest, aSingleShotFiresOnceAndStaysElapsed)
{
    cTimer timer;
    timer.sigTimer.connect(nrmi::slot(&listener, &cListener::sltTimer));
    runFor(1);
    EXPECT_FALSE(timer.isElapsed());

    timer.setSingleShot(2);
    EXPECT_FALSE(timer.isElapsed());
    nstd::cTime const start;
    while (!timer.isElapsed())
        npi::cSystem::exec();
    EXPECT_FALSE(start.diff() < nstd::cTime(1000));
    runFor(5);
    EXPECT_TRUE(timer() && timer.isElapsed());
    EXPECT_EQ(listener.miCalls, 1);

    timer.reset();
    EXPECT_FALSE(timer.isElapsed());
}

TEST_F(cTimerTest, anIntervalFiresAgainAndAgainUntilReset)
{
    cTimer timer(1);
    timer.sigTimer.connect(nrmi::slot(&listener, &cListener::sltTimer));
    while (listener.miCalls < 3)
        npi::cSystem::exec();
    EXPECT_TRUE(timer.isElapsed());
    timer.setInterval(1);
    EXPECT_FALSE(timer.isElapsed());
    timer.reset();
    int const calls = listener.miCalls;
    runFor(5);
    EXPECT_FALSE(timer.isElapsed());
    EXPECT_EQ(listener.miCalls, calls);
}

TEST_F(cTimerTest, aSlotMayDeleteTheTimer)
{
    ntest::cDebugRecorder const recorder; // takes the warning that the signal was destroyed by its slot
    listener.mpTimer = std::make_unique<cTimer>(1);
    listener.mpTimer->sigTimer.connect(nrmi::slot(&listener, &cListener::sltTimer));
    while (listener.mpTimer)
        npi::cSystem::exec();
    runFor(2);
    EXPECT_EQ(listener.miCalls, 1);
}

TEST_F(cTimerTest, aTimerLeavesTheQueueWhenItDies)
{
    {
        cTimer const timer(1);
        ASSERT_FALSE(npi::system().workQueue.jobs().empty());
        EXPECT_STREQ((*npi::system().workQueue.jobs().begin())->name().c_str(), "nstd::cTimer");
    }
    npi::cSystem::exec();
    EXPECT_TRUE(npi::system().workQueue.jobs().empty());
}

} // namespace

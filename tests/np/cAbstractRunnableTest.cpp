#include "nel_core/np/cAbstractRunnable.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <pthread.h>

#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOSErrorException.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using np::cAbstractRunnable;

class cRunnable : public cAbstractRunnable {
public:
    explicit cRunnable(std::function<void(cRunnable&)> work) : mWork(std::move(work)) { }
    ~cRunnable() override { stop(); }

    void run() override { mWork(*this); }

private:
    std::function<void(cRunnable&)> mWork;
};

void runUntilStopped(cRunnable& runnable)
{
    while (!runnable.isStopInProgress())
        npi::cPlatform::yield();
}

template<typename F>
void waitFor(F&& condition)
{
    while (!condition())
        npi::cPlatform::yield();
}

class cAbstractRunnableTest : public ntest::cSystemFixture { };

// The stop may come before the new thread has run at all; it must not get lost then.
TEST_F(cAbstractRunnableTest, aStopRightAfterTheStartReachesTheRun)
{
    std::atomic<int> runs{0};
    cRunnable runnable([&](cRunnable& self) {
        ++runs;
        runUntilStopped(self);
    });
    for (int i = 0; i < 300; ++i) {
        runnable.start();
        runnable.stop();
        ASSERT_EQ(runnable.state(), cAbstractRunnable::stFinished);
        ASSERT_EQ(runs, i + 1);
    }
}

TEST_F(cAbstractRunnableTest, aStartEndsTheEarlierRunFirst)
{
    std::atomic<int> runs{0}, inside{0};
    cRunnable runnable([&](cRunnable& self) {
        ++runs;
        EXPECT_EQ(++inside, 1);
        runUntilStopped(self);
        --inside;
    });
    for (int i = 0; i < 5; ++i) {
        runnable.start();
        waitFor([&] { return runs == i + 1; });
    }
    runnable.stop();
    EXPECT_EQ(inside, 0);
}

TEST_F(cAbstractRunnableTest, insideItsRunAStopOnlyAsksAndAStartIsRefused)
{
    std::string refusal;
    cRunnable runnable([&](cRunnable& self) {
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { self.start(); });
        refusal = error ? ntest::messageOf(*error) : "none";
        self.stop();
        EXPECT_TRUE(self.isStopInProgress());
    });
    runnable.start();
    waitFor([&] { return runnable.state() == cAbstractRunnable::stFinished; });
    EXPECT_EQ(refusal, "The operation \"cAbstractRunnable::start()\" is not supported!");
}

TEST_F(cAbstractRunnableTest, anEscapingExceptionLeavesItFinished)
{
    void (*const ends[])(cRunnable&) = {
        [](cRunnable&) { cSTDExceptions::throwUnsupportedOperation("test"); },
        [](cRunnable&) { throw 5; },
    };
    for (auto const& end : ends) {
        cRunnable runnable(end);
        runnable.start();
        waitFor([&] { return !runnable.isActive(); });
        EXPECT_EQ(runnable.state(), cAbstractRunnable::stFinished);
    }
}

TEST_F(cAbstractRunnableTest, aRefusedThreadIsAnOSError)
{
    // A default stack as big as the address space leaves no room for a thread.
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_getattr_default_np(&attributes), 0);
    std::size_t stackSize = 0;
    pthread_attr_getstacksize(&attributes, &stackSize);
    pthread_attr_setstacksize(&attributes, ~std::size_t(0) / 16 * 15 / 65536 * 65536);
    ASSERT_EQ(pthread_setattr_default_np(&attributes), 0);

    cRunnable runnable([](cRunnable&) {});
    auto const error = ntest::raisedBy<nstd::cOSErrorException>([&] { runnable.start(); });
    pthread_attr_setstacksize(&attributes, stackSize);
    ASSERT_EQ(pthread_setattr_default_np(&attributes), 0);
    pthread_attr_destroy(&attributes);

    ASSERT_TRUE(error.has_value());
    EXPECT_TRUE(error->operation() == "pthread_create");
    EXPECT_EQ(error->osErrorCode(), EAGAIN);
    EXPECT_EQ(ntest::text(error->file()), "Unable to create thread!");
    EXPECT_EQ(runnable.state(), cAbstractRunnable::stStarting);

    runnable.start();
    runnable.stop();
    EXPECT_EQ(runnable.state(), cAbstractRunnable::stFinished);
}

} // namespace

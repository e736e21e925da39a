#include "nel_core/np/cAbstractRunnable.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <pthread.h>
#include <stdexcept>

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

    void run() override
    {
        ++runs;
        mWork(*this);
    }

    std::atomic<int> runs{0};

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

TEST_F(cAbstractRunnableTest, withoutAThreadAStopLeavesItRequested)
{
    cRunnable runnable(runUntilStopped);
    EXPECT_EQ(runnable.state(), cAbstractRunnable::stNeverStarted);
    EXPECT_FALSE(runnable.isActive());
    runnable.stop();
    EXPECT_EQ(runnable.state(), cAbstractRunnable::stStopInProgress);
    EXPECT_TRUE(runnable.isActive());
    EXPECT_EQ(runnable.runs, 0);
}

TEST_F(cAbstractRunnableTest, aRunThatReturnsIsFinished)
{
    cRunnable runnable([](cRunnable& self) { EXPECT_TRUE(self.isRunning() && self.isActive()); });
    runnable.start();
    waitFor([&] { return runnable.state() == cAbstractRunnable::stFinished; });
    EXPECT_FALSE(runnable.isActive());
    runnable.stop();
    EXPECT_EQ(runnable.state(), cAbstractRunnable::stFinished);
}

// The stop may come before the new thread has run at all; it must not get lost then.
TEST_F(cAbstractRunnableTest, aStopRightAfterTheStartReachesTheRun)
{
    cRunnable runnable(runUntilStopped);
    for (int i = 0; i < 300; ++i) {
        runnable.start();
        runnable.stop();
        ASSERT_EQ(runnable.state(), cAbstractRunnable::stFinished);
    }
    EXPECT_EQ(runnable.runs, 300);
}

TEST_F(cAbstractRunnableTest, aStartEndsTheEarlierRunFirst)
{
    std::atomic<int> inside{0};
    cRunnable runnable([&](cRunnable& self) {
        EXPECT_EQ(++inside, 1);
        runUntilStopped(self);
        --inside;
    });
    for (int i = 0; i < 5; ++i) {
        runnable.start();
        waitFor([&] { return runnable.runs == i + 1; });
    }
    runnable.stop();
    EXPECT_EQ(runnable.runs, 5);
    EXPECT_EQ(inside, 0);
}

TEST_F(cAbstractRunnableTest, insideItsRunAStopOnlyAsksAndAStartIsRefused)
{
    std::string refusal;
    cRunnable runnable([&](cRunnable& self) {
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { self.start(); });
        refusal = error ? ntest::messageOf(*error) : "none";
        EXPECT_TRUE(self.isRunning());
        self.stop();
        EXPECT_TRUE(self.isStopInProgress());
    });
    runnable.start();
    waitFor([&] { return runnable.state() == cAbstractRunnable::stFinished; });
    runnable.stop();
    EXPECT_EQ(runnable.state(), cAbstractRunnable::stFinished);
    EXPECT_EQ(refusal, "The operation \"cAbstractRunnable::start()\" is not supported!");
}

TEST_F(cAbstractRunnableTest, anEscapingExceptionLeavesItFinished)
{
    struct {
        char const* name;
        void (*work)(cRunnable&);
    } const ends[] = {
        {"framework exception", [](cRunnable&) { cSTDExceptions::throwUnsupportedOperation("test"); }},
        {"standard exception", [](cRunnable&) { throw std::runtime_error("test"); }},
        {"number", [](cRunnable&) { throw 5; }},
    };
    for (auto const& row : ends) {
        SCOPED_TRACE(row.name);
        cRunnable runnable(row.work);
        runnable.start();
        waitFor([&] { return !runnable.isActive(); });
        EXPECT_EQ(runnable.state(), cAbstractRunnable::stFinished);
    }
}

TEST_F(cAbstractRunnableTest, copiesAreRefused)
{
    cRunnable runnable(runUntilStopped);
    cAbstractRunnable& base = runnable;
    auto const thrown = [](auto&& call) {
        try {
            call();
        } catch (int number) {
            return number;
        }
        return 0;
    };
    EXPECT_EQ(thrown([&] { cAbstractRunnable copy(base); }), 12);
    EXPECT_EQ(thrown([&] { base = base; }), 12);
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
    EXPECT_EQ(runnable.runs, 1);
    EXPECT_EQ(runnable.state(), cAbstractRunnable::stFinished);
}

} // namespace

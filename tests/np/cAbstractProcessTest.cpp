#include "nel_core/np/cAbstractProcess.h"

#include <gtest/gtest.h>

#include "nel_core/np/cAbstractPollable.h"
#include "nel_core/np/cBasicProcessData.h"
#include "nel_core/np/cLocker.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using np::cAbstractProcess;

class cPollable : public np::cAbstractPollable {
public:
    using np::cAbstractPollable::cAbstractPollable;
    void process() override { processData().setFinished(); }
};

// A process that owns its data.
class cProcess : public cAbstractProcess {
public:
    void process() override { }
    np::cAbstractPollable* isPollable() override { return nullptr; }
    np::cAbstractRunnable* isRunnable() override { return nullptr; }
    void interrupt(bool) override { }
};

class cAbstractProcessTest : public ntest::cSystemFixture { };

TEST_F(cAbstractProcessTest, dataIsBoundToOnePollableAtATime)
{
    np::cBasicProcessData data;
    EXPECT_EQ(data.context(), cAbstractProcess::ctxUnbound);
    EXPECT_EQ(data.preferredContext(), cAbstractProcess::ctxRunnable);
    {
        cPollable first(data);
        EXPECT_EQ(data.context(), cAbstractProcess::ctxPollable);
        EXPECT_EQ(&first.processData(), &data);
        EXPECT_EQ(first.isPollable(), &first);
        EXPECT_EQ(first.isRunnable(), nullptr);

        auto const error = ntest::raisedBy<nstd::cBugException>([&] { cPollable second(data); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "Never use process data for more than one process!");
        EXPECT_EQ(data.context(), cAbstractProcess::ctxPollable);
    }
    EXPECT_EQ(data.context(), cAbstractProcess::ctxUnbound);
    cPollable again(data);
    EXPECT_EQ(data.context(), cAbstractProcess::ctxPollable);
}

TEST_F(cAbstractProcessTest, aRestartClearsTheFlagsOfTheLastRunAndTellsOfIt)
{
    np::cBasicProcessData data;
    cPollable process(data);
    EXPECT_FALSE(process.isRunning() || process.isFinished() || data.isCanceled());
    data.cancel();
    process.process();
    EXPECT_TRUE(process.isFinished() && data.isCanceled());
    EXPECT_FALSE(process.isRunning());

    ntest::cDebugRecorder recorder;
    data.restart();
    EXPECT_TRUE(process.isRunning());
    EXPECT_FALSE(process.isFinished() || data.isCanceled());
    EXPECT_EQ(recorder.text(), "cAbstractProcessData::restart()\n -- unlock --\nSetting running flag...\n");

    process.process();
    EXPECT_TRUE(process.isFinished());
    EXPECT_FALSE(process.isRunning());
}

// A copied locker raises when it is used, which shows who uses it.
TEST_F(cAbstractProcessTest, everyFlagIsReadAndWrittenUnderTheFirstContextLocker)
{
    struct {
        char const* name;
        void (*call)(np::cAbstractProcessData&);
    } const calls[] = {
        {"isCanceled", [](np::cAbstractProcessData& d) { d.isCanceled(); }},
        {"cancel", [](np::cAbstractProcessData& d) { d.cancel(); }},
        {"isFinished", [](np::cAbstractProcessData& d) { d.isFinished(); }},
        {"setFinished", [](np::cAbstractProcessData& d) { d.setFinished(); }},
        {"isRunning", [](np::cAbstractProcessData& d) { d.isRunning(); }},
        {"restart", [](np::cAbstractProcessData& d) { d.restart(); }},
    };
    np::cLocker locker;
    np::cLocker withoutMutex(locker);
    cProcess process;
    auto& data = process.processData();
    EXPECT_EQ(data.ownerLocker(), nullptr);
    for (auto const& row : calls) {
        SCOPED_TRACE(row.name);
        data.setContext(cAbstractProcess::ctxPollable, &withoutMutex, &locker);
        EXPECT_TRUE(ntest::raisedBy<nstd::cBugException>([&] { row.call(data); }).has_value());
        data.setContext(cAbstractProcess::ctxPollable, nullptr, &withoutMutex);
        EXPECT_FALSE(data.isRunning() || data.isFinished() || data.isCanceled());
    }
}

} // namespace

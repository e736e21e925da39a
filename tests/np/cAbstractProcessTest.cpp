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

class cAbstractProcessTest : public ntest::cSystemFixture { };

TEST_F(cAbstractProcessTest, dataIsBoundToOnePollableAtATime)
{
    np::cBasicProcessData data;
    {
        cPollable first(data);
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { cPollable second(data); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "Never use process data for more than one process!");
    }
    cPollable again(data);
    EXPECT_EQ(data.context(), cAbstractProcess::ctxPollable);
}

TEST_F(cAbstractProcessTest, aRestartClearsTheFlagsOfTheLastRunAndTellsOfIt)
{
    np::cBasicProcessData data;
    cPollable process(data);
    data.cancel();
    process.process();
    EXPECT_TRUE(process.isFinished() && data.isCanceled());
    ntest::cDebugRecorder recorder;
    data.restart();
    EXPECT_TRUE(process.isRunning());
    EXPECT_FALSE(process.isFinished() || data.isCanceled());
    EXPECT_EQ(recorder.text(), "cAbstractProcessData::restart()\n -- unlock --\nSetting running flag...\n");
}

// A copied locker raises when it is used, which shows who uses it.
TEST_F(cAbstractProcessTest, everyFlagIsReadAndWrittenUnderTheFirstContextLocker)
{
    void (*const calls[])(np::cAbstractProcessData&) = {
        [](np::cAbstractProcessData& d) { d.isCanceled(); },
        [](np::cAbstractProcessData& d) { d.cancel(); },
        [](np::cAbstractProcessData& d) { d.isFinished(); },
        [](np::cAbstractProcessData& d) { d.setFinished(); },
        [](np::cAbstractProcessData& d) { d.isRunning(); },
        [](np::cAbstractProcessData& d) { d.restart(); },
    };
    np::cLocker locker;
    np::cLocker withoutMutex(locker);
    np::cBasicProcessData data;
    for (auto const& call : calls) {
        data.setContext(cAbstractProcess::ctxPollable, &withoutMutex, &locker);
        EXPECT_TRUE(ntest::raisedBy<nstd::cBugException>([&] { call(data); }).has_value());
    }
}

} // namespace

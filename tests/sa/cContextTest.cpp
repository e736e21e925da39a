#include "nel_core/sa/cContext.h"

#include <utility>

#include <gtest/gtest.h>

#include "nel_core/sa/cAbstractContextData.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/raisedBy.h"

namespace {

using nsa::cContext;
using nsa::cContextRef;

struct cRecord : nsa::cAbstractContextData {
    cRecord() { ++living; }
    ~cRecord() override { --living; }
    void release() override { ++releases; }

    static inline int living = 0, releases = 0;
};

template<typename Callable>
void expectNoReference(Callable&& callable)
{
    auto const error = ntest::raisedBy<nstd::cBugException>(callable);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "cContextRef::unguardImpl(): no valid reference!");
}

TEST(cContextTest, aReferenceIsTheSoleOwnerAndMovesWhenCopied)
{
    {
        cContextRef const dropped(new cRecord);
        cContextRef first(new cRecord);
        cContextRef second(first);
        expectNoReference([&] { cContextRef third(first); });
        expectNoReference([&] { cContext context(std::move(first)); });
        expectNoReference([&] { static_cast<void>(static_cast<nsa::cContextRefRef>(first)); });
        cContextRef third(static_cast<nsa::cContextRefRef>(second));
        EXPECT_EQ(cRecord::living, 2);
    }
    EXPECT_EQ(cRecord::living, 0);
}

TEST(cContextTest, aContextKeepsItsRecordUntilItIsUnsetOrDies)
{
    cRecord::releases = 0;
    auto* const record = new cRecord;
    {
        cContext first{cContextRef(record)};
        first.release();
        first.release();
        cContext second(first), empty(first);
        first.release(); // nothing there any more
        EXPECT_EQ(cRecord::releases, 2);
        empty = second;
        EXPECT_EQ(empty.unguard(), nullptr);
        EXPECT_EQ(second.unguard(), record);
    }
    EXPECT_EQ(cRecord::living, 1);
    {
        cContext const dying{cContextRef(record)};
        cContext unset{cContextRef(new cRecord)};
        unset.unset();
        EXPECT_EQ(cRecord::living, 1);
    }
    EXPECT_EQ(cRecord::living, 0);
    EXPECT_EQ(cRecord::releases, 2);
}

} // namespace

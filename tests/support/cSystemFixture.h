#pragma once

#include <gtest/gtest.h>

namespace ntest {

/// A test with a system object of its own: one is made before it and none is left after it.
class cSystemFixture : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

} // namespace ntest

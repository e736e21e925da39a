#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/std/tAbstractConstArrayProxy.h"

namespace ntest {

/// Holds a text in blocks (or, with 0, as a whole) and notes every request for one. A request ends the
/// validity of the block before.
class cBlocks : public nstd::tAbstractConstArrayProxy<char> {
public:
    cBlocks(std::string text, unsigned int blockSize) : msText(std::move(text)), miBlockSize(blockSize) { }

    char const& proxyAt(unsigned int i) const override { return msText.at(i); }
    unsigned int proxyLength() const override { return static_cast<unsigned int>(msText.size()); }
    void proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const override
    {
        std::string const part = request(start, count);
        std::copy(part.begin(), part.end(), target);
    }
    char const* proxyProvideData(unsigned int start, unsigned int count) const override
    {
        if (miBlockSize == 0)
            return msText.data() + start;
        std::fill(msBlock.begin(), msBlock.end(), '#');
        msBlock = request(start, count);
        return msBlock.data();
    }
    unsigned int proxyPreferredBlockSize() const override { return miBlockSize; }
    tAbstractConstArrayProxy const& constProxyPhysical(unsigned int& offset) const override
    {
        offset = 0;
        return *this;
    }

    std::vector<std::string> takeRequests() const { return std::exchange(maRequests, {}); }

private:
    std::string request(unsigned int start, unsigned int count) const
    {
        EXPECT_NE(count, 0u) << "nobody asks for nothing";
        EXPECT_LE(start + count, msText.size());
        return maRequests.emplace_back(msText.substr(start, count));
    }

    std::string msText;
    unsigned int miBlockSize;
    mutable std::string msBlock;
    mutable std::vector<std::string> maRequests;
};

} // namespace ntest

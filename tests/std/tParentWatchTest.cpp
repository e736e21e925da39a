#include "nel_core/std/tParentWatch.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/support/expectRefusal.h"

namespace {

struct cNode {
    explicit cNode(char name) : mName(name), mWatch(this) { }
    char mName;
    nstd::tParentWatch<cNode> mWatch;
};

std::string childrenOf(cNode const& node)
{
    std::string names;
    for (auto* child : node.mWatch.children())
        names += child->object()->mName;
    return names;
}

TEST(tParentWatchTest, aParentWithoutObjectIsABug)
{
    nstd::tParentWatch<cNode> parent(nullptr);
    cNode child('c');
    child.mWatch.setParent(&parent);
    ntest::expectAssertion([&] { child.mWatch.parent(); }, "mpObject != 0", "nel_core/std/tParentWatch");
}

// Against a model: the parent's index of each node, and each node's children in order.
TEST(tParentWatchTest, randomMovesKeepTheTreeWhole)
{
    constexpr int kNodes = 8;
    std::mt19937 random(20);
    std::vector<std::unique_ptr<cNode>> nodes(kNodes);
    std::string children[kNodes];
    int parents[kNodes];
    auto const leave = [&](int i) {
        if (parents[i] >= 0)
            children[parents[i]].erase(children[parents[i]].find(static_cast<char>(i)), 1);
        parents[i] = -1;
    };
    auto const renew = [&](int i) {
        nodes[static_cast<unsigned>(i)] = std::make_unique<cNode>(static_cast<char>(i));
        parents[i] = -1;
        children[i].clear();
    };
    for (int i = 0; i < kNodes; ++i)
        renew(i);

    for (int step = 0; step < 3000; ++step) {
        int const i = static_cast<int>(random() % kNodes);
        int const to = static_cast<int>(random() % (kNodes + 1)) - 1;
        if (random() % 4 == 0) {
            int const parent = parents[i];
            leave(i);
            for (char child : children[i])
                parents[static_cast<int>(child)] = parent;
            if (parent >= 0)
                children[parent] += children[i];
            renew(i);
        } else {
            int above = to;
            while (above >= 0 && above != i)
                above = parents[above];
            nodes[static_cast<unsigned>(i)]->mWatch.setParent(
                to >= 0 ? &nodes[static_cast<unsigned>(to)]->mWatch : nullptr);
            if (above != i) {
                leave(i);
                parents[i] = to;
                if (to >= 0)
                    children[to] += static_cast<char>(i);
            }
        }
        for (int n = 0; n < kNodes; ++n) {
            cNode const& node = *nodes[static_cast<unsigned>(n)];
            cNode const* const parent = node.mWatch.parent();
            ASSERT_EQ(parent ? parent->mName : -1, parents[n]);
            ASSERT_EQ(childrenOf(node), children[n]);
        }
    }
}

} // namespace

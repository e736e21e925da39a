#pragma once

#include "nel_core/std/tArrayHashTraits.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tPair.h"
#include "nel_core/std/tVector.h"

namespace nstd {

/// A hash table with a fixed number of bucket lists. K is an array type with `==`, V copyable and
/// default-constructible. A lookup scans one bucket; values keep their addresses until clear().
template<typename K, typename V, typename Traits>
class tHash {
public:
    using bucketList = tList<tPair<K, V>>;

    /// A position in a hash: an element of one of its buckets, or the end.
    class cHashNode {
    public:
        cHashNode() noexcept = default;
        cHashNode(tHash const& hash, unsigned int bucket) : mpHash(&hash), miBucket(bucket) { enterBucket(); }
        bool operator==(cHashNode const& other) const noexcept
        {
            return mpHash == other.mpHash && mIt == other.mIt;
        }
        bool next();
        tPair<K, V>* element() const noexcept
        {
            auto* const node = mIt.node();
            return node ? &node->linkedElement()->element() : nullptr;
        }

    private:
        void enterBucket();

        tHash const* mpHash = nullptr;
        unsigned int miBucket = 0;
        typename bucketList::const_iterator mIt; ///< without node at the end
    };

    /// Walks the buckets in order; forward only.
    using const_iterator = tConstIterator<tPair<K, V>, cHashNode>;

    /// Creates the buckets.
    tHash();

    /// The value of `key`; an absent key is added with a default value.
    V& operator[](K const& key);
    /// The value of `key`, null when it is absent.
    V* tryFind(K const& key) { return find(mBuckets[Traits::bucket(key)], key); }
    V const* tryFind(K const& key) const { return find(mBuckets[Traits::bucket(key)], key); }
    /// Removes all pairs; the buckets stay.
    void clear();

    /// The list of bucket `index`; raises out-of-range 0 when there is none.
    bucketList const& bucket(unsigned int index) const { return mBuckets.at(index); }
    /// The number of keys.
    unsigned int size() const noexcept { return miSize; }
    bool empty() const noexcept { return miSize == 0; }

    const_iterator begin() const { return const_iterator({*this, 0}); }
    const_iterator end() const { return const_iterator({*this, Traits::kBucketCount}); }

private:
    template<typename List>
    static auto find(List& list, K const& key) -> decltype(&(*list.begin()).second);

    tVector<bucketList> mBuckets;
    unsigned int miSize = 0;
};

template<typename K, typename V, typename Traits>
bool tHash<K, V, Traits>::cHashNode::next()
{
    if (!mIt.node())
        return false;
    if (++mIt == mpHash->bucket(miBucket).end()) {
        ++miBucket;
        enterBucket();
    }
    return true;
}

template<typename K, typename V, typename Traits>
void tHash<K, V, Traits>::cHashNode::enterBucket()
{
    mIt = typename bucketList::const_iterator();
    while (miBucket < Traits::kBucketCount && mpHash->bucket(miBucket).empty())
        ++miBucket;
    if (miBucket < Traits::kBucketCount)
        mIt = mpHash->bucket(miBucket).begin();
}

template<typename K, typename V, typename Traits>
tHash<K, V, Traits>::tHash()
{
    mBuckets.setNumElementsAhead(Traits::kBucketCount);
    mBuckets.resize(Traits::kBucketCount);
}

template<typename K, typename V, typename Traits>
V& tHash<K, V, Traits>::operator[](K const& key)
{
    bucketList& list = mBuckets[Traits::bucket(key)];
    if (V* const found = find(list, key))
        return *found;
    V& added = list.append(tPair<K, V>(key, V())).second;
    ++miSize;
    return added;
}

template<typename K, typename V, typename Traits>
void tHash<K, V, Traits>::clear()
{
    for (bucketList& list : mBuckets) {
        miSize -= list.size(); // before the values go: their destructors may add others
        list.clear();
    }
}

template<typename K, typename V, typename Traits>
template<typename List>
auto tHash<K, V, Traits>::find(List& list, K const& key) -> decltype(&(*list.begin()).second)
{
    for (auto& pair : list)
        if (pair.first == key)
            return &pair.second;
    return nullptr;
}

} // namespace nstd

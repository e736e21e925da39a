#pragma once

#include "nel_core/std/fwd.h"

namespace nstd {

/// Spreads keys that are arrays over `BucketCount` buckets, by their elements as 32-bit numbers.
template<unsigned int BucketCount>
struct tArrayHashTraits {
    static_assert(BucketCount != 0 && (BucketCount & (BucketCount - 1)) == 0, "buckets are a power of two");

    static constexpr unsigned int kBucketCount = BucketCount;
    static constexpr unsigned int kLongestHashedKey = 1024; ///< elements; longer keys are sampled

    template<typename K>
    static unsigned int bucket(K const& key)
    {
        unsigned int const length = key.length();
        return (length <= kLongestHashedKey ? hash(key, length) : sample(key, length)) & (BucketCount - 1);
    }

private:
    // A multiplicative string hash (start 5381, factor 33), wrapping at 32 bits.
    template<typename K>
    static unsigned int hash(K const& key, unsigned int length)
    {
        unsigned int result = 5381;
        for (unsigned int i = 0; i < length; ++i)
            result = result * 33u + static_cast<unsigned int>(key[i]);
        return result;
    }
    template<typename K>
    static unsigned int sample(K const& key, unsigned int length)
    {
        auto const lowByte = [&key](unsigned int i) { return static_cast<unsigned int>(key[i]) & 0xFFu; };
        return length
               ^ (lowByte(length - 5) + lowByte(length / 6) + lowByte(length - length / 6)
                  + lowByte(length - length / 3));
    }
};

} // namespace nstd

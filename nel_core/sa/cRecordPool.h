#pragma once

#include <cstddef>

namespace nsa {

/// The memory of the context records of one stream: what a record leaves is kept for the next one, so that a
/// warm stream opens contexts without taking memory. It lives until its stream and all records are gone.
///
/// A record class allocates through take() and give() in its own operator new and delete.
class cRecordPool {
public:
    cRecordPool(cRecordPool const&) = delete;
    cRecordPool& operator=(cRecordPool const&) = delete;

    /// Memory for a record of `size` bytes, which is the same for all records of the pool. A null pool is
    /// made first. Raises std::bad_alloc.
    static void* take(cRecordPool*& pool, std::size_t size);
    /// Takes the memory of a record back.
    static void give(void* record) noexcept;
    /// The stream is gone; null is ignored.
    static void abandon(cRecordPool* pool) noexcept;

private:
    /// Stands in front of each record.
    struct cBlock {
        cRecordPool* mpPool;
        cBlock* mpNext; ///< while it is spare
    };

    cRecordPool() = default;
    ~cRecordPool();

    cBlock* mpSpare = nullptr; ///< owned
    std::size_t miLiving = 0;  ///< records, and one for the stream
};

} // namespace nsa

#pragma once

#include <algorithm>
#include <functional>
#include <string>

#include "nel_core/io/cAbstractIOBlockDevice.h"
#include "nel_core/ucs/cString.h"

namespace ntest {

/// A device whose bytes are a text, which hands out and takes as little at once as it is told to.
class cFakeDevice : public nio::cAbstractIOBlockDevice {
public:
    explicit cFakeDevice(std::string const& text = "") : bytes(text) { }

    unsigned long long read(void* target, unsigned long long count) override
    {
        ++reads;
        if (onRead)
            onRead();
        auto const end = std::min<unsigned long long>(bytes.size(), place + std::min(count, maxRead));
        auto const moved = end > place ? end - place : 0;
        std::copy_n(bytes.begin() + static_cast<long>(place), moved, static_cast<char*>(target));
        place += moved;
        return moved;
    }
    unsigned long long write(void const* source, unsigned long long count) override
    {
        auto const moved = static_cast<std::size_t>(std::min(count, maxWrite));
        writes += std::to_string(moved) + ' ';
        auto const at = static_cast<std::size_t>(place);
        bytes.resize(std::max(bytes.size(), at + moved));
        bytes.replace(at, moved, static_cast<char const*>(source), moved);
        place += moved;
        touchSize();
        return moved;
    }
    nucs::cString const& name() const override { return fileName; }
    unsigned long long seek(long long offset, nio::SeekMode mode) override
    {
        touchSize();
        place = static_cast<unsigned long long>(offset) + (mode == nio::smEnd ? bytes.size() : 0);
        return place;
    }
    unsigned long long pos() const override { return place; }
    void truncate(unsigned int size) override
    {
        bytes.resize(size);
        touchSize();
    }
    void mmap() override { }

    std::string bytes;
    unsigned long long place = 0;
    unsigned long long maxRead = ~0ULL, maxWrite = ~0ULL; ///< by one call
    std::function<void()> onRead;
    unsigned int reads = 0;
    std::string writes; ///< the number of bytes of each write
    nucs::cString fileName;
};

} // namespace ntest

#include "nel_core/io/cAbstractIOBlockDevice.h"

#include <algorithm>

#include "nel_core/io/cIOExceptions.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/std/raise.h"

namespace nio {
namespace {

constexpr unsigned int kAttempts = 5;
constexpr unsigned int kZerosSize = 65536;
constexpr unsigned int kEraseLine = 178; // under which the debug entry of proxyErase() appears

// Lets `step`, which gets the number of bytes moved so far and of those left, move `count` bytes. False when
// they do not all move.
template<typename Step>
bool moveAll(unsigned int count, Step&& step)
{
    unsigned int done = 0;
    for (unsigned int i = 0; i < kAttempts && done < count; ++i) {
        unsigned long long const moved = step(done, count - done);
        if (moved > count - done)
            return false;
        done += static_cast<unsigned int>(moved);
    }
    return done == count;
}

bool writeAll(cAbstractIODevice& device, char const* source, unsigned int count)
{
    return moveAll(count,
                   [&](unsigned int done, unsigned int left) { return device.write(source + done, left); });
}

} // namespace

cAbstractIOBlockDevice::cAbstractIOBlockDevice() : mpCache(new cIOBlockDeviceImpl)
{
    mpCache->setBD(this);
}

cAbstractIOBlockDevice::cAbstractIOBlockDevice(cAbstractIOBlockDevice const& other)
    : cAbstractIODevice(other),
      tAbstractArrayProxy<char>(other),
      mpCache(new cIOBlockDeviceImpl(*other.mpCache))
{
    mpCache->setBD(this);
}

cAbstractIOBlockDevice& cAbstractIOBlockDevice::operator=(cAbstractIOBlockDevice const& other)
{
    nstd::tAutoPtr<cIOBlockDeviceImpl> cache(new cIOBlockDeviceImpl(*other.mpCache));
    cache->setBD(this);
    mpCache = cache;
    return *this;
}

cAbstractIOBlockDevice::~cAbstractIOBlockDevice() = default;

void cAbstractIOBlockDevice::swap(cAbstractIOBlockDevice& other) noexcept
{
    mpCache->swap(*other.mpCache);
}

bool cAbstractIOBlockDevice::eof()
{
    return pos() >= size();
}

void cAbstractIOBlockDevice::setSize(unsigned long long)
{
    nstd::raiseBug(nstd::makeMessage("$MTR$Not implemented: cAbstractIOBlockDevice::setSize()"));
}

char const& cAbstractIOBlockDevice::proxyAt(unsigned int i) const
{
    return mpCache->at(i);
}

char& cAbstractIOBlockDevice::proxyAt(unsigned int i)
{
    return mpCache->toModifyAt(i);
}

unsigned int cAbstractIOBlockDevice::proxyLength() const
{
    return static_cast<unsigned int>(size());
}

void cAbstractIOBlockDevice::proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const
{
    auto& device = mpCache->bd();
    device.seek(start, smStart);
    if (!moveAll(count,
                 [&](unsigned int done, unsigned int left) { return device.read(target + done, left); }))
        cIOExceptions::throwUnableToRead(count);
}

char const* cAbstractIOBlockDevice::proxyProvideData(unsigned int start, unsigned int count) const
{
    unsigned int const index = mpCache->cacheLocation(start, count);
    if (count != 0 && !mpCache->holds(start, count))
        cIOExceptions::throwUnableToRead(count);
    return mpCache->cache().data(true) + index;
}

unsigned int cAbstractIOBlockDevice::proxyPreferredBlockSize() const
{
    return mpCache->preferredBlockSize();
}

void cAbstractIOBlockDevice::proxyPatchData(unsigned int start, unsigned int count, char const* source)
{
    seek(start, smStart);
    if (!writeAll(*this, source, count))
        cIOExceptions::throwUnableToWrite(count);
}

void cAbstractIOBlockDevice::proxySetSize(unsigned int size)
{
    setSize(size);
}

unsigned int cAbstractIOBlockDevice::proxyInsert(unsigned int pos, char const* source, unsigned int count)
{
    if (pos != size())
        nstd::raiseBug(
            nstd::makeMessage("$MTR$Insertion anywhere in the middle of file is not supported yet - sorry!"));
    seek(0, smEnd);
    return static_cast<unsigned int>(write(source, count));
}

unsigned int cAbstractIOBlockDevice::proxyInsertDefaultObjects(unsigned int pos, unsigned int count)
{
    char const zeros[kZerosSize] = {};
    seek(pos, smStart);
    for (unsigned int left = count; left != 0;) {
        unsigned int const block = std::min(left, kZerosSize);
        if (!writeAll(*this, zeros, block))
            cIOExceptions::throwUnableToWrite(count);
        left -= block;
    }
    return count;
}

void cAbstractIOBlockDevice::proxyErase(unsigned int start, unsigned int count)
{
    unsigned long long const end = static_cast<unsigned long long>(start) + count;
    unsigned long long const length = size();
    npi::cDebugEntry(NEL_SOURCE_TAG, kEraseLine)
        << "AIOB-Erase at " << start << " / " << count << " => truncate at " << end << " / size: " << length;
    if (end != length || length > 0xFFFFFFFFu)
        nstd::raiseBug(nstd::makeMessage(
            "$MTR$Data remove anywhere in the middle of file is not supported yet - sorry!"));
    truncate(start);
}

nstd::tAbstractArrayProxy<char>& cAbstractIOBlockDevice::proxyPhysical(unsigned int& offset)
{
    offset = 0;
    return *this;
}

nstd::tAbstractConstArrayProxy<char> const&
cAbstractIOBlockDevice::constProxyPhysical(unsigned int& offset) const
{
    offset = 0;
    return *this;
}

unsigned long long cAbstractIOBlockDevice::size(bool force) const
{
    return mpCache->size(force);
}

unsigned long long cAbstractIOBlockDevice::bytesLeft() const
{
    auto const end = size();
    auto const position = pos();
    return position < end ? end - position : 0;
}

void cAbstractIOBlockDevice::flush()
{
    mpCache->flush();
}

void cAbstractIOBlockDevice::touchSize()
{
    mpCache->touchSize();
}

void cAbstractIOBlockDevice::setPreferredBlockSize(unsigned int size)
{
    mpCache->setPreferredBlockSize(size);
}

void cAbstractIOBlockDevice::dropCache(bool appends) noexcept
{
    mpCache->drop();
    mpCache->setAppending(appends);
}

} // namespace nio

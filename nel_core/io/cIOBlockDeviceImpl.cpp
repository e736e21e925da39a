#include "nel_core/io/cIOBlockDeviceImpl.h"

#include <algorithm>
#include <utility>

#include "nel_core/io/cAbstractIOBlockDevice.h"
#include "nel_core/io/cIOExceptions.h"

namespace nio {
namespace {

constexpr unsigned int kCacheSize = 65536;
constexpr unsigned int kGrowStep = 14;

} // namespace

cIOBlockDeviceImpl::cIOBlockDeviceImpl() : maCache(kCacheSize)
{
    maCache.setGrowStep(kGrowStep);
    maCache.setFitOnErase(false);
}

cIOBlockDeviceImpl::cIOBlockDeviceImpl(cIOBlockDeviceImpl const& other)
    : maCache(other.maCache),
      miStart(other.miStart),
      mbNeedsReload(other.mbNeedsReload),
      mbDirty(other.mbDirty),
      miPreferredBlockSize(other.miPreferredBlockSize),
      mbAppending(other.mbAppending)
{
}

void cIOBlockDeviceImpl::swap(cIOBlockDeviceImpl& other) noexcept
{
    maCache.swap(other.maCache);
    std::swap(miStart, other.miStart);
    std::swap(mbNeedsReload, other.mbNeedsReload);
    std::swap(mbDirty, other.mbDirty);
    std::swap(miPreferredBlockSize, other.miPreferredBlockSize);
    std::swap(miSize, other.miSize);
    std::swap(mbAppending, other.mbAppending);
}

cAbstractIOBlockDevice& cIOBlockDeviceImpl::bd() const
{
    NEL_ASSERT(mpDevice != 0);
    return *mpDevice;
}

unsigned long long cIOBlockDeviceImpl::size(bool force)
{
    if (miSize == 0 || force) {
        auto const measured = measuredSize();
        miSize = measured; // now: seeking has forgotten it
    }
    return miSize;
}

unsigned int cIOBlockDeviceImpl::cacheLocation(unsigned int pos, unsigned int count)
{
    if (holds(pos, count))
        return pos - miStart;
    flush();
    mbNeedsReload = true;
    load(pos, count);
    return 0;
}

char const& cIOBlockDeviceImpl::at(unsigned int pos)
{
    if (left(pos) != 0) {
        unsigned int const index = cacheLocation(pos, 1);
        if (holds(pos, 1))
            return maCache[index];
    }
    auto const end = size(false);
    cSTDExceptions::throwOutOfRange("cAbstractIOBlockDevice", "proxyAt", cSTDExceptions::ortIndex, pos, 0,
                                    end == 0 ? 0 : static_cast<long long>(end - 1));
}

char& cIOBlockDeviceImpl::toModifyAt(unsigned int pos)
{
    char const& byte = at(pos);
    mbDirty = true;
    return const_cast<char&>(byte);
}

void cIOBlockDeviceImpl::flush()
{
    if (!mbDirty)
        return;
    unsigned int const count = maCache.length();
    if (mbAppending)
        cIOExceptions::throwUnableToWrite(count);
    bd().seek(miStart, smStart);
    if (count != 0 && bd().write(maCache.data(), count) != count)
        cIOExceptions::throwUnableToWrite(count);
    mbDirty = false;
}

void cIOBlockDeviceImpl::drop() noexcept
{
    mbNeedsReload = true;
    mbDirty = false;
    miSize = 0;
}

bool cIOBlockDeviceImpl::holds(unsigned int pos, unsigned int count) const noexcept
{
    unsigned long long const first = miStart;
    unsigned long long const last = pos;
    return !mbNeedsReload && last >= first && last + count <= first + maCache.length();
}

unsigned long long cIOBlockDeviceImpl::left(unsigned int pos)
{
    auto const end = size(false);
    return pos < end ? end - pos : 0;
}

// The size costs several calls of the device: it is asked for where the cache would grow and where bytes are
// missing. What was not read leaves the cache: it is neither handed out nor written back.
void cIOBlockDeviceImpl::load(unsigned int pos, unsigned int count)
{
    unsigned int wanted = std::max(maCache.length(), count);
    if (count > maCache.length())
        wanted = static_cast<unsigned int>(std::min<unsigned long long>(wanted, left(pos)));
    if (wanted == 0)
        return;
    maCache.setSize(wanted);
    bd().seek(pos, smStart);
    auto const got = bd().read(maCache.data(), wanted);
    if (got > wanted || (got < count && got < left(pos)))
        cIOExceptions::throwUnableToRead(count);
    if (got == 0)
        return;
    maCache.truncate(static_cast<unsigned int>(got));
    miStart = pos;
    mbNeedsReload = false;
}

unsigned long long cIOBlockDeviceImpl::measuredSize() const
{
    auto& device = bd();
    auto const position = device.pos();
    auto const measured = device.seek(0, smEnd);
    device.seek(static_cast<long long>(position), smStart);
    return measured;
}

} // namespace nio

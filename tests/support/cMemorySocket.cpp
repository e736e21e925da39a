#include "tests/support/cMemorySocket.h"

#include <algorithm>
#include <cstring>

#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tArray.h"
#include "tests/support/raisedBy.h"

namespace ntest {
namespace {

void run(std::function<void()> const& function)
{
    if (function)
        function();
}

} // namespace

nstd::cAsciiString cNamedAddress::addrType() const
{
    return "Named";
}

void cNamedAddress::fromString(nstd::cAsciiString const& name)
{
    mName = text(name);
}

nstd::cAsciiString cNamedAddress::toString() const
{
    return nstd::cAsciiString(std::string_view(mName));
}

bool cNamedAddress::isEqual(nce::cNetAbstractAddress const& other) const
{
    return text(other.toString()) == mName;
}

nstd::tAutoPtr<nce::cNetAbstractAddress> cNamedAddress::clone() const
{
    return nstd::tAutoPtr<nce::cNetAbstractAddress>(new cNamedAddress(mName));
}

cMemorySocket::cMemorySocket(cWire& wire) : mWire(wire), mRemote("remote"), mLocal("local")
{
    mWire.socket = this;
    for (auto* work : {&readableWork(), &writableWork(), &exceptionWork()}) {
        work->setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>(new npi::cFDAIOData));
        work->stop();
    }
}

void cMemorySocket::poll()
{
    auto const set = [](npi::cWork& work, bool event) { work.aioData().setEvent(event && work.isStarted()); };
    set(readableWork(), canRead());
    set(writableWork(), mWire.accept != 0);
    set(exceptionWork(), mWire.isClosed);
}

unsigned int cMemorySocket::read(char* data, unsigned int size, nce::cNetAbstractAddress* from)
{
    ++mWire.reads;
    run(mWire.onRead);
    unsigned int count = 0;
    if (!mWire.incoming.empty()) {
        std::string& piece = mWire.incoming.front();
        count = std::min(size, static_cast<unsigned int>(piece.size()));
        std::memcpy(data, piece.data(), count);
        piece.erase(0, count);
        if (piece.empty())
            mWire.incoming.pop_front();
    }
    if (from && count != 0)
        from->fromString(nstd::cAsciiString(std::string_view(mWire.sender)));
    return count + mWire.excess;
}

bool cMemorySocket::readAvailable(nstd::tArray<char>& data, nce::cNetAbstractAddress* from)
{
    data.setSize(mWire.maxChunk);
    data.truncate(read(data.data(true), data.length(), from));
    return !data.empty();
}

unsigned int cMemorySocket::write(char const* data, unsigned int size)
{
    run(mWire.onWrite);
    unsigned int const count = std::min(size, mWire.accept);
    mWire.offered.push_back(size);
    mWire.outgoing.append(data, count);
    return count + mWire.excess;
}

} // namespace ntest

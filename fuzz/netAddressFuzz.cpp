#include "fuzz/fuzzInput.h"

#include "nel_core/nce/net++/cNetAbstractIPv4Address.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tAutoPtr.h"

// Takes the bytes for the text of an address.
namespace {

class cAddress : public nce::cNetAbstractIPv4Address {
public:
    unsigned int port() const override { return miPort; }
    void setPort(unsigned int port) override { miPort = port; }
    bool isEqual(nce::cNetAbstractAddress const& other) const override
    {
        auto const& address = static_cast<cAddress const&>(other);
        return miBytes == address.miBytes && miPort == address.miPort;
    }
    bool isNull() const override { return miBytes == 0 && miPort == 0; }
    void clear() override { setIPv4(0, 0); }
    nstd::tAutoPtr<nce::cNetAbstractAddress> clone() const override
    {
        return nstd::tAutoPtr<nce::cNetAbstractAddress>(new cAddress(*this));
    }
    void setIPv4(unsigned int bytes, unsigned int port) override
    {
        FUZZ_CHECK(port <= 65535);
        miBytes = bytes;
        miPort = port;
    }
    void getIPv4(unsigned char* bytes, unsigned int& port) const override
    {
        for (unsigned int i = 0; i < 4; ++i)
            bytes[i] = static_cast<unsigned char>(miBytes >> (8 * i));
        port = miPort;
    }

private:
    unsigned int miBytes = 0;
    unsigned int miPort = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    npi::system();
    cMemoryBound const bound(size);
    nstd::cAsciiString text;
    text.append(reinterpret_cast<char const*>(data), static_cast<unsigned int>(size));

    cAddress address;
    try {
        address.fromString(text);
    } catch (nstd::cRuntimeException const&) {
        FUZZ_CHECK(address.isNull());
        return 0;
    }
    cAddress again;
    again.fromString(address.toString(true));
    FUZZ_CHECK(again.isEqual(address));
    again.fromString(address.toString());
    FUZZ_CHECK(again.port() == 0 && again.toString() == address.toString());
    return 0;
}

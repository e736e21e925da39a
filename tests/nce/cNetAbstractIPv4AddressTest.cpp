#include "nel_core/nce/net++/cNetAbstractIPv4Address.h"

#include <string>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tAutoPtr.h"
#include "tests/support/cMemorySocket.h"
#include "tests/support/raisedBy.h"

namespace {

using nstd::cAsciiString;
using ntest::text;

class cAddress : public nce::cNetAbstractIPv4Address {
public:
    unsigned int port() const override { return miPort; }
    void setPort(unsigned int port) override { miPort = port; }
    bool isEqual(nce::cNetAbstractAddress const&) const override { return false; }
    bool isNull() const override { return miBytes == 0; }
    void clear() override { miBytes = 0; }
    nstd::tAutoPtr<nce::cNetAbstractAddress> clone() const override
    {
        return nstd::tAutoPtr<nce::cNetAbstractAddress>(new cAddress(*this));
    }
    void setIPv4(unsigned int bytes, unsigned int port) override
    {
        miBytes = bytes;
        miPort = port;
    }
    void getIPv4(unsigned char* bytes, unsigned int& port) const override
    {
        for (unsigned int i = 0; i < 4; ++i)
            bytes[i] = static_cast<unsigned char>(miBytes >> (8 * i));
        port = miPort;
    }

    unsigned int miBytes = 0x04030201;
    unsigned int miPort = 5;
};

TEST(cNetAbstractIPv4AddressTest, readsAndWritesItsForm)
{
    struct cRow {
        std::string form;
        unsigned int bytes, port;
        std::string address;
    };
    for (auto const& row :
         {cRow{"10.0.0.1:8080", 0x0100000A, 8080, "10.0.0.1"},
          cRow{"255.255.255.255:65535", 0xFFFFFFFF, 65535, "255.255.255.255"},
          cRow{"0010.0000000001.0.200:0", 0xC800010A, 0, "10.1.0.200"},
          cRow{".1..2.3.4.", 0x04030201, 0, "1.2.3.4"}, cRow{"1.2.3.4.5:6", 0x04030201, 0, "1.2.3.4"},
          cRow{"1.2.3.4:80.x", 0x04030201, 80, "1.2.3.4"}}) {
        SCOPED_TRACE(row.form);
        cAddress address;
        address.fromString(row.form.c_str());
        EXPECT_EQ(address.miBytes, row.bytes);
        EXPECT_EQ(text(address.toString(true)), row.address + ":" + std::to_string(row.port));
        EXPECT_EQ(text(address.toString()), row.address);
    }
}

struct cBadForm {
    char const *form, *cause;
};

constexpr char kNumber[] = "Expecting an unsigned decimal number!";

cBadForm const kBadForms[] = {
    {"", kNumber},
    {"10..0.1", kNumber},
    {"256.1.1.1", "IP number part (256) is not in range of 0..255!"},
    {"1.1.1.00000000001", "IP number part (00000000001) is not in range of 0..255!"},
    {"10.0.0.1:70000", "Given port number (70000) is not in range of 0..65535"},
    {"10.0.0.1:.", "Expecting port number!"},
    {"0x10.0.0.1", "\"0x10\""},
    {"1.--2.0.1", "\"--2\""},
    {" 1.0.0.1", "\" 1\""},
    {"1.0.0:1", "\":\""},
    {"1.0.0.1::1", "\":\""},
};

TEST(cNetAbstractIPv4AddressTest, aBadFormTellsTheReasonAndChangesNothing)
{
    for (auto const& row : kBadForms) {
        SCOPED_TRACE(row.form);
        cAddress address;
        auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { address.fromString(row.form); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "Invalid network address!");
        bool outOfMemory = false;
        nstd::tAutoPtr<nstd::cAbstractException> const cause(error->getHistory(outOfMemory));
        ASSERT_TRUE(cause);
        EXPECT_NE(ntest::messageOf(*cause).find(row.cause), std::string::npos) << ntest::messageOf(*cause);
        EXPECT_EQ(text(address.toString(true)), "1.2.3.4:5");
    }
}

TEST(cNetAbstractIPv4AddressTest, tellsWhatItIs)
{
    cAddress address;
    cAddress const& constant = address;
    ntest::cNamedAddress other("x");
    EXPECT_EQ(address.isIPAddress(), &address);
    EXPECT_EQ(constant.isIPAddress(), &address);
    EXPECT_EQ(other.isIPAddress(), nullptr);
    EXPECT_EQ(text(address.addrType()), "TcpIpv4");
}

} // namespace

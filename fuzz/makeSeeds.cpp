// Writes the inputs that the fuzz targets start from: makeSeeds DIRECTORY makes DIRECTORY/<target>/<name>.

#include <cstdio>
#include <filesystem>
#include <string>

#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/ncs/cInterfaceDesc.h"
#include "nel_core/ncs/cModuleInfo.h"
#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/rmi/publicSlotCall.h"
#include "nel_core/sa/cContext.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"
#include "nel_core/ucs/cLITrTable.h"
#include "nel_core/ucs/cString.h"

namespace {

using nsa::cContext;
using nsa::cSerializeBinary;

class cSeedWriter {
public:
    explicit cSeedWriter(std::filesystem::path directory) : mDirectory(std::move(directory)) { }

    // One file for each of the targets.
    void write(std::initializer_list<char const*> targets, char const* name, std::string const& bytes)
    {
        for (char const* const target : targets) {
            std::filesystem::create_directories(mDirectory / target);
            std::FILE* const file = std::fopen((mDirectory / target / name).c_str(), "wb");
            bool const isWritten = file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
            mbFailed |= !isWritten || std::fclose(file) != 0;
        }
    }
    // The same with `prefix` in front of what has been serialized, which is dropped then.
    void write(std::initializer_list<char const*> targets, char const* name, cSerializeBinary& serializer,
               std::string const& prefix = "")
    {
        auto const& bytes = serializer.ownData();
        write(targets, name, prefix + std::string(bytes.begin(), bytes.end()));
        serializer.clear();
    }
    bool hasFailed() const { return mbFailed; }

private:
    std::filesystem::path mDirectory;
    bool mbFailed = false;
};

void storeEveryItem(cSerializeBinary& s)
{
    static_cast<unsigned char>(1) >> s, static_cast<signed char>(-1) >> s;
    static_cast<unsigned short>(2) >> s, static_cast<short>(-2) >> s;
    3U >> s, -3 >> s, 4ULL >> s, -4LL >> s, true >> s, 0.5 >> s;
    s.newLabel("label");
    nstd::cAsciiString("ascii") >> s, nucs::cString("code points") >> s;
    s.setStringStoreMode(cSerializeBinary::ssmUTF8);
    nucs::cString("\xFC in UTF-8") >> s;
    s.setStringStoreMode(cSerializeBinary::ssmCodePoints);
    s.storeBlock("block", 5);
    cContext outer(s.newContext("outer"));
    nstd::tVector<int> numbers;
    numbers.append(7);
    numbers >> s;
    {
        cContext inner(s.newContext(nullptr));
        s.newLabel("last");
        inner.release();
    }
    outer.release();
}

nucs::cLIMessage message()
{
    nucs::cLIMessage made;
    made << "$MTR$Unable to read %file% (line %line%, %what% \\% )!" << nucs::cString("a\\file") << 12;
    return made;
}

struct cPublished : nrmi::cConnectable {
    int sltAdd(int a, nucs::cString const& text) { return a + static_cast<int>(text.length()); }
};

void writeAddresses(cSeedWriter& seeds)
{
    seeds.write({"addressFuzz"}, "address", std::string(1, '\0') + "1:7:9");
    seeds.write({"addressFuzz"}, "locationText", "\x01" + std::string("1:7-4711@alpha:x"));

    cSerializeBinary s;
    ncs::cComponentLocation const location("1:7-4711@alpha:x");
    location >> s;
    seeds.write({"addressFuzz"}, "location", s, "\x03");
    ncs::cModuleInfo() >> s;
    seeds.write({"addressFuzz"}, "module", s, "\x04");
    ncs::cInterfaceDesc(ncs::cInterfaceDesc::itProvided, "name", "author", 3, "description") >> s;
    seeds.write({"addressFuzz"}, "interface", s, "\x05");
    s.setPreferNoLabels(false);
    location >> s;
    seeds.write({"addressFuzz"}, "labelledLocation", s, "\x02");
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2)
        return 2;
    cSeedWriter seeds(arguments[1]);
    cSerializeBinary s;
    storeEveryItem(s);
    seeds.write({"deserializeFuzz", "reserializeFuzz", "streamDumpFuzz"}, "items", s);
    message() >> s;
    seeds.write({"deserializeFuzz", "messageFuzz", "streamDumpFuzz"}, "message", s);

    nstd::cRuntimeException newest(message());
    newest.link(nstd::cBugException(message()));
    newest.storeRecursive(s);
    seeds.write({"exceptionFuzz", "reserializeFuzz", "streamDumpFuzz"}, "chain", s);

    cPublished object;
    nrmi::localSignal1<piVoid, int> signal;
    nrmi::publishSlot(&object, "add", &cPublished::sltAdd, "adds") >> s;
    seeds.write({"interfaceFuzz"}, "slot", s, "\x02");
    signal.exportSignal(object, "changed", {}, "it has changed");
    *object.findPublicSignal("changed") >> s;
    seeds.write({"interfaceFuzz"}, "signal", s, "\x01");

    seeds.write({"translationFuzz"}, "plain",
                "// comment\r\n\"a %x%\" = \"b \\\"\\\\ %x%\"; \"\xC3\xBC\"=\"\xC3\xBC\"\n");
    seeds.write({"translationFuzz"}, "locale",
                "Name = \"n\"\nFlag = fromFile(\"f\")\n\"k\" = \"v\"\ninclude \"f\"");
    nucs::cLITrTable table;
    table.addTranslation("abc", "1");
    table.addTranslation("xyz", "2");
    table >> s;
    seeds.write({"translationFuzz", "streamDumpFuzz"}, "table", s);

    std::string const zero(1, '\0');
    seeds.write({"pathFuzz"}, "relative", "d:\\a\\..\\b\\" + zero + "c/../../d//./e.f");
    seeds.write({"pathFuzz"}, "absolute", "/a/b/c" + zero + "/a/../b/./d/..");
    seeds.write({"pathFuzz"}, "above", "../../x/.." + zero + "./../y/");
    writeAddresses(seeds);

    seeds.write({"netAddressFuzz"}, "plain", "192.168.0.1");
    seeds.write({"netAddressFuzz"}, "port", "10.0.0.255:65535");
    seeds.write({"netAddressFuzz"}, "bad", "..256.-1.0x0.18446744073709551617::70000");
    return seeds.hasFailed() ? 1 : 0;
}

// Writes the inputs that the fuzz targets start from: makeSeeds DIRECTORY makes DIRECTORY/<target>/<name>.

#include <cstdio>
#include <filesystem>
#include <string>

#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/rmi/publicSlotCall.h"
#include "nel_core/sa/cContext.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"
#include "nel_core/ucs/cString.h"

namespace {

using nsa::cContext;
using nsa::cSerializeBinary;

class cSeedWriter {
public:
    explicit cSeedWriter(std::filesystem::path directory) : mDirectory(std::move(directory)) { }

    // One file for each of the targets, with `prefix` in front of the bytes.
    void write(std::initializer_list<char const*> targets, char const* name, cSerializeBinary& serializer,
               std::string const& prefix = "")
    {
        auto const& bytes = serializer.ownData();
        for (char const* const target : targets) {
            std::filesystem::create_directories(mDirectory / target);
            std::FILE* const file = std::fopen((mDirectory / target / name).c_str(), "wb");
            bool const isWritten = file && std::fwrite(prefix.data(), 1, prefix.size(), file) == prefix.size()
                                   && std::fwrite(bytes.begin(), 1, bytes.length(), file) == bytes.length();
            mbFailed |= !isWritten || std::fclose(file) != 0;
        }
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
    return seeds.hasFailed() ? 1 : 0;
}

#include "fuzz/fuzzInput.h"

#include "nel_core/io/cFile.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/cMemoryFs.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cLILocale.h"
#include "nel_core/ucs/cLITranslationLoader.h"

// Reads the bytes as a plain translation file, as a locale file that may include itself, and as a stored
// table.
namespace {

using nucs::cLITrTable;
using tBytes = nsa::cDeserializeBinary::tBytes;

constexpr char kFile[] = "/fuzz/f";

nio::cFs& memoryFs()
{
    static nio::cFs& fs = npi::system().fs;
    static bool const isBound = [] {
        fs.bind(nstd::tAutoPtr<nio::cAbstractFsImpl>(new nio::cMemoryFs(fs, "/fuzz/")));
        return true;
    }();
    static_cast<void>(isBound);
    return fs;
}

void writeFile(tBytes const& bytes)
{
    auto file = memoryFs().fileOpenWrite(kFile, nio::cmCreate, nio::wmTruncate);
    FUZZ_CHECK(file.write(bytes.data(true), bytes.length()) == bytes.length());
    file.close();
}

// What a table holds comes back from its stored form.
void checkStored(cLITrTable const& table)
{
    nsa::cSerializeBinary stored;
    table >> stored;
    nsa::cDeserializeBinary stream(stored.data());
    cLITrTable loaded;
    loaded << stream;
    nsa::cSerializeBinary again;
    loaded >> again;
    FUZZ_CHECK(again.ownData() == stored.ownData());
}

template<typename Read>
void readTable(std::size_t size, Read&& read)
{
    cLITrTable table;
    {
        cMemoryBound const bound(size);
        try {
            read(table);
        } catch (nstd::cAbstractException const&) {
            // what was read before the error stays
        }
    }
    checkStored(table);
}

// Not bounded: a file may be included 1,000 times.
void readLocale()
{
    nucs::cLILocale locale("fuzz");
    try {
        locale.loadFromFile(kFile);
        FUZZ_CHECK(locale.fileName() == kFile);
    } catch (nstd::cAbstractException const& error) {
        nucs::cString text;
        error.createMessage(text, "\n", nstd::cAbstractException::mfHistory, &locale);
        FUZZ_CHECK(locale.fileName().empty() && locale.name().empty() && locale.flag().empty());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    cFuzzInput input(data, size);
    writeFile(input.bytes);
    readTable(size, [](cLITrTable& table) { nucs::cLITranslationLoader::loadFile(kFile, table); });
    readTable(size, [&](cLITrTable& table) { table << input.stream; });
    readLocale();
    return 0;
}

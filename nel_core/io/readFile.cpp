#include "nel_core/io/readFile.h"

#include "nel_core/io/cFile.h"
#include "nel_core/io/cFileInfo.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/cIOExceptions.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/raise.h"
#include "nel_core/std/tArray.h"

namespace nio {
namespace {

constexpr unsigned int kPieceSize = 256 * 1024;
constexpr unsigned int kGrowStep = 18; // a piece

// Opening a pipe would wait for its other end.
void requireRegular(nucs::cString const& path, cFs const& fs)
{
    cFileInfo const info(path, fs);
    if (info.exists() && info.type() != cFileInfoFlags::ftFile)
        cIOExceptions::throwUnableOpenFile(
            nstd::cRuntimeException(nstd::makeMessage("$MTR$Item \"%en%\" is not a regular file!", path)),
            path);
}

bool appendPiece(cFile& file, nstd::tArray<char>& bytes)
{
    auto const used = bytes.appendElements(kPieceSize);
    auto const count = static_cast<unsigned int>(file.read(bytes.begin() + used, kPieceSize));
    bytes.truncate(used + count);
    return count != 0;
}

} // namespace

void readWholeFile(nucs::cString const& path, nstd::tArray<char>& bytes)
{
    auto& fs = npi::system().fs;
    requireRegular(path, fs);
    auto file = fs.fileOpenRead(path);
    nstd::tArray<char> read;
    read.setGrowStep(kGrowStep);
    read.setFitOnErase(false);
    while (appendPiece(file, read)) { }
    read.optimizeMemory();
    bytes.swap(read);
}

} // namespace nio

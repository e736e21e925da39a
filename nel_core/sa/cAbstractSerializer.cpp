#include "nel_core/sa/cAbstractSerializer.h"

#include <algorithm>

#include "nel_core/io/cFile.h"
#include "nel_core/io/cFs.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/ucs/cString.h"

namespace nsa {
namespace {

using tBytesRef = nstd::tArrayRef<char>;

void writeAll(nio::cFile& file, tBytesRef const& bytes)
{
    unsigned int const count = bytes.length();
    unsigned int const preferred = bytes.proxyPreferredBlockSize();
    unsigned int const block = preferred == 0 ? count : preferred;
    for (unsigned int done = 0; done < count;) {
        unsigned int const piece = std::min(block, count - done);
        file.proxyPatchData(done, piece, bytes.proxyProvideData(done, piece));
        done += piece;
    }
    file.size(true);
}

// At once: a close that fails would leave the file.
void removeQuietly(nio::cFile& file)
{
    try {
        file.release();
        file.remove();
    } catch (...) {
        return; // the error that brought us here is the one to be told
    }
}

} // namespace

cAbstractSerializer::~cAbstractSerializer() = default;

void cAbstractSerializer::store(unsigned short value)
{
    store(static_cast<unsigned int>(value));
}

void cAbstractSerializer::store(short value)
{
    store(static_cast<int>(value));
}

void cAbstractSerializer::storeToFile(nucs::cString const& path)
{
    tBytesRef const bytes = data();
    nio::cFile file = npi::system().fs.fileOpenWrite(path, nio::cmCreate, nio::wmTruncate);
    try {
        file.setRemoveOnClose();
        writeAll(file, bytes);
        file.release();
        file.close();
    } catch (...) {
        removeQuietly(file);
        throw;
    }
}

} // namespace nsa

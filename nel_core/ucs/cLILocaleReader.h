#pragma once

#include "nel_core/ucs/fwd.h"

namespace nucs {

class cLITrReader;

/// Reads a locale file with all that it includes: one load. Internal to cLILocale.
class cLILocaleReader {
public:
    /// Adds to `target`, counts the nesting in `depth`, and sets `fileName` to each file that is done.
    cLILocaleReader(cLILocale& target, cString& fileName, unsigned int& depth);

    /// Raises as cLILocale::loadFromFile().
    void read(cString const& path);

private:
    class cDepth;
    struct cFile;

    void countFile();
    void readStatements(cFile& file);
    void readStatement(cFile& file, unsigned int token);
    cString readString(cFile& file);
    cString readStringFromFile(cFile& file);

    cLILocale& mTarget;
    cString& mFileName;
    unsigned int& miDepth;
    unsigned int miFiles = 0; ///< read so far
};

} // namespace nucs

#pragma once

/// Forward declarations of the folder.
struct cLIItem;

namespace nucs {

class cString;
class cAbstractEnDec;
class cEnDecUTF8;
class cEnDecUTF16;
class cLIMessage;
class cLILocale;
class cLITrItem;
class cLITrTable;
class cLITranslationLoader;

} // namespace nucs

#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"

namespace nsa {

/// What both sides of the binary format know.
///
/// A stream is a sequence of items without any header; an item is its type id as a 32-bit number followed by
/// its payload. All numbers are little-endian. A context is the id, its size as a ptUInt32 item (counted from
/// that item's id to the context's end), whether it has a name as a ptBool item, the name, if any, as a
/// ptAsciiString item, and its body: the items up to its end. docs/binary-format.md shows every form.
class NEL_EXPORT cSerializeBinaryShared {
public:
    /// The type ids, with their payloads.
    enum PrivatedTypeIDs : unsigned int {
        ptInvalid = 0,      ///< none; never written
        ptRawBytes = 1,     ///< 32-bit length, bytes
        ptUChar = 2,        ///< 1 byte
        ptChar = 3,         ///< 1 byte
        ptUInt32 = 4,       ///< 4 bytes
        ptInt32 = 5,        ///< 4 bytes
        ptUInt64 = 6,       ///< 8 bytes
        ptInt64 = 7,        ///< 8 bytes
        ptBool = 8,         ///< 4 bytes: 0 or 1; any other value reads as true
        ptDouble = 9,       ///< 8 bytes, IEEE 754 binary64
        ptAsciiString = 10, ///< 32-bit length, bytes
        ptString = 11,      ///< 32-bit count, code points of 4 bytes
        ptContext = 12,     ///< see above
        ptLabel = 13,       ///< a ptAsciiString item: the name
        ptRawBytes64 = 14,  ///< 64-bit length, of which the low 32 bits count, bytes
        ptContext64 = 15,   ///< as ptContext, but the size is a ptUInt64 item; never written
        ptStringUTF8 = 16,  ///< 32-bit length, UTF-8
        ptUInt16 = 17,      ///< 2 bytes
        ptInt16 = 18,       ///< 2 bytes
        ptEnd = 19,         ///< none; never written
    };

    /// The name of a type; "unknown type" for a number that is no type id.
    static char const* idToString(PrivatedTypeIDs id);
};

} // namespace nsa

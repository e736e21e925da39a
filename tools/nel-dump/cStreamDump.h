#pragma once

#include <vector>

#include "cDumpWriter.h"
#include "nel_core/sa/cContext.h"
#include "nel_core/sa/cDeserializeBinary.h"

/// Shows a binary stream as an indented tree, a line an item: offset, type name, value.
///
/// The stream may hold anything. The output is linear in its size, and nesting costs some memory a level but
/// no stack. What is damaged is shown up to the damage: an item that cannot be read or is longer than what is
/// left in its context, a context that claims more bytes than there are or too few for its header.
class cStreamDump {
public:
    enum Result : unsigned int {
        rsWhole = 0,      ///< all of it has been shown
        rsDamaged = 1,    ///< the last line tells of the damage
        rsNotWritten = 2, ///< the sink has failed
    };
    using tBytesRef = nsa::cDeserializeBinary::tConstBytesRef;

    /// Reads the caller's data, which must outlive the dump. The sink takes the lines.
    cStreamDump(tBytesRef const& data, cDumpWriter::tSink sink);
    ~cStreamDump();
    cStreamDump(cStreamDump const&) = delete;
    cStreamDump& operator=(cStreamDump const&) = delete;

    /// Shows the stream; to be called once. Raises std::bad_alloc only.
    Result run();

private:
    using PrivatedTypeIDs = nsa::cDeserializeBinary::PrivatedTypeIDs;

    bool showNext();
    bool leaveContext();
    void enterContext(PrivatedTypeIDs id);
    unsigned long long claimedEnd(unsigned int start, PrivatedTypeIDs id) const;
    void showLabel();
    void showValue(PrivatedTypeIDs id);
    void showBlock(PrivatedTypeIDs id);
    void startLine(unsigned int offset, char const* word);
    void showDamage(unsigned int offset, nucs::cString const& reason);

    tBytesRef mData;
    nsa::cDeserializeBinary mReader;
    cDumpWriter mWriter;
    std::vector<nsa::cContext> maContexts; ///< the open ones, the innermost last
    bool mbDamaged = false;
};

#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/piTypes.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/fwd.h"

namespace nstd {

/// The base of every failure of the framework.
///
/// An exception knows what kind it is, where it was made, the return addresses of its making, and the earlier
/// failures that led to it: its history, the newest first. It is made by a throw function, thrown by value
/// and caught by reference. A copy owns a copy of the whole chain; a move takes the chain over. Chains of any
/// length are copied and destroyed without recursion.
///
/// Concrete classes derive through tExceptionLeaf. With the environment variable "NE" set to "dump" every new
/// exception writes a stack trace to the debug output, with "break" it calls npi::breakPoint().
class NEL_EXPORT cAbstractException {
public:
    /// There are two kinds: an error of the program, and a condition of its environment.
    enum Type : unsigned int {
        tyBug = 0,
        tyRuntime = 1,
    };

    /// The bits of the `flags` of createMessage().
    enum MessageFlags : unsigned int {
        mfHistory = 1, ///< the messages of the history follow
        mfIndent = 4,  ///< one space for each level in front of those
    };

    virtual ~cAbstractException();

    /// A copy of the most derived object on the heap, owned by the caller. Raises std::bad_alloc.
    [[nodiscard]] virtual cAbstractException* createObject() const = 0;
    /// The class name without its namespace.
    virtual cAsciiString typeName() const = 0;
    /// The message, owned by the exception, or null.
    virtual nucs::cLIMessage const* liMessage() const;
    /// A place for applications that show their failures in a dialog; does nothing here.
    virtual void dialog() const;
    /// Whether the exception comes from another component, see setRemoteInfo().
    virtual bool isRemote() const;
    /// Where it comes from; the assertion "mpRemoteLocation != 0" fails for one that is not remote.
    virtual ncs::cComponentLocation const& remoteLocation() const;
    /// Writes one line for each exception of the chain, kind and text, to the debug output.
    virtual void dump() const;
    /// Writes this exception alone: its type name (ASCII string), its kind (`unsigned int`) and the
    /// out-of-memory condition (bool). A class with content of its own adds it behind that of its base.
    virtual void store(nsa::cAbstractSerializer& serializer) const;
    /// Reads what store() writes, without the type name: that has gone into the choice of the class. Any kind
    /// but tyBug is tyRuntime. A failed load keeps what it has loaded so far.
    virtual void load(nsa::cAbstractDeserializer& deserializer);
    /// Whether this very exception lost its history or the place it comes from because there was no memory to
    /// copy it.
    virtual bool outOfMemoryCondition() const;

    /// Appends `exception` and its chain as the oldest causes and takes ownership. Null, this exception, a
    /// member of its chain and a chain that holds this exception are ignored and change no owner.
    void link(cAbstractException* exception);
    /// Appends a copy; this exception and the members of its chain are ignored. Without memory for the copy
    /// the chain stays as it is and its last exception gets the out-of-memory condition.
    void link(cAbstractException const& exception);
    /// A copy of the history, owned by the caller, or null when there is none or its first exception could
    /// not be copied. `outOfMemory` becomes true, and is left alone otherwise, when memory was the reason; a
    /// copy that breaks off further down has the condition set in its last exception. Raises nothing. While
    /// a chain is copied, a member's createObject() finds its own history missing here: it is copied next.
    [[nodiscard]] cAbstractException* getHistory(bool& outOfMemory) const;

    /// Replaces the place that the exception comes from; neither stored nor shown in messages. Raises
    /// std::bad_alloc.
    void setRemoteInfo(ncs::cComponentLocation const& location);

    /// Writes the whole chain: before each exception the bool true, at the end the bool false. Leaves an
    /// entry in the debug output.
    void storeRecursive(nsa::cAbstractSerializer& serializer) const;
    /// Reads what storeRecursive() writes, with objects from `factory`; empty when the chain is. A class that
    /// the factory does not know, and one whose load() raises a cAbstractException, end the chain with a
    /// cRuntimeException that names it, and the reading there. Other errors of `deserializer` pass.
    [[nodiscard]] static tAutoPtr<cAbstractException>
    createFromStream(nsa::cAbstractDeserializer& deserializer, cAbstractExceptionFactory const& factory);

    /// Whether this or any exception of its chain has the out-of-memory condition.
    bool hasOutOfMemoryCondition() const;
    /// The first exception of the chain, this one included, with that type name; null when there is none.
    cAbstractException const* has(cAsciiString const& name) const;

    /// Replaces `out` by this message. With mfHistory the messages of the history follow, a separator in
    /// front of each and, with mfIndent, one space for each level behind the separator. A null locale means
    /// the untranslated texts. A chain from outside cannot blow up its text: indentation and repeated values
    /// together add at most nucs::cLIMessage::kRepeatedMax code points, the levels beyond are not indented.
    void createMessage(nucs::cString& out, nucs::cString const& separator, unsigned int flags,
                       nucs::cLILocale const* locale) const;
    /// Appends the message of `exception` alone, or its kind word when it has none. A null locale means the
    /// untranslated text; `flags` change nothing here.
    static void createMessage(cAbstractException const& exception, nucs::cString& out, unsigned int flags,
                              nucs::cLILocale const* locale);

    /// The kind: bug or runtime.
    Type type() const { return meType; }
    /// The word of the kind. Lives as long as the exception; takes no memory.
    char const* what() const noexcept { return msKind; }
    /// Where the exception was made, its first 60 bytes; empty when not recorded.
    char const* sourceFileName() const { return msSourceFile; }
    /// The line in that file, 0 when not recorded.
    unsigned int sourceFileLine() const { return miSourceLine; }
    /// The next older exception of the chain, owned by this one; null at the end.
    cAbstractException* history() { return mpHistory; }
    cAbstractException const* history() const { return mpHistory; }
    /// The return addresses of the making, ended by a 0; null when none could be captured.
    piAddress const* backtrace() const { return maBacktrace[0] ? maBacktrace : nullptr; }

protected:
    /// `kindWord` becomes what(); a null `file` leaves the source position empty.
    cAbstractException(char const* kindWord, Type type, char const* file, unsigned int line);
    cAbstractException(cAbstractException const& other);
    cAbstractException(cAbstractException&& other) noexcept;
    cAbstractException& operator=(cAbstractException const& other);
    void swap(cAbstractException& other) noexcept;

private:
    static constexpr unsigned int kSourceFileMax = 60;
    static constexpr unsigned int kTraceSize = 64;

    static void deleteChain(cAbstractException* first);
    static cAbstractException* copyAlone(cAbstractException const& source, bool& outOfMemory) noexcept;
    ncs::cComponentLocation* copyRemoteLocation(bool& outOfMemory) const;
    void copyOwnFields(cAbstractException const& other) noexcept;
    cAbstractException& last();
    bool isInChain(cAbstractException const& exception) const;
    void appendMessage(nucs::cString& out, nucs::cLILocale const* locale, unsigned int& repeatable) const;
    void dumpLine() const;

    char msSourceFile[64] = {};
    unsigned int miSourceLine = 0;
    char msKind[256] = {};
    Type meType;
    cAbstractException* mpHistory = nullptr;
    bool mbOutOfMemory = false;
    ncs::cComponentLocation* mpRemoteLocation = nullptr; ///< owned; null for a local exception
    piAddress maBacktrace[kTraceSize] = {};
};

} // namespace nstd

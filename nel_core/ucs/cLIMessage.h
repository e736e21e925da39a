#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nucs {

/// A text for people: a key with named placeholders and the values that fill them.
///
/// The first text streamed in is the key, in English; it is what translations are looked up by. Each later
/// value fills the next placeholder of the key, so the order of the values counts, not the names:
///
///     message << "$MTR$Unable to read %file% (line %line%)!" << path << 12;
///
/// A key that starts with "$MTR$" may be translated, one that starts with "$MNTR$" is always shown as it is;
/// the marker itself does not belong to the key. A placeholder runs from a percent sign to the next percent
/// sign or to just before the next space; a backslash takes the meaning from the character after it. Values
/// without a placeholder are dropped, placeholders without a value are shown as "???". Content never makes an
/// error.
///
/// A message from outside cannot blow up its text: each value is shown in full once, but all repetitions of
/// values together add at most kRepeatedMax code points. A repetition that would go beyond that is shown as
/// "???".
class NEL_EXPORT cLIMessage {
public:
    static constexpr unsigned int kRepeatedMax = 1u << 20;

    /// The empty message; takes no memory.
    cLIMessage() noexcept;
    /// A message with this key, taken as it is: a marker stays in it.
    explicit cLIMessage(nstd::cAsciiString const& key);
    cLIMessage(cLIMessage const& other);
    /// Takes the message over and leaves `other` empty.
    cLIMessage(cLIMessage&& other) noexcept;
    virtual ~cLIMessage();
    cLIMessage& operator=(cLIMessage const& other);
    cLIMessage& operator=(cLIMessage&& other) noexcept;
    void swap(cLIMessage& other) noexcept;

    /// Sets the key of a message that has none, else fills the next placeholder; bytes from 0x80 on become
    /// "?".
    cLIMessage& operator<<(nstd::cAsciiString const& text);
    cLIMessage& operator<<(char const* text);
    /// Fills the next placeholder; never becomes the key.
    cLIMessage& operator<<(cString const& text);
    /// Fill the next placeholder with the number in numberConversionFormat().
    cLIMessage& operator<<(int number);
    cLIMessage& operator<<(unsigned int number);
    cLIMessage& operator<<(long long number);
    cLIMessage& operator<<(unsigned long long number);
    cLIMessage& operator<<(double number);
    /// Sets the format of the numbers that follow.
    cLIMessage& operator<<(nstd::cNumberConversionFormat const& format);

    /// The message's own format, else the system's default one.
    nstd::cNumberConversionFormat const& numberConversionFormat() const;
    /// The key without its marker; valid until the message changes.
    nstd::cAsciiString const& key() const;

    /// Replaces `out` by `translation` with the values filled in, or by the key with the values filled in
    /// when the message is not translatable. Both arguments may be one string.
    void translate(cString const& translation, cString& out) const;
    /// Replaces `out` by the key with the values filled in.
    void untranslated(cString& out) const;
    /// The same for one of several messages that make up one text: what its repetitions add comes out of
    /// `repeatable`, which starts with kRepeatedMax.
    void untranslated(cString& out, unsigned int& repeatable) const;
    /// The same as ASCII, with "?" for every character above 127.
    void untranslated(nstd::cAsciiString& out) const;

    /// The stored form is an unnamed context inside an unnamed context. It holds the key (ASCII string), the
    /// index into the key from which the next placeholder is searched (`unsigned int`), whether the message
    /// is translatable (bool), and one more unnamed context with the values in their order: of each the
    /// placeholder with its opening percent sign (ASCII string), the text (Unicode string) and its
    /// cLIItem::liType. The number format is not stored.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Replaces all but the number format. A failed load keeps what it has loaded so far; the values change
    /// all at once.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    class cImpl;

    cImpl const& impl() const;
    cImpl& ownImpl();

    cImpl* mpImpl; ///< owned; null while the message is empty
};

/// Writes the message as the system's locale translates it, or its own text where there is no system.
NEL_EXPORT npi::cAbstractOut& operator<<(npi::cAbstractOut& out, cLIMessage const& message);

} // namespace nucs

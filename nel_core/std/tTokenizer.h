#pragma once

#include "nel_core/std/tTokenizerContext.h"

namespace nstd {

/// Cuts a text into tokens at the specials of a context.
///
/// `R` is a read-only view type of characters and `S` the array type of the specials' texts. Tokens are views
/// of the text; nothing is copied. Separators are skipped and counted; keys are tokens of their own. Where
/// the next special of each kind stands is remembered, so that a whole text is cut in linear time; therefore
/// the text must not change until it is set again.
template<typename R, typename S>
class tTokenizer {
public:
    typedef tTokenizerContext<S> tContext;
    typedef typename tContext::cTokenSpec cTokenSpec;

    /// Which specials a search considers.
    enum ExpectType : unsigned int {
        exSeparators = 0,
        exAll = 1,
    };

    tTokenizer() : tTokenizer(R()) { }
    explicit tTokenizer(R const& text) { set(text); }
    tTokenizer(tTokenizer const&) = delete;
    tTokenizer& operator=(tTokenizer const&) = delete;

    /// Starts at the beginning of `text`, which outlives its use here.
    void set(R const& text);
    /// The index at which the next token is looked for.
    unsigned int pos() const { return miPosition; }
    void setPos(unsigned int position) { miPosition = position; }
    /// The context in use, not owned; without one there are no specials.
    tContext* context() const { return mpContext; }
    tContext* currentContext() const { return mpContext; }
    void setContext(tContext* context) { mpContext = context; }

    /// Whether nothing is left, not even separators.
    bool empty() const { return miPosition >= moText.length(); }
    /// A view from the position to the end; a position beyond the end raises out-of-range as the view does.
    R leftOver() const { return miPosition == 0 ? moText : R(moText, miPosition); }

    /// Skips separators and gives the next token: a key, or everything up to the next special. `keyId`, which
    /// may be null, becomes the key's id, or 0. At the end the token is cleared and the result is false.
    bool getNext(R& token, unsigned int* keyId);
    bool getNext(R& token, unsigned int& keyId) { return getNext(token, &keyId); }
    bool getNext(R& token) { return getNext(token, nullptr); }
    /// As getNext().
    tTokenizer& operator>>(R& token)
    {
        getNext(token);
        return *this;
    }

    /// The special that comes first from `from` on, and where it starts; null and 0 when there is none.
    ///
    /// A match right behind the escape text does not count; what stands in front of that does not matter.
    /// With `atPositionOnly` it is the first special in context order that matches at `from` itself.
    /// Otherwise a special added later wins when it starts earlier, or starts at the same place with a higher
    /// priority; it is looked for only in front of best start + 1 + max(0, its length - best length).
    static unsigned int findNearestSpecial(tContext const& context, R const& text, unsigned int from,
                                           bool atPositionOnly, ExpectType expect, cTokenSpec*& found)
    {
        return find(context, text, 0, from, atPositionOnly, expect, found);
    }

protected:
    /// Deletes every occurrence of `quote` in `text`, except for one that directly follows a deleted one.
    template<typename Text>
    static void unquote(Text& text, Text const& quote);

private:
    static constexpr unsigned int kNowhere = 0xFFFFFFFFu;

    static unsigned int find(tContext const& context, R const& text, unsigned long long stamp,
                             unsigned int from, bool atPositionOnly, ExpectType expect, cTokenSpec*& found);
    static unsigned int findAt(tContext const& context, R const& text, unsigned int position,
                               ExpectType expect, cTokenSpec*& found);
    static unsigned int next(cTokenSpec& special, S const& quote, R const& text, unsigned long long stamp,
                             unsigned int from);
    static unsigned int search(cTokenSpec const& special, S const& quote, R const& text, unsigned int from,
                               unsigned int known);
    static unsigned int occurrence(S const& pattern, R const& text, unsigned int from);
    static bool isEscaped(S const& quote, R const& text, unsigned int position);
    static bool isTorn(S const& pattern, R const& text, unsigned int position);
    static bool isConsidered(cTokenSpec const& special, ExpectType expect)
    {
        return special.text().length() != 0 && (expect == exAll || special.type() == cTokenSpec::ttSeparator);
    }

    bool skipSeparators();

    R moText;
    unsigned int miPosition = 0;
    tContext* mpContext = nullptr; ///< not owned
    unsigned long long miStamp = 0;
};

template<typename R, typename S>
void tTokenizer<R, S>::set(R const& text)
{
    moText = text;
    miPosition = 0;
    miStamp = cAbstractTokenSpec::newTextStamp();
}

template<typename R, typename S>
bool tTokenizer<R, S>::getNext(R& token, unsigned int* keyId)
{
    if (keyId != nullptr)
        *keyId = 0;
    if (!skipSeparators()) {
        token.clear();
        return false;
    }
    cTokenSpec* special = nullptr;
    unsigned int end = 0;
    if (mpContext != nullptr)
        end = find(*mpContext, moText, miStamp, miPosition, false, exAll, special);
    if (special == nullptr)
        end = moText.length();
    else if (end == miPosition) {
        end += special->text().length();
        special->hint();
        if (keyId != nullptr)
            *keyId = special->id();
    }
    token = moText.cut(miPosition, end);
    miPosition = end;
    return true;
}

// Whether anything is left behind the separators at the position.
template<typename R, typename S>
bool tTokenizer<R, S>::skipSeparators()
{
    while (!empty()) {
        cTokenSpec* separator = nullptr;
        if (mpContext != nullptr)
            findAt(*mpContext, moText, miPosition, exSeparators, separator);
        if (separator == nullptr)
            return true;
        separator->hint();
        miPosition += separator->text().length();
    }
    return false;
}

template<typename R, typename S>
unsigned int tTokenizer<R, S>::find(tContext const& context, R const& text, unsigned long long stamp,
                                    unsigned int from, bool atPositionOnly, ExpectType expect,
                                    cTokenSpec*& found)
{
    if (atPositionOnly)
        return findAt(context, text, from, expect, found);
    found = nullptr;
    unsigned int best = 0;
    for (unsigned int i = 0; i < context.numSpecials(); ++i) {
        cTokenSpec& special = context.special(i);
        if (!isConsidered(special, expect))
            continue;
        unsigned int const start = next(special, context.singleQuote(), text, stamp, from);
        if (start == kNowhere)
            continue;
        if (found != nullptr) {
            unsigned long long const length = special.text().length();
            unsigned long long const bestLength = found->text().length();
            unsigned long long const limit = best + 1ULL + (length > bestLength ? length - bestLength : 0);
            if (start + length > limit || (start >= best && special.priority() <= found->priority()))
                continue;
        }
        found = &special;
        best = start;
    }
    return best;
}

template<typename R, typename S>
unsigned int tTokenizer<R, S>::findAt(tContext const& context, R const& text, unsigned int position,
                                      ExpectType expect, cTokenSpec*& found)
{
    found = nullptr;
    for (unsigned int i = 0; i < context.numSpecials(); ++i) {
        cTokenSpec& special = context.special(i);
        if (isConsidered(special, expect)
            && text.isEqual(special.text().data(), position, special.text().length())
            && !isEscaped(context.singleQuote(), text, position)) {
            found = &special;
            return position;
        }
    }
    return 0;
}

// The first unescaped occurrence from `from` on, remembered when the text has a stamp.
//
// The search goes on behind an escaped occurrence. A start inside of such a one may therefore find an
// occurrence that overlaps it, and what is remembered does not hold.
template<typename R, typename S>
unsigned int tTokenizer<R, S>::next(cTokenSpec& special, S const& quote, R const& text,
                                    unsigned long long stamp, unsigned int from)
{
    if (stamp == 0)
        return search(special, quote, text, from, 0);
    bool const isKnown =
        special.miKnownText == stamp && special.miKnownFrom <= from && from <= special.miKnownNext;
    if (!isKnown || (quote.length() != 0 && isTorn(special.text(), text, from))) {
        special.miKnownNext = search(special, quote, text, from, isKnown ? special.miKnownNext : 0);
        special.miKnownText = stamp;
        special.miKnownFrom = from;
    }
    return special.miKnownNext;
}

// `known` is the result for some earlier start, or 0. Once the search comes to an escaped occurrence that the
// earlier one must have come to as well, the results are the same.
template<typename R, typename S>
unsigned int tTokenizer<R, S>::search(cTokenSpec const& special, S const& quote, R const& text,
                                      unsigned int from, unsigned int known)
{
    S const& pattern = special.text();
    for (;;) {
        unsigned int const hit = occurrence(pattern, text, from);
        if (hit == kNowhere || !isEscaped(quote, text, hit))
            return hit;
        if (hit < known && !isTorn(pattern, text, hit))
            return known;
        from = hit + pattern.length();
    }
}

template<typename R, typename S>
unsigned int tTokenizer<R, S>::occurrence(S const& pattern, R const& text, unsigned int from)
{
    bool found = false;
    unsigned int const hit = text.find(pattern.data(), pattern.length(), found, from);
    return found ? hit : kNowhere;
}

template<typename R, typename S>
bool tTokenizer<R, S>::isEscaped(S const& quote, R const& text, unsigned int position)
{
    unsigned int const length = quote.length();
    return length != 0 && length <= position && text.isEqual(quote.data(), position - length, length);
}

// Whether an occurrence starts in front of the position and ends behind it.
template<typename R, typename S>
bool tTokenizer<R, S>::isTorn(S const& pattern, R const& text, unsigned int position)
{
    unsigned int const reach = pattern.length() - 1;
    if (reach == 0)
        return false;
    unsigned int const start = position < reach ? 0 : position - reach;
    unsigned int const end = reach < text.length() - position ? position + reach : text.length();
    bool found = false;
    if (start < end)
        text.find(pattern.data(), pattern.length(), found, start, end - start);
    return found;
}

template<typename R, typename S>
template<typename Text>
void tTokenizer<R, S>::unquote(Text& text, Text const& quote)
{
    unsigned int const length = quote.length();
    if (length == 0 || !text.contains(quote.data(), length))
        return;
    unsigned int write = 0;
    unsigned int read = 0;
    auto const keep = [&](unsigned int end) {
        while (read < end)
            text[write++] = text[read++];
    };
    for (bool found = true; found;) {
        unsigned int const hit = text.find(quote.data(), length, found, read);
        keep(found ? hit : text.length());
        if (found) {
            read += length;
            if (text.isEqual(quote.data(), read, length))
                keep(read + length);
        }
    }
    text.truncate(write);
}

} // namespace nstd

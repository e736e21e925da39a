#pragma once

#include "nel_core/std/cAbstractTokenSpec.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tPtrVector.h"

namespace nstd {

/// The specials at which a tokenizer cuts a text, in the order added, and the text that makes a special
/// literal when it stands in front of it. `S` is the array type of these texts.
template<typename S>
class tTokenizerContext {
public:
    /// One special.
    class cTokenSpec : public cAbstractTokenSpec {
    public:
        cTokenSpec(S const& text, Type type, unsigned int id, unsigned int priority)
            : cAbstractTokenSpec(type),
              msText(text),
              miId(id),
              miPriority(priority)
        {
        }

        S const& text() const { return msText; }
        /// What a tokenizer reports for a key; 0 for a separator.
        unsigned int id() const { return miId; }
        unsigned int priority() const { return miPriority; }

    private:
        template<typename, typename>
        friend class tTokenizer;
        friend class tTokenizerContext;

        S msText;
        unsigned int miId;
        unsigned int miPriority;

        // The first unescaped occurrence from miKnownFrom on, in the text of that stamp (0: of none).
        unsigned long long miKnownText = 0;
        unsigned int miKnownFrom = 0;
        unsigned int miKnownNext = 0;
    };

    tTokenizerContext() { moSpecials.setGuardMode(tPtrVector<cTokenSpec>::gmOwn); }
    tTokenizerContext(tTokenizerContext const&) = delete;
    tTokenizerContext& operator=(tTokenizerContext const&) = delete;
    virtual ~tTokenizerContext() = default;

    /// Adds a special that only delimits. The context owns it; a special with an empty text never matches.
    cTokenSpec& addSeparator(S const& text, unsigned int priority)
    {
        return add(text, cAbstractTokenSpec::ttSeparator, 0, priority);
    }
    /// Adds a special that is a token itself, reported as `id`.
    cTokenSpec& addKey(S const& text, unsigned int id, unsigned int priority)
    {
        return add(text, cAbstractTokenSpec::ttKey, id, priority);
    }
    /// Removes all specials; the escape text stays.
    void clear() { moSpecials.clear(); }

    unsigned int numSpecials() const { return moSpecials.size(); }
    /// Special `i` in the order added; raises out-of-range as the vector does.
    cTokenSpec& special(unsigned int i) const { return *moSpecials.at(i); }
    /// The escape text; empty means that nothing is escaped.
    S const& singleQuote() const { return msSingleQuote; }
    void setSingleQuote(S const& text);

private:
    cTokenSpec& add(S const& text, cAbstractTokenSpec::Type type, unsigned int id, unsigned int priority);

    tPtrVector<cTokenSpec> moSpecials; ///< owning
    S msSingleQuote;
};

template<typename S>
void tTokenizerContext<S>::setSingleQuote(S const& text)
{
    msSingleQuote = text;
    for (unsigned int i = 0; i < numSpecials(); ++i)
        special(i).miKnownText = 0;
}

template<typename S>
auto tTokenizerContext<S>::add(S const& text, cAbstractTokenSpec::Type type, unsigned int id,
                               unsigned int priority) -> cTokenSpec&
{
    tAutoPtr<cTokenSpec> spec(new cTokenSpec(text, type, id, priority));
    moSpecials.append(spec.get());
    return *spec.release();
}

} // namespace nstd

#pragma once

namespace nstd {

/// The length of a base in brackets at the start of a text: `opening`, one or two decimal digits that form 1
/// to 36, and a '>'. 0 when there is none; `base` changes only when there is one.
template<typename Element>
unsigned int bracketedBase(Element const* text, unsigned int length, char const* opening, unsigned int& base)
{
    unsigned int at = 0;
    for (; opening[at] != 0; ++at) {
        if (at == length || text[at] != static_cast<Element>(opening[at]))
            return 0;
    }
    unsigned int const digitsEnd = at + 2;
    unsigned int number = 0;
    for (; at < digitsEnd && at < length && text[at] >= '0' && text[at] <= '9'; ++at)
        number = number * 10 + static_cast<unsigned int>(text[at] - '0');
    if (at == length || text[at] != '>' || number < 1 || number > 36)
        return 0;
    base = number;
    return at + 1;
}

/// The length of a base prefix at the start of a text of at least three characters: "0x", "0h", "0d", "0b" or
/// a base in brackets. 0 when there is none; `base` changes only when there is one.
template<typename Element>
unsigned int basePrefix(Element const* text, unsigned int length, char const* opening, unsigned int& base)
{
    if (length < 3)
        return 0;
    if (text[0] != '0')
        return bracketedBase(text, length, opening, base);
    switch (text[1]) {
    case 'x':
    case 'h': base = 16; return 2;
    case 'd': base = 10; return 2;
    case 'b': base = 2; return 2;
    default: return 0;
    }
}

} // namespace nstd

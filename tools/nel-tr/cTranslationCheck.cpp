#include "cTranslationCheck.h"

#include <algorithm>
#include <set>

#include "nel_core/sa/cContext.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cLILocale.h"

namespace {

std::string utf8(nucs::cString const& text)
{
    nstd::tArray<char> bytes;
    nucs::cEnDecUTF8().encode(text, bytes);
    return std::string(bytes.begin(), bytes.end());
}

nucs::cString decoded(std::string const& text)
{
    nstd::tArray<char> const bytes(text.data(), static_cast<unsigned int>(text.size()));
    nucs::cString out;
    nucs::cEnDecUTF8().decode(bytes, out);
    return out;
}

std::string quoted(std::string_view text)
{
    std::string out = "\"";
    for (char const c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + "\"";
}

// The same on one line, for people.
std::string shown(std::string_view text)
{
    std::string out;
    for (char const c : quoted(text)) {
        if (c == '\n' || c == '\r')
            out += c == '\n' ? "\\n" : "\\r";
        else
            out += c;
    }
    return out;
}

// Runs `read` inside of the next context until its end.
template<typename Read>
void readContext(nsa::cDeserializeBinary& stream, Read&& read)
{
    nsa::cContext context(stream.getContext(nullptr));
    while (!stream.eoc())
        read();
    context.release();
}

// Runs `read` for every place in the next context that is not empty.
template<typename Read>
void readPlaces(nsa::cDeserializeBinary& stream, Read&& read)
{
    readContext(stream, [&] {
        bool isEmpty = false;
        isEmpty << stream;
        if (!isEmpty)
            read();
    });
}

} // namespace

cTranslationCheck::cTranslationCheck(std::string const& path) : msPath(path)
{
    try {
        load();
        mbRead = true;
    } catch (nstd::cAbstractException const& error) {
        nucs::cString text;
        error.createMessage(text, " ", nstd::cAbstractException::mfHistory, nullptr);
        add(utf8(text));
        return;
    }
    checkEntries();
}

// A table does not list its entries, but its stored form has them all, also those that are never found.
void cTranslationCheck::load()
{
    nucs::cLILocale locale(nullptr);
    locale.loadFromFile(decoded(msPath));
    nsa::cSerializeBinary stored;
    locale.translator() >> stored;
    nsa::cDeserializeBinary stream(stored.data());
    auto const readItem = [&] {
        nsa::cContext context(stream.getContext(nullptr));
        nucs::cLITrItem item;
        item << stream;
        maEntries.emplace_back(std::string(item.key.c_str(), item.key.length()), utf8(item.translation));
        context.release();
    };
    readPlaces(stream, [&] { readPlaces(stream, [&] { readContext(stream, readItem); }); });
    std::stable_sort(maEntries.begin(), maEntries.end(),
                     [](auto const& left, auto const& right) { return left.first < right.first; });
}

void cTranslationCheck::checkEntries()
{
    for (auto const& [key, translation] : maEntries) {
        if (moKeys.has(key))
            add("duplicate key " + shown(key));
        moKeys.add(key);
        auto const wanted = placeholders(key);
        auto const found = placeholders(translation);
        for (auto const& name : wanted)
            if (!std::binary_search(found.begin(), found.end(), name))
                add("the translation of " + shown(key) + " lacks " + name + "%");
        for (auto const& name : found)
            if (!std::binary_search(wanted.begin(), wanted.end(), name))
                add("the key " + shown(key) + " lacks " + name + "%, which its translation has");
    }
}

void cTranslationCheck::compare(cKeyList const& keys)
{
    for (auto const& key : keys.keys())
        if (!has(key))
            add("missing key " + shown(key));
    for (auto const& key : moKeys.keys())
        if (!keys.has(key))
            add("unused key " + shown(key));
}

std::vector<std::string> cTranslationCheck::placeholders(std::string_view text)
{
    std::set<std::string> names;
    std::string name;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const c = text[i];
        bool const isEnd = !name.empty() && (c == '%' || c == ' ');
        if (isEnd) {
            names.insert(name);
            name.clear();
        } else if (!name.empty() || c == '%') {
            name += c;
        }
        if (c == '\\')
            ++i;
    }
    if (!name.empty())
        names.insert(name);
    return {names.begin(), names.end()};
}

std::string cTranslationCheck::stub(std::string const& key)
{
    bool const isAscii = std::all_of(key.begin(), key.end(), [](char c) { return c > 0; });
    if (key.empty() || !isAscii || key.back() == '\\')
        return "";
    return quoted(key) + " = " + quoted(key) + "\n";
}

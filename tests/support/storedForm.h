#pragma once

#include <string>

#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cSerializeBinary.h"

/// The binary format spelled out by hand, for comparison with what the library writes and for streams that it
/// would never write.
namespace ntest {

inline std::string word(unsigned int value)
{
    std::string bytes;
    for (unsigned int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

inline std::string number(unsigned int value)
{
    return word(4) + word(value);
}
inline std::string longNumber(unsigned int low, unsigned int high)
{
    return word(6) + word(low) + word(high);
}
inline std::string boolean(bool value)
{
    return word(8) + word(value);
}
inline std::string ascii(std::string const& text)
{
    return word(10) + word(static_cast<unsigned int>(text.size())) + text;
}
/// A Unicode string of these bytes.
inline std::string unicode(std::string const& text)
{
    std::string item = word(11) + word(static_cast<unsigned int>(text.size()));
    for (char const c : text)
        item += word(static_cast<unsigned char>(c));
    return item;
}
inline std::string label(std::string const& name)
{
    return word(13) + ascii(name);
}
inline std::string context(std::string const& body)
{
    return word(12) + number(static_cast<unsigned int>(16 + body.size())) + boolean(false) + body;
}
/// A translatable message; `values` are their items one after the other.
inline std::string message(std::string const& key, unsigned int scanPosition, std::string const& values)
{
    return context(context(ascii(key) + number(scanPosition) + boolean(true) + context(values)));
}

/// What `store` writes into the serializer that it is given.
template<typename Store>
std::string written(Store&& store, bool preferNoLabels = true)
{
    nsa::cSerializeBinary serializer;
    serializer.setPreferNoLabels(preferNoLabels);
    store(serializer);
    auto const& bytes = serializer.ownData();
    return std::string(bytes.begin(), bytes.end());
}

/// Lets `load` read the bytes from the deserializer that it is given; gives what `load` gives.
template<typename Load>
auto read(std::string const& bytes, Load&& load, bool preferNoLabels = true)
{
    nstd::tArray<char> const data(bytes.data(), static_cast<unsigned int>(bytes.size()));
    nsa::cDeserializeBinary deserializer{nstd::tConstArrayRef<char>(data)};
    deserializer.setPreferNoLabels(preferNoLabels);
    return load(deserializer);
}

} // namespace ntest

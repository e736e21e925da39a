#pragma once

#include <type_traits>
#include <utility>

#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/sa/cContext.h"
#include "nel_core/sa/cSAExceptions.h"
#include "nel_core/std/piTypes.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tVector.h"

/// `value >> serializer` and `value << deserializer` for the fundamental types and the containers. Classes
/// bring operators of their own as members or beside themselves.
namespace nsa {

/// Whether there is `value >> serializer`, or `value << deserializer`, for a T. The operators must be
/// declared before this is first asked.
template<typename T, typename = void>
constexpr bool kIsStorable = false;
template<typename T>
constexpr bool
    kIsStorable<T, std::void_t<decltype(std::declval<T const&>() >> std::declval<cAbstractSerializer&>())>> =
        true;
template<typename T, typename = void>
constexpr bool kIsLoadable = false;
template<typename T>
constexpr bool
    kIsLoadable<T, std::void_t<decltype(std::declval<T&>() << std::declval<cAbstractDeserializer&>())>> =
        true;

/// What a container asks of its elements: to load them, it makes them first.
template<typename T>
using tIfStorable = std::enable_if_t<kIsStorable<T>, int>;
template<typename T>
using tIfLoadable = std::enable_if_t<kIsLoadable<T> && std::is_default_constructible_v<T>, int>;

template<typename T, typename... Others>
constexpr bool kIsOneOf = (std::is_same_v<T, Others> || ...);

/// The numbers that have a stored form. `long` and `size_t` are missing because their width is not the same
/// everywhere, enumerations because they need a width first: cast them.
template<typename T>
using tIfNumber = std::enable_if_t<kIsOneOf<T, unsigned char, signed char, unsigned short, short,
                                            unsigned int, int, unsigned long long, long long, bool, double>,
                                   int>;

template<typename T, tIfNumber<T> = 0>
cAbstractSerializer& operator>>(T value, cAbstractSerializer& serializer)
{
    serializer.store(value);
    return serializer;
}

template<typename T, tIfNumber<T> = 0>
cAbstractDeserializer& operator<<(T& value, cAbstractDeserializer& deserializer)
{
    deserializer.load(value);
    return deserializer;
}

/// A plain `char` has the form of a `signed char`.
template<typename T, std::enable_if_t<std::is_same_v<T, char>, int> = 0>
cAbstractSerializer& operator>>(T value, cAbstractSerializer& serializer)
{
    serializer.store(static_cast<signed char>(value));
    return serializer;
}

template<typename T, std::enable_if_t<std::is_same_v<T, char>, int> = 0>
cAbstractDeserializer& operator<<(T& value, cAbstractDeserializer& deserializer)
{
    signed char loaded = 0;
    deserializer.load(loaded);
    value = static_cast<char>(loaded);
    return deserializer;
}

/// A zero-terminated text has the form of a nstd::cAsciiString; null has that of an empty one.
NEL_EXPORT cAbstractSerializer& operator>>(char const* text, cAbstractSerializer& serializer);

template<typename T>
using tIfFormless = std::enable_if_t<
    std::disjunction_v<std::is_pointer<T>, std::is_null_pointer<T>> && !kIsOneOf<T, char*, char const*>, int>;

/// Any other pointer has no form, and must not take that of something it converts into.
template<typename T, tIfFormless<T> = 0>
cAbstractSerializer& operator>>(T pointer, cAbstractSerializer& serializer) = delete;

/// Nothing has no form: nothing is written or read.
inline cAbstractSerializer& operator>>(piVoid const&, cAbstractSerializer& serializer)
{
    return serializer;
}

inline cAbstractDeserializer& operator<<(piVoid&, cAbstractDeserializer& deserializer)
{
    return deserializer;
}

/// A byte array: its grow step as `unsigned int`, then its bytes as a block; where labels are welcome, both
/// stand behind one ("Grow", "Data").
NEL_EXPORT cAbstractSerializer& operator>>(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>> const& array,
                                           cAbstractSerializer& serializer);
/// Replaces the array by one that has the stored grow step and bytes; nothing changes when that fails.
NEL_EXPORT cAbstractDeserializer& operator<<(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& array,
                                             cAbstractDeserializer& deserializer);

/// Writes the elements of a container, in their order and without a count, in a context of their own.
template<typename Container>
void storeElements(Container const& container, char const* contextName, cAbstractSerializer& serializer)
{
    cContext context(serializer.newContext(contextName));
    for (auto const& element : container)
        element >> serializer;
    context.release();
}

/// Replaces the content of a container by the elements in the next context; nothing changes when that fails.
/// An element that has consumed nothing raises cSAExceptions::throwEndOfContext() unless the context ends
/// there: the rest of it would never be read.
template<typename Container, typename T>
void loadElements(Container& container, T const& blank, char const* contextName,
                  cAbstractDeserializer& deserializer)
{
    Container loaded;
    {
        cContext context(deserializer.getContext(contextName));
        auto position = deserializer.currentPos();
        while (!deserializer.eoc()) {
            loaded.append(blank) << deserializer;
            auto const before = std::exchange(position, deserializer.currentPos());
            if (position == before && position != cAbstractDeserializer::kNoPosition)
                cSAExceptions::throwEndOfContext();
        }
        context.release();
    }
    container.swap(loaded);
}

/// A list: an unnamed context that holds the elements. Reading accepts a context of any name.
template<typename T, tIfStorable<T> = 0>
cAbstractSerializer& operator>>(nstd::tList<T> const& list, cAbstractSerializer& serializer)
{
    storeElements(list, nullptr, serializer);
    return serializer;
}

template<typename T, tIfLoadable<T> = 0>
cAbstractDeserializer& operator<<(nstd::tList<T>& list, cAbstractDeserializer& deserializer)
{
    loadElements(list, T(), nullptr, deserializer);
    return deserializer;
}

/// A vector: a context named "unknown" that holds the elements.
template<typename T, tIfStorable<T> = 0>
cAbstractSerializer& operator>>(nstd::tVector<T> const& vector, cAbstractSerializer& serializer)
{
    storeElements(vector, "unknown", serializer);
    return serializer;
}

template<typename T, tIfLoadable<T> = 0>
cAbstractDeserializer& operator<<(nstd::tVector<T>& vector, cAbstractDeserializer& deserializer)
{
    loadElements(vector, T(), "unknown", deserializer);
    return deserializer;
}

} // namespace nsa

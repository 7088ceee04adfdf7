#pragma once

#include "Util/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace varn {

// Record blocks are raw images of little-endian files and are read by direct access.
static_assert(std::endian::native == std::endian::little);

/// Text in a fixed field of a record: `Room` bytes in the process code page, zero-terminated; a
/// text set into it keeps at most `Limit - 1` bytes.
template <std::size_t Room, std::size_t Limit = Room>
struct FixedText
{
    char bytes[Room];

    std::string_view view() const
    {
        return {bytes, static_cast<std::size_t>(std::find(bytes, bytes + Room, '\0') - bytes)};
    }
    void set(std::string_view text)
    {
        const std::string kept = cutToField(text, Limit);
        std::fill(std::copy(kept.begin(), kept.end(), bytes), bytes + Room, '\0');
    }
};

/// `count` dice of that many `faces`, and a `bonus`; 0 faces is no dice.
struct Dice
{
    std::uint8_t count, faces, bonus;
    bool operator==(const Dice&) const = default;
};

/// How a getter gives and a setter takes a stored value.
template <class T>
struct Access
{
    using Get = T;
    using Set = T;
    static T get(const T& value) { return value; }
    static void set(T& place, T value) { place = value; }
};
template <>
struct Access<WString>
{
    using Get = const WString&;
    using Set = WStringView;
    static Get get(const WString& value) { return value; }
    static void set(WString& place, WStringView value) { place = value; }
};
template <>
struct Access<std::string>
{
    using Get = const std::string&;
    using Set = std::string_view;
    static Get get(const std::string& value) { return value; }
    static void set(std::string& place, std::string_view value) { place = value; }
};
template <std::size_t Room, std::size_t Limit>
struct Access<FixedText<Room, Limit>>
{
    using Get = std::string_view; ///< lives as long as the row and until the next set
    using Set = std::string_view;
    static Get get(const FixedText<Room, Limit>& value) { return value.view(); }
    static void set(FixedText<Room, Limit>& place, std::string_view value) { place.set(value); }
};
template <class T>
struct Access<std::vector<T>>
{
    using Get = const std::vector<T>&;
    using Set = std::vector<T>;
    static Get get(const std::vector<T>& value) { return value; }
    static void set(std::vector<T>& place, std::vector<T> value) { place = std::move(value); }
};

} // namespace varn

/// `getNoun` and `setNoun` over a member: VARN_FIELD(Priority, record.priority).
#define VARN_FIELD(Noun, place)                                                                    \
    ::varn::Access<decltype(place)>::Get get##Noun() const                                         \
    {                                                                                              \
        return ::varn::Access<decltype(place)>::get(place);                                        \
    }                                                                                              \
    void set##Noun(::varn::Access<decltype(place)>::Set value)                                     \
    {                                                                                              \
        ::varn::Access<decltype(place)>::set(place, std::move(value));                             \
    }

/// The same over an array: `getNoun(index)`, `setNoun(index, value)`. An index behind its end reads
/// 0 and writes nothing: numbers of rows come from files.
#define VARN_ARRAY_FIELD(Noun, place)                                                              \
    std::remove_extent_t<decltype(place)> get##Noun(std::size_t index) const                       \
    {                                                                                              \
        return index < std::size(place) ? (place)[index] : 0;                                      \
    }                                                                                              \
    void set##Noun(std::size_t index, std::remove_extent_t<decltype(place)> value)                 \
    {                                                                                              \
        if (index < std::size(place))                                                              \
            (place)[index] = value;                                                                \
    }

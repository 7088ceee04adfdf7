#pragma once

#include "Game/Database/FieldTable.h"

/// What field tables are written with: `field<&Row::member>(u"key", u"Label")` deduces place, kind
/// and width from the member, `field<&Row::record, &Record::member>` from a member of the record
/// block.
namespace varn {

namespace fields {

template <class Pointer>
struct MemberOf;
template <class Class, class Member>
struct MemberOf<Member Class::*>
{
    using Row = Class;
    using Type = Member;
};

template <class T>
inline constexpr NumberType kNumberType = NumberType::None;
template <>
inline constexpr NumberType kNumberType<bool> = NumberType::Bool;
template <>
inline constexpr NumberType kNumberType<std::uint8_t> = NumberType::Byte;
template <>
inline constexpr NumberType kNumberType<std::int8_t> = NumberType::SignedByte;
template <>
inline constexpr NumberType kNumberType<std::uint16_t> = NumberType::Word;
template <>
inline constexpr NumberType kNumberType<std::int16_t> = NumberType::SignedWord;
template <>
inline constexpr NumberType kNumberType<std::int32_t> = NumberType::Long;

/// Kind, width and count of a member by its type.
template <class T>
struct Shape
{
    static_assert(kNumberType<T> != NumberType::None, "no field kind for this type");
    static constexpr void apply(Field& field)
    {
        field.kind = Kind::Number;
        field.number = kNumberType<T>;
    }
};
template <class T, std::size_t Count>
struct Shape<T[Count]>
{
    static constexpr void apply(Field& field)
    {
        field.kind = Kind::Array;
        field.number = kNumberType<T>;
        field.count = Count;
    }
};
template <std::size_t Count>
struct Shape<WString[Count]>
{
    static constexpr void apply(Field& field)
    {
        field.kind = Kind::CDataTexts;
        field.count = Count;
    }
};
template <class T>
struct Shape<std::vector<T>>
{
    static_assert(kNumberType<T> == NumberType::Byte || kNumberType<T> == NumberType::Long);
    static constexpr void apply(Field& field)
    {
        field.kind = Kind::List;
        field.number = kNumberType<T>;
    }
};
template <std::size_t Room, std::size_t Limit>
struct Shape<FixedText<Room, Limit>>
{
    static constexpr void apply(Field& field)
    {
        field.kind = Kind::FixedText;
        field.count = Room;
        field.limit = Limit;
    }
};
template <>
struct Shape<Dice>
{
    static constexpr void apply(Field& field)
    {
        field.kind = Kind::DiceText;
        field.number = NumberType::Byte;
        field.count = 3;
    }
};
template <>
struct Shape<std::string>
{
    static constexpr void apply(Field& field) { field.kind = Kind::NarrowText; }
};
template <>
struct Shape<WString>
{
    static constexpr void apply(Field& field) { field.kind = Kind::WideText; }
};

/// The way from a row to a value in it: a member of the row, then members of that.
template <auto First, auto... Rest>
struct Path
{
    using Row = typename MemberOf<decltype(First)>::Row;
    // clang-format off
    static auto& of(GameRow& row) { return ((static_cast<Row&>(row).*First) .* ... .* Rest); }
    // clang-format on
};

template <auto List>
struct ListOf
{
    using Row = typename MemberOf<decltype(List)>::Row;
    using Child = typename MemberOf<decltype(List)>::Type::value_type;
    static auto& of(GameRow& row) { return static_cast<Row&>(row).*List; }
};

template <auto List, Entries Which>
inline constexpr ChildRows kChildRows{
    .table = &ListOf<List>::Child::fieldTable,
    .entries = Which,
    .size =
        [](const GameRow& row) {
            return (static_cast<const typename ListOf<List>::Row&>(row).*List).size();
        },
    .at = [](GameRow& row, std::size_t index) -> GameRow& { return ListOf<List>::of(row)[index]; },
    .append = [](GameRow& row, const Element&) -> GameRow& {
        return ListOf<List>::of(row).emplace_back();
    },
    .clear = [](GameRow& row) { ListOf<List>::of(row).clear(); },
};

} // namespace fields

template <auto... Members>
constexpr Field field(WStringView key, WStringView label)
{
    using Path = fields::Path<Members...>;
    Field field{.key = key, .label = label};
    fields::Shape<std::remove_reference_t<decltype(Path::of(std::declval<GameRow&>()))>>::apply(
        field);
    field.place = [](GameRow& row) -> void* { return &Path::of(row); };
    return field;
}

/// A list of child rows.
template <auto List, Entries Which>
constexpr Field childRows(WStringView key, WStringView label)
{
    return {.key = key,
            .label = label,
            .kind = Kind::ChildRows,
            .children = &fields::kChildRows<List, Which>};
}

constexpr Field coded(const Codec& codec, WStringView key, WStringView label)
{
    return {.key = key, .label = label, .codec = &codec};
}

/// What is common to the rows of class `T` without a record.
template <class T>
constexpr FieldTable rowTable(WStringView className, WStringView element,
                              std::span<const Field> fields)
{
    return {
        .className = className,
        .element = element,
        .fields = fields,
        .make = []() -> std::unique_ptr<GameRow> { return std::make_unique<T>(); },
        .clone = [](const GameRow& row) -> std::unique_ptr<GameRow> {
            return std::make_unique<T>(static_cast<const T&>(row));
        },
        .assign =
            [](GameRow& target, const GameRow& source) {
                static_cast<T&>(target) = static_cast<const T&>(source);
            },
    };
}

/// The same for rows with a record block, given as `&T::record`.
template <auto Record>
constexpr FieldTable recordTable(WStringView className, std::span<const Field> fields)
{
    using Path = fields::Path<Record>;
    using Block = typename fields::MemberOf<decltype(Record)>::Type;
    static_assert(std::is_trivially_copyable_v<Block> && std::is_standard_layout_v<Block>);
    FieldTable table = rowTable<typename Path::Row>(className, u"data", fields);
    table.recordSize = sizeof(Block);
    table.record = [](GameRow& row) { return reinterpret_cast<std::byte*>(&Path::of(row)); };
    table.swapsNames = true;
    return table;
}

// The attributes of every row with a number of its own; `kBaseName` where no record holds the name.
inline constexpr Field kBaseId = field<&BaseDatabaseModel::id>(u"id", u"ID").orElse(-1);
inline constexpr WrittenRule kHasMarker = {
    u"not -1",
    [](const GameRow& row) { return static_cast<const BaseDatabaseModel&>(row).marker != -1; },
};
inline constexpr Field kBaseMarker = field<&BaseDatabaseModel::marker>(u"marker", u"Marker")
                                         .orElse(-1)
                                         .when(kHasMarker)
                                         .to(u"Markers");
inline constexpr Field kBaseName = field<&BaseDatabaseModel::name>(u"name", u"Name");
inline constexpr Field kBaseName2 =
    field<&BaseDatabaseModel::name2>(u"name2", u"Name (Second Language)");

} // namespace varn

#include "Game/Database/FieldTable.h"

#include <cassert>
#include <cstring>

namespace varn {

namespace {

/// Places are handed out mutable; a reader does not use that.
const void* placeOf(const GameRow& row, const Field& field)
{
    return field.place(const_cast<GameRow&>(row));
}

template <class T>
const T& valueOf(const GameRow& row, const Field& field)
{
    return *static_cast<const T*>(placeOf(row, field));
}

template <class T>
T& valueOf(GameRow& row, const Field& field)
{
    return *static_cast<T*>(field.place(row));
}

std::int32_t loadNumber(const void* numbers, NumberType type, std::size_t index)
{
    switch (type) {
    case NumberType::Byte:
        return static_cast<const std::uint8_t*>(numbers)[index];
    case NumberType::SignedByte:
        return static_cast<const std::int8_t*>(numbers)[index];
    case NumberType::Word:
        return static_cast<const std::uint16_t*>(numbers)[index];
    case NumberType::SignedWord:
        return static_cast<const std::int16_t*>(numbers)[index];
    case NumberType::Long:
        return static_cast<const std::int32_t*>(numbers)[index];
    case NumberType::Bool:
        return static_cast<const bool*>(numbers)[index];
    case NumberType::None:
        break;
    }
    return 0;
}

void storeNumber(void* numbers, NumberType type, std::size_t index, std::int32_t value)
{
    switch (type) {
    case NumberType::Byte:
        static_cast<std::uint8_t*>(numbers)[index] = static_cast<std::uint8_t>(value);
        break;
    case NumberType::SignedByte:
        static_cast<std::int8_t*>(numbers)[index] = static_cast<std::int8_t>(value);
        break;
    case NumberType::Word:
        static_cast<std::uint16_t*>(numbers)[index] = static_cast<std::uint16_t>(value);
        break;
    case NumberType::SignedWord:
        static_cast<std::int16_t*>(numbers)[index] = static_cast<std::int16_t>(value);
        break;
    case NumberType::Long:
        static_cast<std::int32_t*>(numbers)[index] = value;
        break;
    case NumberType::Bool:
        static_cast<bool*>(numbers)[index] = value != 0;
        break;
    case NumberType::None:
        break;
    }
}

/// Calls `use` with the vector behind a List field.
template <class Row, class Use>
auto withList(Row& row, const Field& field, Use use)
{
    if (field.number == NumberType::Byte)
        return use(valueOf<std::vector<std::uint8_t>>(row, field));
    return use(valueOf<std::vector<std::int32_t>>(row, field));
}

/// The numbers of a Number, Array, List or DiceText field, one behind the other.
const void* numbersOf(const GameRow& row, const Field& field)
{
    if (field.kind != Kind::List)
        return placeOf(row, field);
    return withList(row, field, [](const auto& list) -> const void* { return list.data(); });
}

bool hasNumbers(const Field& field)
{
    return field.number != NumberType::None;
}

std::int32_t inForm(std::int32_t value, NumberForm form)
{
    switch (form) {
    case NumberForm::ZeroOrOne:
        return value != 0;
    case NumberForm::OneOnly:
        return value == 1;
    case NumberForm::Plain:
        break;
    }
    return value;
}

WString numbersText(const GameRow& row, const Field& field)
{
    const std::size_t count = entryCount(row, field);
    const void* const numbers = numbersOf(row, field);
    WString text;
    for (std::size_t i = 0; i < count; i++) {
        if (i > 0)
            text += u',';
        text += toDecimal(inForm(loadNumber(numbers, field.number, i), field.form));
    }
    return text;
}

/// Fills from the front; a shorter text leaves the rest, a longer one is cut.
void setNumbers(GameRow& row, const Field& field, WStringView text)
{
    if (text.empty())
        return;
    void* const numbers = field.place(row);
    std::size_t index = 0;
    for (std::size_t at = 0; at <= text.size() && index < field.count; index++) {
        const std::size_t end = std::min(text.find(u',', at), text.size());
        storeNumber(numbers, field.number, index, parseDecimal(text.substr(at, end - at)));
        at = end + 1;
    }
}

void setList(GameRow& row, const Field& field, WStringView text)
{
    withList(row, field, [&](auto& list) {
        using Number = typename std::remove_reference_t<decltype(list)>::value_type;
        list.clear();
        for (std::size_t at = 0; !text.empty() && at <= text.size();) {
            const std::size_t end = std::min(text.find(u',', at), text.size());
            list.push_back(static_cast<Number>(parseDecimal(text.substr(at, end - at))));
            at = end + 1;
        }
    });
}

std::string_view fixedText(const GameRow& row, const Field& field)
{
    const char* const bytes = static_cast<const char*>(placeOf(row, field));
    return {bytes, static_cast<std::size_t>(std::find(bytes, bytes + field.count, '\0') - bytes)};
}

void setFixedText(GameRow& row, const Field& field, std::string_view text)
{
    char* const bytes = static_cast<char*>(field.place(row));
    const std::string kept = cutToField(text, field.limit);
    std::fill(std::copy(kept.begin(), kept.end(), bytes), bytes + field.count, '\0');
}

} // namespace

const Field* FieldTable::find(WStringView key) const
{
    for (const Field& field : fields)
        if (field.key == key)
            return &field;
    return nullptr;
}

std::size_t entryCount(const GameRow& row, const Field& field)
{
    switch (field.kind) {
    case Kind::Array:
    case Kind::DiceText:
    case Kind::CDataTexts:
        return field.count;
    case Kind::List:
        return withList(row, field, [](const auto& list) { return list.size(); });
    case Kind::ChildRows:
        return field.children->size(row);
    default:
        return 1;
    }
}

std::int32_t getNumber(const GameRow& row, const Field& field, std::size_t index)
{
    if (!hasNumbers(field) || index >= entryCount(row, field))
        return 0;
    return loadNumber(numbersOf(row, field), field.number, index);
}

void setNumber(GameRow& row, const Field& field, std::int32_t value, std::size_t index)
{
    if (hasNumbers(field) && index < entryCount(row, field))
        storeNumber(const_cast<void*>(numbersOf(row, field)), field.number, index, value);
}

WString getText(const GameRow& row, const Field& field, std::size_t index)
{
    switch (field.kind) {
    case Kind::Number:
    case Kind::Array:
    case Kind::List:
    case Kind::DiceText:
        return numbersText(row, field);
    case Kind::FixedText:
        return widen(fixedText(row, field));
    case Kind::NarrowText:
        return widen(valueOf<std::string>(row, field));
    case Kind::WideText:
        return valueOf<WString>(row, field);
    case Kind::CDataTexts:
        return index < field.count ? (&valueOf<WString>(row, field))[index] : WString();
    case Kind::ChildRows:
    case Kind::Custom:
        break;
    }
    return {};
}

void setText(GameRow& row, const Field& field, WStringView text, std::size_t index)
{
    switch (field.kind) {
    case Kind::Number:
        storeNumber(field.place(row), field.number, 0, parseDecimal(text));
        break;
    case Kind::Array:
    case Kind::DiceText:
        setNumbers(row, field, text);
        break;
    case Kind::List:
        setList(row, field, text);
        break;
    case Kind::FixedText:
        setFixedText(row, field, narrow(text));
        break;
    case Kind::NarrowText:
        valueOf<std::string>(row, field) = narrow(text);
        break;
    case Kind::WideText:
        valueOf<WString>(row, field) = text;
        break;
    case Kind::CDataTexts:
        if (index < field.count)
            (&valueOf<WString>(row, field))[index] = text;
        break;
    case Kind::ChildRows:
    case Kind::Custom:
        break;
    }
}

bool isWritten(const GameRow& row, const Field& field)
{
    return !field.written || field.written->holds(row);
}

std::optional<std::size_t> recordOffset(const FieldTable& table, const Field& field)
{
    if (table.recordSize == 0 || !field.place)
        return std::nullopt;
    const std::unique_ptr<GameRow> row = table.make();
    const auto start = reinterpret_cast<std::uintptr_t>(table.record(*row));
    const auto place = reinterpret_cast<std::uintptr_t>(field.place(*row));
    if (place < start || place >= start + table.recordSize)
        return std::nullopt;
    return place - start;
}

void readRecord(GameRow& row, ByteSpan bytes)
{
    const FieldTable& table = row.getFieldTable();
    assert(table.recordSize > 0);
    std::memcpy(table.record(row), bytes.data(), std::min(bytes.size(), table.recordSize));
    if (const Field* const name = table.find(u"name"))
        setFixedText(row, *name, std::string(fixedText(row, *name)));
}

} // namespace varn

#pragma once

#include "Util/Text.h"

#include <bit>
#include <cstdint>

namespace varn {

class Array;
class ClassInterface;
class ObjectBox;
class StringBuffer;
class MemberTable;
struct FunctionCode;

/// What a script value is; the numbers are those that natives see as `get_type`.
enum class ValueKind : std::uint8_t
{
    Undefined =
        0, ///< without a value; text "0", number 0. All zero bits, so fresh memory is such cells
    Int = 2,
    String = 3,
    Number = 4,
    Boolean = 5,
    Function = 6,
    Array = 7,
    Table = 8,     ///< made by `new Object()`: members by name
    Object = 9,    ///< instance of a native class, owned by the machine
    UserPtr = 10,  ///< native instance that somebody else owns
    Selector = 11, ///< member selector on its way to an element; machine-internal
};

/// One script value: stack cell, array element, table member, native argument. Sixteen bytes in two
/// words that are always read and written whole, copied without ceremony; what it points to belongs
/// to the Heap of the interpreter that made it.
///
/// Texts are shared and immutable: the cell holds the length, the buffer the units, and several
/// cells may see prefixes of one buffer, which lets the machine append in place to the longest of
/// them.
class OperandData
{
  public:
    constexpr OperandData() : head(0), bits(0) {}

    static constexpr OperandData integer(std::int32_t value)
    {
        return {ValueKind::Int, static_cast<std::uint32_t>(value)};
    }
    static constexpr OperandData number(double value)
    {
        return {ValueKind::Number, std::bit_cast<std::uint64_t>(value)};
    }
    static constexpr OperandData boolean(bool value)
    {
        return {ValueKind::Boolean, value ? 1U : 0U};
    }
    static OperandData function(const FunctionCode* code) { return {ValueKind::Function, code}; }
    static OperandData array(Array* array) { return {ValueKind::Array, array}; }
    static OperandData table(MemberTable* table) { return {ValueKind::Table, table}; }
    /// Of kind Object or UserPtr.
    static OperandData object(ValueKind kind, ObjectBox* box) { return {kind, box}; }
    static constexpr OperandData selector(std::uint32_t name)
    {
        return {ValueKind::Selector, name};
    }
    static OperandData string(StringBuffer* buffer, std::uint32_t length)
    {
        OperandData made{ValueKind::String, buffer};
        made.head |= static_cast<std::uint64_t>(length) << 32;
        return made;
    }

    ValueKind getKind() const { return static_cast<ValueKind>(static_cast<std::uint8_t>(head)); }
    bool is(ValueKind kind) const { return getKind() == kind; }
    /// Object or UserPtr.
    bool isBoxed() const
    {
        return getKind() >= ValueKind::Object && getKind() <= ValueKind::UserPtr;
    }

    /// The payloads; each is meaningful for its own kind only.
    std::int32_t asInt() const { return static_cast<std::int32_t>(bits); }
    double asNumber() const { return std::bit_cast<double>(bits); }
    bool asBoolean() const { return static_cast<std::uint8_t>(bits) != 0; }
    const FunctionCode* asFunction() const { return reinterpret_cast<const FunctionCode*>(bits); }
    Array* asArray() const { return reinterpret_cast<Array*>(bits); }
    MemberTable* asTable() const { return reinterpret_cast<MemberTable*>(bits); }
    ObjectBox* asBox() const { return reinterpret_cast<ObjectBox*>(bits); }
    StringBuffer* asBuffer() const { return reinterpret_cast<StringBuffer*>(bits); }
    std::uint32_t textLength() const { return static_cast<std::uint32_t>(head >> 32); }
    std::uint32_t asSelector() const { return static_cast<std::uint32_t>(bits); }
    /// The units of a String; valid while the value is reachable.
    WStringView asText() const;

    /// The number any value stands for: 0 for what has none, the length for an array, the longest
    /// numeric prefix for a text.
    double toNumber() const;
    /// `toNumber` cut toward zero; outside 32 bits the low 32 of 64, 0 for what is no number.
    std::int32_t toInt() const;
    /// The text any value has: `%d`, `%.16f`, "true", the elements of an array joined by ",", the
    /// class name of an object.
    WString toString() const;
    /// Truth of a condition: `toNumber` is not 0, or a function.
    bool isTrue() const;
    /// The `==` of scripts, decided by the left operand.
    bool equals(const OperandData& right) const;

    /// "int", "string", ...: what `typeof` answers.
    WStringView kindName() const;
    /// Name of the class whose methods the value has: "int", "String", "Array", the class of an
    /// object.
    std::string className() const;

    /// The two words, for the machine's copies.
    std::uint64_t head;
    std::uint64_t bits;

  private:
    constexpr OperandData(ValueKind kind, std::uint64_t bits)
        : head(static_cast<std::uint64_t>(kind)), bits(bits)
    {}
    OperandData(ValueKind kind, const void* pointer)
        : head(static_cast<std::uint64_t>(kind)), bits(reinterpret_cast<std::uint64_t>(pointer))
    {}
};
static_assert(sizeof(OperandData) == 16);

/// The machine's cut from double to int: through 64 bits, keeping the low 32; 0 for NaN, infinities
/// and what 64 bits cannot hold.
inline std::int32_t truncateToInt(double value)
{
    if (!(value > -9.2e18 && value < 9.2e18))
        return 0;
    return static_cast<std::int32_t>(static_cast<std::int64_t>(value));
}

/// int arithmetic of scripts wraps at 32 bits.
inline std::int32_t wrap(std::int64_t value)
{
    return static_cast<std::int32_t>(value);
}

/// The number at the front of a text: the longest prefix that C's `strtod` takes in the C locale.
double textToNumber(WStringView text);
/// `%.16f` of a number.
WString numberToText(double value);

/// Order of two texts by code unit: negative, 0, positive.
int compareTexts(WStringView a, WStringView b);

/// The relations of scripts, by the numbers of the branch instructions.
enum class Relation : std::uint8_t
{
    Less = 29,
    LessOrEqual = 30,
    Equal = 31,
    NotEqual = 32,
    GreaterOrEqual = 33,
    Greater = 34,
};
/// `left relation right`: text order when the left is a text and the right neither int nor number,
/// numeric otherwise.
bool relate(Relation relation, const OperandData& left, const OperandData& right);

} // namespace varn

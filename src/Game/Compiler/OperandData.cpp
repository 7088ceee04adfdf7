#include "Game/Compiler/OperandData.h"

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/InterpreterException.h"
#include "Game/Compiler/Objects.h"
#include "Game/Compiler/Program.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <locale.h>

namespace varn {
namespace {

/// Longest text a value may turn into, in units.
constexpr std::size_t kMaxText = std::size_t{1} << 26;

constexpr WStringView kKindNames[] = {u"undefined", u"undefined", u"int",      u"string",
                                      u"number",    u"boolean",   u"function", u"array",
                                      u"table",     u"object",    u"userptr",  u"undefined"};

bool isSpace(char16_t unit)
{
    return unit == u' ' || (unit >= 9 && unit <= 13);
}

bool sameText(WStringView a, WStringView b)
{
    return a.size() == b.size() &&
           std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// May stand in a number as `strtod` reads it, hexadecimal and named ones included.
bool mayBeInNumber(char16_t unit)
{
    return isDigit(unit) || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           unit == u'+' || unit == u'-' || unit == u'.' || unit == u'(' || unit == u')' ||
           unit == u'_';
}

double convertByRuntime(WStringView text)
{
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    std::string bytes;
    for (const char16_t unit : text) {
        if (!mayBeInNumber(unit))
            break;
        bytes.push_back(static_cast<char>(unit));
    }
    return strtod_l(bytes.c_str(), nullptr, cLocale);
}

/// Joins nested arrays without the native stack; an array that contains itself gives nothing there.
class ArrayText
{
  public:
    ArrayText() = default;
    ~ArrayText()
    {
        while (!open.empty())
            leave();
    }
    ArrayText(const ArrayText&) = delete;
    ArrayText& operator=(const ArrayText&) = delete;

    WString of(Array& array, WStringView separator)
    {
        enter(array);
        while (!open.empty())
            step(open.size() == 1 ? separator : WStringView(u","));
        return std::move(text);
    }

  private:
    struct Level
    {
        Array* array;
        std::uint32_t next;
    };
    static constexpr std::uint8_t kOpen = 2; // flag of an array whose text is being made

    void enter(Array& array)
    {
        array.flags |= kOpen;
        open.push_back({&array, 0});
    }
    void leave()
    {
        open.back().array->flags &= static_cast<std::uint8_t>(~kOpen);
        open.pop_back();
    }
    void step(WStringView separator)
    {
        Level& level = open.back();
        if (level.next == level.array->size())
            return leave();
        if (level.next > 0)
            text += separator;
        if (text.size() > kMaxText)
            throw interpreter::InterpreterException(
                u"Exception: the text of the array is too long", u"Array::toString", 0,
                interpreter::InterpreterException::Severity::Fatal);
        const OperandData& element = (*level.array)[level.next++];
        if (!element.is(ValueKind::Array))
            text +=
                element.is(ValueKind::String) ? element.asText() : WStringView(element.toString());
        else if ((element.asArray()->flags & kOpen) == 0)
            enter(*element.asArray());
    }

    WString text;
    std::vector<Level> open;
};

} // namespace

double textToNumber(WStringView text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    if (text.empty())
        return 0;
    std::size_t digits = 0;
    std::int64_t value = 0;
    while (digits < text.size() && digits < 15 && isDigit(text[digits]))
        value = value * 10 + (text[digits++] - u'0');
    const bool plain = digits > 0 && (digits == text.size() || !mayBeInNumber(text[digits]));
    return plain ? static_cast<double>(value) : convertByRuntime(text);
}

WString numberToText(double value)
{
    char buffer[512]; // 309 digits, the point, 16 digits
    const auto done =
        std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::fixed, 16);
    return WString(buffer, done.ptr);
}

int compareTexts(WStringView a, WStringView b)
{
    const auto [x, y] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (x == a.end())
        return y == b.end() ? 0 : -1;
    return y == b.end() || *x > *y ? 1 : -1;
}

double OperandData::toNumber() const
{
    switch (getKind()) {
    case ValueKind::Int:
        return asInt();
    case ValueKind::Number:
        return asNumber();
    case ValueKind::String:
        return textToNumber(asText());
    case ValueKind::Boolean:
        return asBoolean() ? 1 : 0;
    case ValueKind::Function:
        return asFunction()->number;
    case ValueKind::Array:
        return asArray()->size();
    case ValueKind::UserPtr:
        return static_cast<double>(reinterpret_cast<std::uintptr_t>(asBox()->instance));
    default:
        return 0;
    }
}

std::int32_t OperandData::toInt() const
{
    return is(ValueKind::Int) ? asInt() : truncateToInt(toNumber());
}

WString OperandData::toString() const
{
    switch (getKind()) {
    case ValueKind::Undefined:
        return u"0";
    case ValueKind::Int:
        return toDecimal(asInt());
    case ValueKind::String:
        return WString(asText());
    case ValueKind::Number:
        return numberToText(asNumber());
    case ValueKind::Boolean:
        return asBoolean() ? u"true" : u"false";
    case ValueKind::Array:
        return ArrayText().of(*asArray(), u",");
    case ValueKind::Table:
        return u"Object";
    case ValueKind::Object:
    case ValueKind::UserPtr:
        return asBox()->classInterface ? asBox()->classInterface->toString(asBox()->instance)
                                       : WString(kindName());
    default:
        return WString(kindName());
    }
}

bool OperandData::isTrue() const
{
    return is(ValueKind::Int) ? asInt() != 0 : toNumber() != 0;
}

bool OperandData::equals(const OperandData& right) const
{
    if (is(ValueKind::Function) || right.is(ValueKind::Function))
        return getKind() == right.getKind() && bits == right.bits;
    if (is(ValueKind::String) && !right.is(ValueKind::Int) && !right.is(ValueKind::Number))
        return right.is(ValueKind::String) ? sameText(asText(), right.asText())
                                           : sameText(asText(), right.toString());
    if (isBoxed() && asBox()->classInterface)
        return asBox()->classInterface->compare(
            asBox()->instance, right.isBoxed() ? right.asBox()->instance : nullptr);
    return toNumber() == right.toNumber();
}

WStringView OperandData::kindName() const
{
    return kKindNames[static_cast<std::size_t>(getKind())];
}

std::string OperandData::className() const
{
    switch (getKind()) {
    case ValueKind::Undefined:
    case ValueKind::Int:
        return "int";
    case ValueKind::String:
        return "String";
    case ValueKind::Number:
        return "Number";
    case ValueKind::Boolean:
        return "Boolean";
    case ValueKind::Array:
        return "Array";
    case ValueKind::Object:
    case ValueKind::UserPtr:
        return asBox()->classInterface ? asBox()->classInterface->scriptName() : "Object";
    default:
        return "Object";
    }
}

static bool holds(Relation relation, double left, double right)
{
    switch (relation) {
    case Relation::Less:
        return left < right;
    case Relation::LessOrEqual:
        return left <= right;
    case Relation::GreaterOrEqual:
        return left >= right;
    default:
        return left > right;
    }
}

bool relate(Relation relation, const OperandData& left, const OperandData& right)
{
    if (relation == Relation::Equal || relation == Relation::NotEqual)
        return left.equals(right) == (relation == Relation::Equal);
    if (!left.is(ValueKind::String) || right.is(ValueKind::Int) || right.is(ValueKind::Number))
        return holds(relation, left.toNumber(), right.toNumber());
    if (right.is(ValueKind::String))
        return holds(relation, compareTexts(left.asText(), right.asText()), 0);
    return holds(relation, compareTexts(left.asText(), right.toString()), 0);
}

WString Array::join(WStringView separator)
{
    return ArrayText().of(*this, separator);
}

} // namespace varn

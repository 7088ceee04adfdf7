#include "Game/Compiler/Calculator.h"

#include "Game/Database/StoryTables.h"
#include "Parser/Tokenizer.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace varn {

/// Four units at a time: class names and formulas are too short for a call to pay.
static bool isSame(WStringView a, WStringView b)
{
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(char16_t);
    if (a.size() != b.size())
        return false;
    if (a.size() < kUnits)
        return a == b;
    const auto differAt = [&](std::size_t place) {
        std::uint64_t x = 0;
        std::uint64_t y = 0;
        std::memcpy(&x, a.data() + place, sizeof x);
        std::memcpy(&y, b.data() + place, sizeof y);
        return x != y;
    };
    for (std::size_t place = 0; place + kUnits <= a.size(); place += kUnits)
        if (differAt(place))
            return false;
    return !differAt(a.size() - kUnits);
}

/// One number, with or without a sign.
static bool isNumber(WStringView formula)
{
    const auto tokens = Tokenizer(formula).rest();
    const auto& last = tokens.empty() ? Tokenizer::Token{Tokenizer::Kind::Mark, {}} : tokens.back();
    const bool signedOne = tokens.size() == 2 && (tokens[0].text == u"-" || tokens[0].text == u"+");
    return (tokens.size() == 1 || signedOne) &&
           (last.kind == Tokenizer::Kind::Integer || last.kind == Tokenizer::Kind::Real);
}

/// One of the letters of its arguments may stand in it, or what reads them by number.
static bool namesArguments(WStringView formula, std::size_t argumentCount)
{
    const auto tokens = Tokenizer(formula).rest();
    return std::any_of(tokens.begin(), tokens.end(), [argumentCount](const auto& token) {
        const bool isLetter =
            token.text.size() == 1 && token.text[0] >= u'a' && token.text[0] < u'a' + argumentCount;
        return isLetter || token.text == u"_getArgs" || token.text == u"include";
    });
}

Calculator::Calculator(WStringView formula, std::size_t argumentCount, WStringView prefix)
    : slots(!prefix.empty() || namesArguments(formula, argumentCount) ? argumentCount : 0)
{
    for (Slot& slot : slots) {
        slot.box.type = HeapObject::Type::Box;
        slot.box.marked = true; // for good: no collector follows or frees it
    }
    interpreter.loadGlobalScript = false;
    interpreter.compile({}, wrap(formula, slots.size(), prefix));
    if (!prefix.empty() || !isNumber(formula))
        return;
    interpreter.execute();
    constant = interpreter.getReturn().toInt();
}

WString Calculator::wrap(WStringView formula, std::size_t argumentCount, WStringView prefix)
{
    WString text;
    for (std::size_t i = 0; i < argumentCount; ++i) {
        const auto letter = static_cast<char16_t>(u'a' + i);
        text += WString(u"var ") + letter + u" = _getArgs(" +
                toDecimal(static_cast<std::int64_t>(i)) + u");";
    }
    text += prefix;
    if (formula.find(u';') == WStringView::npos)
        return text.append(u"_ret = ").append(formula).append(u"; ");
    return text.append(u"function __formula() {")
        .append(formula)
        .append(u"; } _ret = __formula();");
}

void Calculator::fill(Slot& slot, const FormulaArg& argument) const
{
    if (!isSame(slot.className, argument.className)) {
        slot.className = argument.className;
        slot.box.classInterface = GlobalClassTable::instance().find(narrow(argument.className));
    }
    assert(slot.box.classInterface && argument.instance);
    slot.box.instance = argument.instance;
}

int Calculator::calculate(std::span<const FormulaArg> arguments)
{
    assert(slots.empty() || arguments.size() == slots.size());
    if (constant)
        return *constant;
    interpreter.reset();
    for (std::size_t i = 0; i < slots.size(); ++i) {
        fill(slots[i], arguments[i]);
        interpreter.globalValues.push_back(OperandData::object(ValueKind::UserPtr, &slots[i].box));
    }
    run();
    return interpreter.getReturn().toInt();
}

void Calculator::run()
{
    struct Running
    {
        explicit Running(bool& flag) : flag(flag) { flag = true; }
        ~Running() { flag = false; }
        bool& flag;
    };
    const Running here(running);
    interpreter.execute();
}

CalculatorManager& CalculatorManager::instance()
{
    static CalculatorManager manager;
    return manager;
}

/// By the length and four places: long formulas are found as fast as short ones, and two that agree
/// there are told apart when they are compared.
std::size_t CalculatorManager::Hash::operator()(const Sought& key) const
{
    const std::size_t size = key.formula.size();
    std::uint64_t hash = size * 31 + key.argumentCount;
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(char16_t);
    if (size < kUnits) {
        for (const char16_t unit : key.formula)
            hash = hash * 65599 + unit;
        return hash;
    }
    for (std::size_t part = 0; part < 4; ++part) {
        std::uint64_t units = 0;
        std::memcpy(&units, key.formula.data() + (size - kUnits) * part / 3, sizeof units);
        hash = (hash ^ units) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32;
    }
    return hash;
}

bool CalculatorManager::Same::compare(const Sought& a, const Sought& b)
{
    return a.argumentCount == b.argumentCount && isSame(a.formula, b.formula) &&
           isSame(a.prefix, b.prefix);
}

int CalculatorManager::calculate(std::int64_t row, std::span<const FormulaArg> arguments,
                                 WStringView prefix)
{
    const FormulaData* data = FormulaDatabase::instance().find(row);
    return data ? evaluate(data->getFormula(), arguments, prefix) : -1;
}

/// Throws where the formula does not compile; it is not kept then.
CalculatorManager::Interpreters::value_type& CalculatorManager::ensure(const Sought& sought)
{
    const auto found = interpreters.find(sought);
    if (found != interpreters.end())
        return *found;
    auto made = std::make_unique<Calculator>(sought.formula, sought.argumentCount, sought.prefix);
    return *interpreters
                .emplace(
                    Wrapped{WString(sought.formula), sought.argumentCount, WString(sought.prefix)},
                    std::move(made))
                .first;
}

int CalculatorManager::evaluate(WStringView formula, std::span<const FormulaArg> arguments,
                                WStringView prefix)
{
    const Sought sought{formula, arguments.size(), prefix};
    auto*& latest = recent[formula.size() % recent.size()];
    if (!latest || !Same()(latest->first, sought))
        latest = &ensure(sought);
    Calculator& calculator = *latest->second;
    if (!calculator.isRunning())
        return calculator.calculate(arguments);
    return Calculator(formula, arguments.size(), prefix).calculate(arguments);
}

} // namespace varn

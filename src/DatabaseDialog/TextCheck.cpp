#include "DatabaseDialog/TextCheck.h"

#include "Game/Compiler/Calculator.h"
#include "Game/Compiler/Compiler.h"
#include "Game/Compiler/classes/game/GameClasses.h"

namespace varn {

namespace {

WString check(WStringView name, WString text, Compiler::GlobalScript global)
{
    registerGameClasses(); // what scripts of a game may name
    try {
        Compiler().compile(name, std::move(text), global);
        return {};
    } catch (const std::string& faults) {
        return fromUtf8(faults);
    }
}

} // namespace

WString checkScript(WStringView name, WStringView text)
{
    return check(name, WString(text), Compiler::GlobalScript::Included);
}

WString checkFormula(WStringView name, WStringView text)
{
    constexpr std::size_t kMostArguments = 26;
    return check(name, Calculator::wrap(text, kMostArguments, {}), Compiler::GlobalScript::LeftOut);
}

} // namespace varn

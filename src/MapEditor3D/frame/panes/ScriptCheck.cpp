#include "MapEditor3D/frame/panes/ScriptCheck.h"

#include "Component/Translation.h"
#include "Game/Compiler/CompileErrors.h"
#include "Game/Compiler/Compiler.h"
#include "Game/Compiler/classes/game/GameClasses.h"

namespace varn {

namespace {

/// Stands for the text in faults; no file has it.
constexpr WStringView kTyped = u"<script>";

} // namespace

WString ScriptFault::sentence() const
{
    const WString place = translate(u"Line") + u' ' + toDecimal(line) + u": ";
    return (file.empty() ? WString() : file + u", ") + place + text;
}

std::vector<ScriptFault> checkScript(WStringView text)
{
    registerGameClasses();
    std::vector<ScriptFault> faults;
    try {
        Compiler().compile(kTyped, WString(text), Compiler::GlobalScript::Included);
    } catch (const CompileFailure& failure) {
        for (const CompileError& error : failure.getErrors())
            faults.push_back(
                {error.file == kTyped ? WString() : error.file, error.line, fromUtf8(error.text)});
    }
    return faults;
}

} // namespace varn

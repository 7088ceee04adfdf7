#include "Game/Compiler/InterpreterException.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Util/AsciiRun.h"
#include "Util/ProjectPath.h"
#include "Util/TextFile.h"

namespace varn {
namespace {

/// Text files by project path. Script name "File".
struct ScriptFile
{};

/// Empty for a file that cannot be read.
WString readText(WStringView path)
{
    const auto content = readTextFile(resolveProjectPath(path));
    return content ? content->text : WString();
}

/// UTF-8; with a mark where other characters than ASCII could be taken for another encoding.
void writeText(WStringView path, WStringView text)
{
    using interpreter::InterpreterException;
    constexpr WStringView kFunction = u"ScriptFile::WriteText";
    if (path.empty())
        throw InterpreterException(u"The filename is invalid.", WString(kFunction));
    const bool isAscii = asciiRun(text.data(), text.size()) == text.size();
    if (!writeTextFile(resolveProjectPath(path), text,
                       isAscii ? Encoding::Utf8 : Encoding::Utf8Bom))
        throw InterpreterException(u"Couldn't write this file.\r\n" + WString(path),
                                   WString(kFunction));
}

} // namespace

void registerFile()
{
    auto made = std::make_unique<SQClassDef<ScriptFile>>("File");
    made->addStaticFunc<&readText>("readText");
    made->addStaticFunc<&writeText>("writeText");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn

#include "Game/Compiler/Script.h"
#include "Audio/AudioManager.h"
#include "Context.h"
#include "Frames.h"
#include "Game/Compiler/Calculator.h"
#include "Game/Compiler/CompileErrors.h"
#include "Game/Compiler/Listing.h"
#include "Game/Compiler/ScriptOutline.h"
#include "Game/Compiler/Stage.h"
#include "Game/Compiler/classes/Classes.h"
#include "Game/Compiler/classes/game/GameClasses.h"
#include "Game/Database/StringTable.h"
#include "Game/GameResourceFile.h"

#include <cstdio>
#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

void registerClasses(const Arguments& arguments)
{
    if (arguments.has("--game"))
        registerGameClasses();
    else
        registerEngineClasses();
}

std::optional<WString> readScript(Context& context, const WString& file)
{
    auto text = readTextOrResource(file, file);
    if (!text)
        context.complainUnread(file);
    return text;
}

/// Faults go to standard error as they stand.
void printFaults(Context& context, const std::string& errors)
{
    context.out().flush();
    std::fputs(errors.c_str(), stderr);
}

bool compile(Context& context, Interpreter& script, const WString& file)
{
    auto text = readScript(context, file);
    if (!text)
        return false;
    try {
        script.compile(file, std::move(*text));
        return true;
    } catch (const std::string& errors) {
        printFaults(context, errors);
        return false;
    }
}

void appendTo(Json& list, const CompileFailure& failure)
{
    for (const CompileError& error : failure.getErrors())
        list.push_back({{"code", static_cast<int>(error.code)},
                        {"file", jsonText(error.file)},
                        {"line", error.line},
                        {"text", error.text}});
}

Status check(Context& context, const Arguments& arguments)
{
    registerClasses(arguments);
    Json found = Json::array();
    Status status = Status::Done;
    for (const WString& file : arguments.texts("FILE")) {
        Interpreter script;
        auto text = readScript(context, file);
        try {
            if (text)
                script.compile(file, std::move(*text));
            else
                status = Status::Failed;
        } catch (const CompileFailure& failure) {
            status = Status::Failed;
            if (context.json())
                appendTo(found, failure);
            else
                printFaults(context, failure);
        }
    }
    if (context.json())
        context.out().json(found);
    return status;
}

/// What lies around a script that runs here. Its sounds end with it.
class Surroundings
{
  public:
    explicit Surroundings(Context& context) : context(context)
    {
        stage.setResolutionHandler([this](int width, int height) { stage.setSize(width, height); });
    }
    ~Surroundings()
    {
        if (audio)
            audio->stopAll();
    }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    ScriptServices services()
    {
        return {.settings = &context.session().getSettings(),
                .input = &input,
                .stage = &stage,
                .audio = [this]() -> AudioManager& {
                    audio = &AudioManager::instance();
                    return *audio;
                },
                .texts = [this]() -> StringTable& {
                    context.session().loadTexts();
                    return StringTable::instance();
                }};
    }

    InputState input;
    Stage stage;

  private:
    Context& context;
    AudioManager* audio = nullptr; // once a script has asked for it
};

Status savePicture(Stage& stage, const Script& script, const WString& file)
{
    const Script* const scripts[] = {&script};
    Image picture(stage.compose(scripts));
    if (picture.saveAs(file))
        return Status::Done;
    host().showMessage(u"Couldn't save " + file);
    return Status::Failed;
}

Status run(Context& context, const Arguments& arguments)
{
    const Frames frames(arguments);
    registerClasses(arguments);
    Surroundings around(context);
    Script script;
    script.setServices(around.services());
    script.setTraceListener([&context](WStringView text) { context.out().line(text); });
    if (!compile(context, script, arguments.text("FILE")))
        return Status::Failed;
    if (frames.isEmpty())
        script.execute();
    else if (!frames.play(context, script, around.input))
        return Status::Failed;
    return arguments.has("--picture")
               ? savePicture(around.stage, script, arguments.text("--picture"))
               : Status::Done;
}

Status list(Context& context, const Arguments& arguments)
{
    registerClasses(arguments);
    Interpreter script;
    if (!compile(context, script, arguments.text("FILE")))
        return Status::Failed;
    Json found = Json::array();
    for (const ListedInstruction& each : listInstructions(*script.getProgram())) {
        const std::string head = std::to_string(each.address) + " " + std::string(each.mnemonic);
        if (context.json())
            found.push_back({{"address", each.address},
                             {"mnemonic", each.mnemonic},
                             {"operand", each.operand}});
        else
            context.out().line(
                std::string_view(each.operand.empty() ? head : head + " " + each.operand));
    }
    if (context.json())
        context.out().json(found);
    return Status::Done;
}

Status outline(Context& context, const Arguments& arguments)
{
    const auto text = readScript(context, arguments.text("FILE"));
    if (!text)
        return Status::Failed;
    Json entries = Json::array();
    for (const OutlineEntry& entry : outlineOf(*text))
        entries.push_back({{"line", entry.line}, {"signature", jsonText(entry.signature)}});
    context.printRecords(entries);
    return Status::Done;
}

Status formula(Context& context, const Arguments& arguments)
{
    registerEngineClasses();
    try {
        const int result = CalculatorManager::instance().evaluate(arguments.text("TEXT"), {});
        context.out().line(std::string_view(std::to_string(result)));
        return Status::Done;
    } catch (const std::string& errors) {
        printFaults(context, errors);
        return Status::Failed;
    }
}

constexpr Argument kFile[] = {{"FILE", "the script", Takes::File}};
constexpr Argument kFiles[] = {{"FILE", "the scripts", Takes::File, Occurs::Repeated}};
constexpr Argument kFormula[] = {{"TEXT", "an expression, or statements with a return"}};
constexpr Option kOptions[] = {
    {.name = "--game", .help = "with the names of the game's own classes and functions"},
};

constexpr Option kRunOptions[] = {
    kOptions[0],
    {.name = "--picture",
     .value = "OUT.png",
     .help = "save what it shows at its end",
     .takes = Takes::File},
    Frames::kOptions[0],
    Frames::kOptions[1],
    Frames::kOptions[2],
};

constexpr Command kCommands[] = {
    {.words = "script check",
     .summary = "compile scripts and tell their errors",
     .arguments = kFiles,
     .options = kOptions,
     .run = check,
     .details = "Scripts/Global.txt is read in front of each. Errors go to standard error, a line "
                "each, with their code, file and line; with --json to standard output, as a list.",
     .examples = "script check Scripts/*.txt"},
    {.words = "script run",
     .summary = "compile a script and run it; each trace prints a line",
     .arguments = kFile,
     .options = kRunOptions,
     .run = run,
     .details = "What ends the run before its time makes the status 1. The game's classes do "
                "nothing here, and its trace prints nothing; in a batch they stay once asked for. "
                "Without --frames or a key there are no frames: waits for them are over at once. "
                "With a key or a click and no --frames, a minute passes at the most. Frames take "
                "no longer than the script does.",
     .examples = "script run Scripts/Opening.txt\n"
                 "script run Scripts/Menu.txt --key 10:Down --key 20:Enter --picture menu.png"},
    {.words = "script list",
     .summary = "print the instructions of a script",
     .arguments = kFile,
     .options = kOptions,
     .run = list,
     .examples = "script list Scripts/Opening.txt"},
    {.words = "script outline",
     .summary = "list the functions of a script: line and signature",
     .arguments = kFile,
     .run = outline,
     .examples = "script outline Scripts/Global.txt"},
    {.words = "formula",
     .summary = "calculate a formula and print the integer",
     .arguments = kFormula,
     .run = formula,
     .details = "Text with a semicolon is the body of a function and returns its result.",
     .examples = "formula '(7 + 3) * 2.5'\n"
                 "formula 'var i; var sum = 0; for (i = 1; i <= 10; i++) sum += i; return sum'"},
};

} // namespace

std::span<const Command> scriptCommands()
{
    return kCommands;
}

} // namespace varn::driver

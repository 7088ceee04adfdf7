#include "Context.h"
#include "Parser/XMLParser.h"
#include "TextEditor/TextDocument.h"
#include "Util/ProjectPath.h"
#include "Util/TextFile.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

void printText(Context& context, const TextDocument& document)
{
    const LineIndex& lines = document.getLines();
    context.printRecord({{"encoding", jsonText(encodingName(document.getEncoding()))},
                         {"lineEnding", jsonText(lines.getLineEndingText())},
                         {"lines", lines.getLineCount()},
                         {"length", document.getLength()}});
}

/// Of a document that did not load: what the loader leaves unsaid.
void tellMissing(Context& context, const WString& path)
{
    std::error_code fault;
    if (!isFile(path))
        context.complainUnread(path);
    else if (std::filesystem::is_empty(resolveProjectPath(path), fault))
        context.complain(toUtf8(path) + ": the file is empty");
}

Status xml(Context& context, const Arguments& arguments)
{
    XMLParser document;
    if (!document.load(arguments.text("FILE"))) {
        tellMissing(context, arguments.text("FILE"));
        return Status::Failed;
    }
    context.out().text(document.compose());
    if (!arguments.has("--save") || document.saveAs(arguments.text("--save")))
        return Status::Done;
    context.complain(arguments.utf8("--save") + ": the file cannot be written");
    return Status::Failed;
}

bool isUnicode(Encoding encoding)
{
    return encoding == Encoding::Undefine ||
           (encoding >= Encoding::Unicode && encoding <= Encoding::Utf8Bom);
}

bool loses(const WString& text, Encoding encoding)
{
    if (isUnicode(encoding))
        return false;
    const auto bytes = encodeText(text, encoding);
    return bytes && decodeBytes(asBytes(*bytes), encoding).text != text;
}

bool saveText(Context& context, TextDocument& document, const Arguments& arguments)
{
    const std::string out = arguments.utf8("--save");
    if (!document.save(fromUtf8(out))) {
        context.complain(out + ": the file cannot be written");
        return false;
    }
    if (loses(document.getText(), document.getEncoding()))
        context.complain(out + ": characters were lost that " +
                         toUtf8(encodingName(document.getEncoding())) + " does not have");
    return true;
}

Status text(Context& context, const Arguments& arguments)
{
    if (arguments.has("--encoding") && !arguments.has("--save"))
        throw UsageError("--encoding goes with --save", findDriverCommand("text"));
    TextDocument document;
    if (!document.load(arguments.text("FILE"))) {
        context.complainUnread(arguments.text("FILE"));
        return Status::Failed;
    }
    if (arguments.has("--save")) {
        const auto number = static_cast<int>(
            arguments.integer("--encoding", static_cast<int>(document.getEncoding())));
        document.setEncoding(*encodingFromNumber(number));
        return saveText(context, document, arguments) ? Status::Done : Status::Failed;
    }
    printText(context, document);
    return Status::Done;
}

constexpr Argument kFileWords[] = {{"FILE", "the file", Takes::File}};
constexpr Option kXmlOptions[] = {
    {"--save", "OUT", "write the document to OUT, in the encoding it declares", Takes::File},
};

constexpr Option kTextOptions[] = {
    {"--save", "OUT", "write the text to OUT", Takes::File},
    {"--encoding",
     "N",
     "the encoding to write: 0 ANSI, 1 Unicode, 2 UTF-16BE, 3 UTF-8, 4 UTF-8 with mark, "
     "5 Shift_JIS, 6 BIG5, 7 EUC_JP, 9 ISO-2022-JP; else the one found",
     Takes::Integer,
     {},
     -1,
     9},
};

constexpr Command kCommands[] = {
    {.words = "xml",
     .summary = "load a document and print it as saving would compose it",
     .arguments = kFileWords,
     .options = kXmlOptions,
     .run = xml,
     .examples = "xml Data/States.xml\nxml Data/States.xml --save copy.xml"},
    {.words = "text",
     .summary = "tell a text file's encoding and lines, or rewrite it",
     .arguments = kFileWords,
     .options = kTextOptions,
     .run = text,
     .details = "Without --save it prints the encoding, the line ending, the number of lines and "
                "the length in UTF-16 units.",
     .examples = "text Scripts/Global.txt\ntext old.txt --save new.txt --encoding 4"},
};

} // namespace

std::span<const Command> fileCommands()
{
    return kCommands;
}

} // namespace varn::driver

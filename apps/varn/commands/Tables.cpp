#include "Context.h"
#include "Game/Database/GameDatabase.h"
#include "Game/Database/StringTable.h"
#include "Util/ProjectPath.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

/// Null for what a table does not have.
Json orNull(WStringView text)
{
    return text.empty() ? Json() : Json(jsonText(text));
}

Json orNull(std::size_t size)
{
    return size == 0 ? Json() : Json(size);
}

Status listTables(Context& context, const Arguments&)
{
    Json list = Json::array();
    for (const GameTable* const table : knownTables()) {
        const TableInfo& info = table->getInfo();
        list.push_back({{"className", jsonText(info.className)},
                        {"tagName", orNull(info.tagName)},
                        {"datName", orNull(info.datName)},
                        {"dataSize", orNull(table->getFieldTable().recordSize)},
                        {"minRows", info.minRows}});
    }
    context.printRecords(list);
    return Status::Done;
}

std::int64_t ownMinimum(const TableFile& file)
{
    const auto* const table = dynamic_cast<const GameTable*>(&file);
    return table ? static_cast<std::int64_t>(table->getInfo().minRows) : 0;
}

/// Why a load gave no table.
void tellUnread(Context& context, const WString& fileName)
{
    const WString path = WString(GameDataIO::dataPath) + fileName;
    if (isFile(path))
        context.complain(toUtf8(path) + ": the table's element could not be read");
    else
        context.complainUnread(path);
}

/// A document that was refused is not written over: it can still be repaired.
bool saveTable(Context& context, TableFile& file)
{
    const auto* const table = dynamic_cast<const GameTable*>(&file);
    if (table && table->wasRefused()) {
        context.complain("not saved: the file could not be read, and saving would empty it");
        return false;
    }
    return file.save();
}

Status showTable(Context& context, const Arguments& arguments)
{
    const WString fileName = arguments.text("FILE");
    TableFile* const file = findTableFile(fileName);
    if (!file)
        throw UsageError("no table has the file '" + arguments.utf8("FILE") +
                             "'; FILE is a file's name in Data, as in 'varn table States.xml'",
                         findDriverCommand("table"));
    const auto minRows = static_cast<std::size_t>(arguments.integer("MINROWS", ownMinimum(*file)));
    bool isDone = file->load(tableFileName(fileName), minRows);
    if (!isDone)
        tellUnread(context, fileName);
    context.out().text(file->compose());
    if (arguments.has("--save"))
        isDone = saveTable(context, *file) && isDone;
    return isDone ? Status::Done : Status::Failed;
}

Status getString(Context& context, const Arguments& arguments)
{
    context.out().line(StringTable::instance().get(arguments.text("KEY")));
    return Status::Done;
}

Status defaultText(Context& context, const Arguments& arguments)
{
    context.out().line(getDefaultText(static_cast<int>(arguments.integer("ID"))));
    return Status::Done;
}

constexpr Argument kTableWords[] = {
    {"FILE", "the table's file name in Data: State.dat, States.xml, TrapList.xml",
     Takes::TableFile},
    {"MINROWS",
     "pad with blank rows up to this many; else the table's own minimum",
     Takes::Integer,
     Occurs::Optional,
     {},
     0,
     kMaximumRows},
};
constexpr Option kTableOptions[] = {
    {.name = "--save", .help = "write the document to the data folder"},
};
constexpr Argument kKeyWords[] = {{"KEY", "the text's English default"}};
constexpr Argument kIdWords[] = {{"ID", "number of the text", Takes::Integer}};

constexpr Command kCommands[] = {
    {.words = "tables",
     .summary = "list the tables that the system knows",
     .run = listTables,
     .details = "Prints class, tag, name and record size of the binary form, and the least number "
                "of rows; a minus stands for what a table does not have."},
    {.words = "table",
     .summary = "load a table and print its document",
     .arguments = kTableWords,
     .options = kTableOptions,
     .run = showTable,
     .details = "What is printed is what saving would write, but as UTF-8; --save writes the file. "
                "Of State.dat, Data/States.xml is read where it exists.",
     .examples = "table State.dat\ntable TrapList.xml 32 --save"},
    {.words = "strings get",
     .summary = "print a text of the string table",
     .arguments = kKeyWords,
     .run = getString,
     .needs = Needs::Texts,
     .examples = "strings get Tavern"},
    {.words = "strings text",
     .summary = "print one of the game's default texts by its number",
     .arguments = kIdWords,
     .run = defaultText,
     .details = "The numbers run from 0 to 106; any other gives \"???\".",
     .examples = "strings text 72"},
};

} // namespace

std::span<const Command> tableCommands()
{
    return kCommands;
}

} // namespace varn::driver

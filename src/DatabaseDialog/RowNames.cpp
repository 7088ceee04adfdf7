#include "DatabaseDialog/RowNames.h"

#include "Component/Translation.h"
#include "Game/Database/GameDatabase.h"
#include "Game/Database/TypeDatabase.h"

#include <algorithm>
#include <set>

namespace varn {

namespace {

void collectReferences(const FieldTable& table, std::set<WString>& tags)
{
    for (const Field& field : table.fields) {
        if (!field.refersTo.empty())
            tags.emplace(field.refersTo);
        if (field.refersToOf) // the row says which one
            tags.insert({u"Attributes", u"States", u"Races"});
        if (field.children)
            collectReferences(field.children->table(), tags);
    }
}

} // namespace

WString numberedText(std::size_t number, WStringView name)
{
    constexpr std::size_t kDigits = 3;
    WString digits = toDecimal(static_cast<std::int64_t>(number));
    if (digits.size() < kDigits)
        digits.insert(0, kDigits - digits.size(), u'0');
    return digits + u": " + WString(name);
}

WString rowName(const GameTable& table, std::size_t row)
{
    const WString name = table.rowAt(row).getName();
    if (name.empty() && &table == &SpellTypeDatabase::instance())
        return translate(SpellTypeDatabase::defaultName(row));
    return name;
}

std::vector<Choice> rowChoices(WStringView tag)
{
    std::vector<Choice> choices;
    const GameTable* const table = findTable(tag);
    for (std::size_t row = 0; table && row < table->size(); ++row)
        choices.push_back(
            {static_cast<std::int32_t>(row), numberedText(row, rowName(*table, row))});
    return choices;
}

std::vector<Choice> choicesOf(const Field& field, const GameRow* row)
{
    std::vector<Choice> choices;
    for (const WStringView label : field.choices)
        choices.push_back({static_cast<std::int32_t>(choices.size()), translate(label)});
    if (!choices.empty())
        return choices;
    if (field.refersToOf)
        return row ? rowChoices(field.refersToOf(*row)) : choices;
    return rowChoices(field.refersTo);
}

void loadReferredTables(std::span<GameTable* const> tables)
{
    std::set<WString> tags;
    for (const GameTable* const table : tables)
        collectReferences(table->getFieldTable(), tags);
    for (const WString& tag : tags) {
        GameTable* const table = findTable(tag);
        const bool isEdited = std::ranges::find(tables, table) != tables.end();
        if (table && table->empty() && !isEdited)
            table->load(table->getInfo().fileName, table->getInfo().minRows);
    }
}

} // namespace varn

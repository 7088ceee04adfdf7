#include "Game/Database/StringTable.h"

#include "Game/Database/LanguageManager.h"
#include "Game/Database/ToolFile.h"
#include "Parser/StoredText.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace {

constexpr WStringView kTag = u"StringTable";
constexpr WStringView kEntryTag = u"string";

/// Reads one entry: key and text in the element, or, in the older form, both in attributes. An
/// entry without a key says nothing.
void readEntry(StringTable& table, const Element& entry)
{
    WStringView key = entry.getString(u"name");
    WString text;
    if (!key.empty()) {
        text = entry.collectText();
    } else {
        key = entry.getString(u"id");
        text = entry.getString(u"text");
    }
    if (!key.empty())
        table.set(key, decodeText(text, LineBreaks::Drop));
}

} // namespace

StringTable& StringTable::instance()
{
    static StringTable table;
    return table;
}

const WString& StringTable::get(WStringView key)
{
    const auto found = strings.find(key);
    return found != strings.end() ? found->second : strings.emplace(key, key).first->second;
}

void StringTable::set(WStringView key, WStringView text)
{
    strings.insert_or_assign(WString(key), WString(text));
}

std::string StringTable::getText(int id)
{
    return narrow(get(widen(getDefaultText(id))));
}

bool StringTable::load(WStringView name)
{
    XMLParser parser;
    if (!loadToolFile(parser, name))
        return false;
    fileName = name;
    loadFromElement(parser.getRootElement());
    return true;
}

void StringTable::loadFromElement(const Element* root)
{
    const Element* const table = root ? root->findElement(kTag) : nullptr;
    if (!table)
        return;
    for (const Element* child = table->getFirstChild(); child; child = child->getNextSibling())
        if (child->getTagName() == kEntryTag)
            readEntry(*this, *child);
}

void StringTable::fill(Element& table) const
{
    for (const auto& [key, text] : strings) {
        Element* const entry = table.addElement(kEntryTag);
        entry->setString(u"name", key);
        entry->addText(text);
    }
}

bool StringTable::save(WStringView name) const
{
    XMLParser document;
    fill(*document.makeRoot(kTag));
    return document.saveAs(name);
}

WString StringTable::compose() const
{
    XMLParser document;
    fill(*document.makeRoot(kTag));
    return document.compose();
}

WString StringTable::toXml() const
{
    NodeArena arena;
    Element* const table = arena.makeElement(kTag);
    fill(*table);
    return table->toString();
}

void StringTable::remove(WStringView key)
{
    const auto found = strings.find(key);
    if (found != strings.end())
        strings.erase(found);
}

namespace {

/// The project's own texts; those beside the program are the tool's business.
void loadProjectTable(StringTable& table, WStringView fileName)
{
    if (isFile(fileName))
        table.load(fileName);
}

} // namespace

void loadStringTables()
{
    StringTable& table = StringTable::instance();
    table.clear();
    table.load(u"Resources/StringTable.xml");
    table.loadFromElement(LanguageManager::instance().getStringTable());
    loadProjectTable(table, u"Data/StringTable.xml");
    if (!LanguageManager::instance().isEnglish())
        return;
    StringTable english;
    english.load(u"Resources/StringTable2.xml");
    loadProjectTable(english, u"Data/StringTable2.xml");
    for (const auto& [key, text] : english.getStrings())
        table.set(key, text);
}

} // namespace varn

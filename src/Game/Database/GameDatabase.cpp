#include "Game/Database/GameDatabase.h"

#include "Game/Database/EnemyAction.h"
#include "Game/Database/EnemyTable.h"
#include "Game/Database/FlagDatabase.h"
#include "Game/Database/ItemTable.h"
#include "Game/Database/MarkerDatabase.h"
#include "Game/Database/Npc.h"
#include "Game/Database/SkillModel.h"
#include "Game/Database/StateModel.h"
#include "Game/Database/StoryTables.h"
#include "Game/Database/SystemDatabase.h"
#include "Game/Database/ToolTables.h"
#include "Game/Database/TreasureBox.h"
#include "Game/Database/TypeDatabase.h"
#include "Game/Database/VersionControl.h"
#include "Game/Database/WizAttributeData.h"
#include "Game/Database/WizCharClass.h"
#include "Game/Database/WizCharRace.h"
#include "Game/Database/WizCharacter.h"
#include "Game/Database/WizEnemy.h"
#include "Game/Database/WizFloor.h"
#include "Game/Database/WizItem.h"
#include "Util/ProjectPath.h"

#include <cassert>

namespace varn {

namespace {

struct Request
{
    WStringView fileName;
    std::size_t minRows;
};

constexpr Request kStartup[] = {
    {u"System.xml", 1},   {u"VersionControls.xml", 0}, {u"Markers.xml", 0},
    {u"FlagList.xml", 0}, {u"Scripts.xml", 0},         {u"NovelScripts.xml", 0},
    {u"Formulas.xml", 0}, {u"EventFloor.xml", 0},      {u"EnemyTable.dat", 64},
};

constexpr WStringView kCharacters = u"CharacterList.xml";

constexpr Request kDatabase[] = {
    {u"Types.xml", 0},   {u"Attribute.dat", 16},  {u"State.dat", 16},     {u"Race.dat", 64},
    {u"Class.dat", 16},  {u"Skill.dat", 255},     {u"Item.dat", 255},     {u"Action.dat", 255},
    {u"Enemy.dat", 255}, {u"EnemyTable.dat", 64}, {u"ItemTable.dat", 64}, {kCharacters, 0},
};

constexpr Request kExport[] = {
    {u"Attribute.dat", 16},   {u"State.dat", 16},
    {u"Race.dat", 64},        {u"Class.dat", 16},
    {u"Skill.dat", 255},      {u"Item.dat", 255},
    {u"Enemy.dat", 255},      {u"ItemTable.dat", 64},
    {u"Action.dat", 255},     {u"EnemyTable.dat", 64},
    {u"TrapList.xml", 16},    {u"EventFloor.xml", 16},
    {kCharacters, 0},         {u"NPCs.xml", 1},
    {u"System.xml", 1},       {u"MessageTable.xml", 0},
    {u"FlagList.xml", 0},     {u"Scripts.xml", 0},
    {u"NovelScripts.xml", 0}, {u"Formulas.xml", 0},
    {u"Types.xml", 0},        {u"VersionControls.xml", 0},
};

LoadedTable loadTable(const Request& request)
{
    TableFile* const table = findTableFile(request.fileName);
    assert(table);
    const bool result = table->load(request.fileName, request.minRows);
    return {request.fileName, table, table->size(), result};
}

/// The name of the table's file that `fileName` spells, or empty.
WString fileNameIn(const TableInfo& info, WStringView fileName)
{
    if (equalsIgnoringAsciiCase(fileName, info.fileName))
        return WString(info.fileName);
    WString document = WString(info.tagName).append(u".xml");
    const bool isDocument = !info.tagName.empty() && equalsIgnoringAsciiCase(fileName, document);
    return isDocument ? document : WString();
}

} // namespace

std::span<GameTable* const> knownTables()
{
    static GameTable* const kTables[] = {
        &WizAttributeList::instance(),
        &StateDatabase::instance(),
        &WizCharRace::instance(),
        &WizCharClassList::instance(),
        &SkillDatabase::instance(),
        &WizItemList::instance(),
        &EnemyActionList::instance(),
        &WizEnemyList::instance(),
        &EnemyTableDatabase::instance(),
        &ItemTableList::instance(),
        &TreasureBoxTrapList::instance(),
        &WizFloorList::instance(),
        &WizCharacterList::instance(),
        &WizPartyList::instance(),
        &NPCList::instance(),
        &MessageTable::instance(),
        &FlagDatabase::instance(),
        &ScriptDatabase::instance(),
        &NovelScriptDatabase::instance(),
        &FormulaDatabase::instance(),
        &MarkerDatabase::instance(),
        &VersionControlDatabase::instance(),
        &SpellTypeDatabase::instance(),
        &WeaponTypeDatabase::instance(),
        &TreasureBoxList::instance(),
        &TileSettingList::instance(),
        &TypingWordFileList::instance(),
        &SystemDatabase::instance(),
    };
    return kTables;
}

TableFile* findTableFile(WStringView fileName)
{
    if (equalsIgnoringAsciiCase(fileName, TypesFile::kFileName))
        return &TypesFile::instance();
    for (GameTable* const table : knownTables())
        if (!fileNameIn(table->getInfo(), fileName).empty())
            return table;
    return nullptr;
}

WString tableFileName(WStringView fileName)
{
    for (GameTable* const table : knownTables())
        if (WString name = fileNameIn(table->getInfo(), fileName); !name.empty())
            return name;
    return WString(fileName);
}

GameTable* findTable(WStringView tagName)
{
    for (GameTable* const table : knownTables())
        if (!tagName.empty() && table->getTagName() == tagName)
            return table;
    return nullptr;
}

std::vector<LoadedTable> loadStartupTables()
{
    std::vector<LoadedTable> loaded;
    for (const Request& request : kStartup)
        loaded.push_back(loadTable(request));
    return loaded;
}

std::vector<LoadedTable> loadDatabaseTables()
{
    const bool hasCharacters = isFile(WString(GameDataIO::dataPath).append(kCharacters));
    std::vector<LoadedTable> loaded;
    for (const Request& request : kDatabase)
        if (hasCharacters || request.fileName != kCharacters)
            loaded.push_back(loadTable(request));
    return loaded;
}

std::vector<LoadedTable> loadExportTables()
{
    std::vector<LoadedTable> loaded;
    for (const Request& request : kExport)
        loaded.push_back(loadTable(request));
    return loaded;
}

} // namespace varn

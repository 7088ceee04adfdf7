#include "DatabaseDialog/DatabaseWindow.h"

#include "DatabaseDialog/DatabaseDialog.h"
#include "DatabaseDialog/StringTableDialog.h"
#include "DatabaseDialog/TextCheck.h"
#include "Game/Database/EnemyAction.h"
#include "Game/Database/EnemyTable.h"
#include "Game/Database/FlagDatabase.h"
#include "Game/Database/GameDatabase.h"
#include "Game/Database/ItemTable.h"
#include "Game/Database/MarkerDatabase.h"
#include "Game/Database/Npc.h"
#include "Game/Database/SkillModel.h"
#include "Game/Database/StateModel.h"
#include "Game/Database/StoryTables.h"
#include "Game/Database/SystemDatabase.h"
#include "Game/Database/TreasureBox.h"
#include "Game/Database/TypeDatabase.h"
#include "Game/Database/VersionControl.h"
#include "Game/Database/WizAttributeData.h"
#include "Game/Database/WizCharClass.h"
#include "Game/Database/WizCharRace.h"
#include "Game/Database/WizCharacter.h"
#include "Game/Database/WizEnemy.h"
#include "Game/Database/WizItem.h"

#include <algorithm>

namespace varn {

namespace {

/// A page by its list class, so that the table below is made of constants.
struct PageRow
{
    WStringView title;
    GameTable& (*table)();
    PageOutline::Shape shape = PageOutline::Shape::Rows;
    WString (*check)(WStringView name, WStringView text) = nullptr;
};

template <class List>
GameTable& tableOf()
{
    return List::instance();
}

constexpr PageRow kRules[] = {
    {u"Chars", tableOf<WizCharacterList>},      {u"Skills", tableOf<SkillDatabase>},
    {u"Items", tableOf<WizItemList>},           {u"Classes", tableOf<WizCharClassList>},
    {u"Races", tableOf<WizCharRace>},           {u"Enemies", tableOf<WizEnemyList>},
    {u"Action", tableOf<EnemyActionList>},      {u"States", tableOf<StateDatabase>},
    {u"Attributes", tableOf<WizAttributeList>}, {u"EnemyTables", tableOf<EnemyTableDatabase>},
    {u"ItemTables", tableOf<ItemTableList>},
};
constexpr PageRow kFlags[] = {{u"Flag List", tableOf<FlagDatabase>}};
constexpr PageRow kTreasure[] = {
    {u"Treasure Boxes", tableOf<TreasureBoxList>},
    {u"Traps", tableOf<TreasureBoxTrapList>},
};
constexpr PageRow kSystem[] = {
    {u"System", tableOf<SystemDatabase>, PageOutline::Shape::OneRow},
    {u"Version", tableOf<VersionControlDatabase>},
};
constexpr PageRow kPersons[] = {{u"NPCs", tableOf<NPCList>}};
constexpr PageRow kMessages[] = {{u"Messages", tableOf<MessageTable>}};
constexpr PageRow kScripts[] = {
    {u"Scripts", tableOf<ScriptDatabase>, PageOutline::Shape::Rows, checkScript}};
constexpr PageRow kNovels[] = {{u"Novel Scripts", tableOf<NovelScriptDatabase>}};
constexpr PageRow kFormulas[] = {
    {u"Formulas", tableOf<FormulaDatabase>, PageOutline::Shape::Rows, checkFormula}};
constexpr PageRow kMarkers[] = {{u"Markers", tableOf<MarkerDatabase>}};
constexpr PageRow kTypes[] = {
    {u"Spell Types", tableOf<SpellTypeDatabase>},
    {u"Weapon Types", tableOf<WeaponTypeDatabase>},
};

struct WindowRow
{
    int command;
    WStringView title;
    std::span<const PageRow> pages;
};

constexpr WindowRow kWindows[] = {
    {221, u"Database", kRules},
    {223, u"Flags", kFlags},
    {226, u"Treasure Boxes", kTreasure},
    {227, u"System Settings", kSystem},
    {232, u"NPCs", kPersons},
    {233, u"Messages", kMessages},
    {234, u"Scripts", kScripts},
    {235, u"Novel Scripts", kNovels},
    {236, u"Formulas", kFormulas},
    {237, u"Markers", kMarkers},
    {238, u"Spell and Weapon Types", kTypes},
};

constexpr int kRulesCommand = 221, kStringTableCommand = 224;

void load(const WindowRow& window)
{
    if (window.command == kRulesCommand) {
        loadDatabaseTables();
        return;
    }
    std::vector<WStringView> loaded;
    for (const PageRow& page : window.pages) {
        const TableInfo& info = page.table().getInfo();
        if (std::ranges::find(loaded, info.fileName) != loaded.end())
            continue; // two tables in one document
        loaded.push_back(info.fileName);
        page.table().load(info.fileName, info.minRows);
    }
}

} // namespace

bool showDatabaseWindow(BaseWindow* parent, int command)
{
    if (command == kStringTableCommand) {
        StringTableDialog().doModal(parent);
        return true;
    }
    const auto window = std::ranges::find(kWindows, command, &WindowRow::command);
    if (window == std::end(kWindows))
        return false;
    load(*window);
    std::vector<PageOutline> pages;
    std::vector<GameTable*> tables;
    for (const PageRow& page : window->pages) {
        pages.push_back({page.title, &page.table(), page.shape, page.check});
        tables.push_back(&page.table());
    }
    loadReferredTables(tables);
    DatabaseDialog(window->title, std::move(pages)).doModal(parent);
    // What was left changed by Cancel goes; what was saved comes into force as at a start.
    load(*window);
    return true;
}

} // namespace varn

#include "MapEditor3D/frame/panes/MapPropertyDialog.h"

#include "Component/Translation.h"
#include "Game/Database/EnemyTable.h"
#include "Game/Map/MapTree.h"
#include "MapEditor3D/frame/panes/LoadedTable.h"
#include "MapEditor3D/frame/panes/MapPictureChoice.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

namespace varn {

MapPropertyDialog::MapPropertyDialog(const WizMap& map, WStringView name)
    : Dialog(name.empty() ? u"Create a new map" : u"Map Properties"), map(map), before(name),
      teleportable(u"&Teleporting works here"), displayable(u"Ma&p is shown to players"),
      enemyTable(u"(none)"),
      bgm(ResourceCategory::BackgroundMusic, ResourceChoice::Naming::FileName),
      bgs(ResourceCategory::BackgroundSound, ResourceChoice::Naming::FileName),
      footstep(ResourceCategory::SoundEffect, ResourceChoice::Naming::FileName),
      door(ResourceCategory::SoundEffect, ResourceChoice::Naming::FileName)
{
    setInitialSize(520, 560);
}

void MapPropertyDialog::build()
{
    BoxLayout(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None).add(tabs, 1);
    buildGeneral();
    buildPictures();
    buildSounds();
    fill();
}

void MapPropertyDialog::buildGeneral()
{
    form = std::make_unique<FormLayout>(tabs.addPage(u"General"));
    form->addRow(u"&Name:", name);
    name.setHint(u"Name of the map's files and in the tree");
    form->addRow(u"&Display name:", displayName);
    displayName.setHint(u"What players read");
    form->addRow(u"Display name &2:", displayName2);
    displayName2.setHint(u"What players read in the game's second language");
    form->addRow(u"&Columns:", col);
    form->addRow(u"&Rows:", row);
    form->addRow(sizeNote);
    sizeNote.setDimmed(true);
    sizeNote.setWrapped(true);
    form->addRow(u"&Level:", level);
    level.setHint(u"Number of the floor in the dungeon");
    form->addRow(u"&Visible distance:", visibleDistance);
    visibleDistance.setHint(u"Cells that one sees ahead; 0: as the system says");
    form->addRow(teleportable);
    form->addRow(displayable);
    form->addRow(u"&Encounters:", enemyTable).setBuddy(enemyTable.getList());
    form->addRow(u"Encounter &steps:", encounterSteps);
    encounterSteps.setHint(u"Steps between two checks for an encounter");
    col.onAction([this] { tellSize(); });
    row.onAction([this] { tellSize(); });
}

void MapPropertyDialog::buildPictures()
{
    FormLayout page(tabs.addPage(u"Pictures"));
    for (const MapPictureField& field : mapPictureFields()) {
        pictures.push_back({field.type, makePictureChoice(field)});
        ResourceChoice& choice = *pictures.back().choice;
        page.addRow(field.label, choice).setBuddy(choice.getList());
    }
    page.addRow(u"Back&ground Color:", background);
}

void MapPropertyDialog::buildSounds()
{
    FormLayout page(tabs.addPage(u"Sounds"));
    page.addRow(u"&Music:", bgm).setBuddy(bgm.getList());
    page.addRow(u"Background &sound:", bgs).setBuddy(bgs.getList());
    page.addRow(u"&Footsteps:", footstep).setBuddy(footstep.getList());
    page.addRow(u"&Doors:", door).setBuddy(door.getList());
    page.addWide(audition);
    for (ResourceChoice* const choice : {&bgm, &bgs, &footstep, &door})
        choice->onAction([this, choice] { audition.setFile(choice->getPath()); });
}

void MapPropertyDialog::fill()
{
    name.setText(before);
    displayName.setText(widen(map.names[0]));
    displayName2.setText(widen(map.names[1]));
    col.setValue(map.cols);
    row.setValue(map.rows);
    level.setValue(map.level);
    visibleDistance.setValue(map.getStoredVisibleDistance());
    teleportable.setChecked(map.teleportable);
    displayable.setChecked(map.displayable);
    enemyTable.setTable(loadedTable<EnemyTableDatabase>());
    enemyTable.setRow(map.enemyTableId);
    encounterSteps.setValue(map.encounterSteps);
    for (const Picture& picture : pictures)
        picture.choice->setName(map.getImageName(picture.type));
    background.setColor(map.backgroundColor);
    bgm.setName(map.bgm);
    audition.setFile(bgm.getPath());
    bgs.setName(map.bgs);
    footstep.setName(map.footstep);
    door.setName(map.doorSe);
    tellSize();
}

void MapPropertyDialog::tellSize()
{
    const bool smaller =
        !before.empty() && (col.getValue() < map.cols || row.getValue() < map.rows);
    sizeNote.setText(translate(smaller ? u"Cells beyond the new size are lost with the next save."
                                       : u"1 to 100 cells each way"));
    sizeNote.setWarning(smaller);
}

bool MapPropertyDialog::checkName()
{
    const WString typed = name.getText();
    const bool unchanged = !before.empty() && equalsIgnoringAsciiCase(typed, before);
    const WStringView fault = unchanged ? WStringView() : mapTree::nameFault(typed);
    form->setProblem(name, translate(fault));
    if (fault.empty())
        return true;
    tabs.selectPage(0);
    name.setFocus();
    return false;
}

bool MapPropertyDialog::accept()
{
    if (!checkName())
        return false;
    WizMap chosen;
    chosen.copyPropertiesFrom(map);
    if (displayName.getText() != widen(map.names[0])) // bytes that are no text are kept
        chosen.names[0] = narrow(displayName.getText());
    if (displayName2.getText() != widen(map.names[1]))
        chosen.names[1] = narrow(displayName2.getText());
    chosen.cols = col.getValue();
    chosen.rows = row.getValue();
    chosen.level = level.getValue();
    chosen.setVisibleDistance(visibleDistance.getValue());
    chosen.teleportable = teleportable.isChecked();
    chosen.displayable = displayable.isChecked();
    chosen.enemyTableId = enemyTable.getRow();
    chosen.encounterSteps = encounterSteps.getValue();
    for (const Picture& picture : pictures)
        chosen.setImageName(picture.type, picture.choice->getName());
    chosen.bgm = bgm.getName();
    chosen.bgs = bgs.getName();
    chosen.footstep = footstep.getName();
    chosen.doorSe = door.getName();
    values = mapPropertiesOf(chosen, name.getText(), arena);
    backgroundColor = background.getColor();
    return true;
}

BaseWindow* MapPropertyDialog::firstFocus()
{
    return before.empty() ? &name : &displayName;
}

// What the dialog is used for

namespace {

/// A new map looks as a map without a side document does.
WizMap blankMap()
{
    WizMap map;
    NodeArena arena;
    map.fromXml(*arena.makeElement(u"Map"));
    return map;
}

/// The rename in files and tree that goes with another name. False: it was refused.
bool renameMap(ProjectSession& session, WStringView before, WStringView after)
{
    if (before == after)
        return true;
    MapHierarchy& tree = session.getHierarchy();
    const auto entry = tree.findMap(before);
    return entry && mapTree::rename(tree, *entry, WString(after)) && session.saveHierarchy();
}

} // namespace

std::optional<WString> createMapByDialog(ProjectSession& session, BaseWindow* parentWindow,
                                         std::optional<std::size_t> parent)
{
    WizMap map = blankMap();
    MapPropertyDialog dialog(map, {});
    if (dialog.doModal(parentWindow) != Dialog::Ok)
        return std::nullopt;
    applyMapProperties(map, dialog.getValues());
    map.backgroundColor = dialog.getBackgroundColor();
    WString name(dialog.getValues().getString(u"name"));
    if (!mapTree::createMap(session.getHierarchy(), parent, name, map))
        return std::nullopt;
    session.saveHierarchy();
    return name;
}

bool editOpenMapByDialog(ProjectSession& session, WizMapEditor& editor, BaseWindow* parentWindow)
{
    const WString before = editor.getMapName();
    MapPropertyDialog dialog(editor.getMap(), before);
    if (dialog.doModal(parentWindow) != Dialog::Ok)
        return false;
    const WString after(dialog.getValues().getString(u"name"));
    if (renameMap(session, before, after)) {
        WString& file = editor.getMap().fileName;
        file = file.substr(0, file.size() - before.size()) + after;
    }
    editor.getMap().backgroundColor = dialog.getBackgroundColor();
    applyMapProperties(editor, dialog.getValues(), MapOrigin::Existing);
    return true;
}

bool editMapFileByDialog(ProjectSession& session, WStringView mapName, BaseWindow* parentWindow)
{
    WizMap map;
    try {
        map.load(mapTree::pathOf(mapName) + u".map");
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
        return false;
    }
    MapPropertyDialog dialog(map, mapName);
    if (dialog.doModal(parentWindow) != Dialog::Ok)
        return false;
    const WString after(dialog.getValues().getString(u"name"));
    if (renameMap(session, mapName, after))
        map.fileName = map.fileName.substr(0, map.fileName.size() - mapName.size()) + after;
    applyMapProperties(map, dialog.getValues());
    if (map.save(map.fileName))
        return true;
    host().showMessage(u"Couldn't save the .map file: " + map.fileName);
    return false;
}

} // namespace varn

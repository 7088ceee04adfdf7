#include "MapEditor3D/frame/panes/EventDialog.h"

#include "Component/Translation.h"
#include "Game/Database/FlagDatabase.h"
#include "Game/Database/TreasureBox.h"
#include "Game/Database/WizFloor.h"
#include "MapEditor3D/frame/panes/EventEditing.h"
#include "MapEditor3D/frame/panes/LineEnds.h"
#include "MapEditor3D/frame/panes/LoadedTable.h"
#include "MapEditor3D/frame/panes/ScriptCheck.h"
#include "MapEditor3D/frame/panes/WarpLocationDialog.h"

#include <algorithm>

namespace varn {

namespace {

/// A value of a short list and what people read.
struct Choice
{
    std::int32_t value;
    WStringView text;
};

/// The next bit behind the four sides stands for any of them.
constexpr std::int32_t kRandomDirection = 16;

constexpr Choice kDirections[] = {
    {Direction::None, u"None"},   {Direction::North, u"North"}, {Direction::East, u"East"},
    {Direction::South, u"South"}, {Direction::West, u"West"},   {kRandomDirection, u"Random"},
};
constexpr Choice kTriggers[] = {{0, u"On Collision"}, {1, u"Search Button"}, {2, u"Action Button"}};
constexpr Choice kPriorities[] = {
    {-1, u"As its kind"}, {0, u"Default"}, {1, u"Floor"}, {2, u"Wall"}, {3, u"Ceiling"},
};

/// Fills a list and selects a value; one that the list lacks stays as it is, under the fallback
/// text.
std::vector<std::int32_t> fillChoices(ComboBox& list, std::span<const Choice> choices,
                                      std::int32_t selected, WStringView fallback)
{
    std::vector<std::int32_t> values;
    std::vector<WString> texts;
    for (const Choice& choice : choices) {
        values.push_back(choice.value);
        texts.push_back(translate(choice.text));
    }
    auto found = std::ranges::find(values, selected);
    if (found == values.end()) {
        values.push_back(selected);
        texts.push_back(translate(fallback) + u" (" + toDecimal(selected) + u")");
        found = values.end() - 1;
    }
    list.setItems(texts);
    list.setSelectedIndex(static_cast<int>(found - values.begin()));
    return values;
}

std::int32_t chosenValue(const ComboBox& list, const std::vector<std::int32_t>& values)
{
    return values.at(static_cast<std::size_t>(std::max(0, list.getSelectedIndex())));
}

bool isTreasureBox(std::int32_t kind)
{
    const WizFloorData* const row = WizFloorList::instance().find(kind);
    return row && row->getTreasurebox();
}

bool isWarp(std::int32_t kind)
{
    const WizFloorData* const row = WizFloorList::instance().find(kind);
    return row && row->getWarp();
}

} // namespace

std::unique_ptr<GameEvent> inClassOfKind(const GameEvent& event)
{
    const auto* const box = dynamic_cast<const TreasureBoxEvent*>(&event);
    if (isTreasureBox(event.type) == (box != nullptr))
        return event.clone();
    if (box)
        return std::make_unique<GameEvent>(event);
    auto made = std::make_unique<TreasureBoxEvent>();
    static_cast<GameEvent&>(*made) = event;
    return made;
}

EventDialog::EventDialog(const WizMap& map, const GameEvent& event, const GameEvent* self)
    : Dialog(self ? u"Edit Event" : u"Create Event"), map(map), event(inClassOfKind(event)),
      self(self), x(0, map.cols - 1), y(0, map.rows - 1), hitbox(u"Has &Hitbox"),
      condition(u"(no condition)"), warpButton(u"&Warp Location..."), scriptLabel(u"&Script:"),
      checkButton(u"Chec&k")
{
    setInitialSize(880, 600);
}

void EventDialog::build()
{
    constexpr int kFieldsWidth = 320;
    BoxLayout(getPane(), BoxLayout::Axis::Row, BoxLayout::Margin::None)
        .add(fields)
        .add(scriptPane, 1);
    fields.setMinimumSize(kFieldsWidth, 0);
    buildFields();
    buildScript();
    fill();
}

void EventDialog::buildFields()
{
    form = std::make_unique<FormLayout>(fields, BoxLayout::Margin::None);
    form->addRow(u"&Name:", name);
    form->addRow(u"Na&me 2:", name2);
    name2.setHint(u"The name in the game's second language");
    form->addRow(u"&Kind:", kind).setBuddy(kind.getList());
    form->addRow(u"&X:", x);
    form->addRow(u"&Y:", y);
    x.setHint(u"Column, from the left");
    y.setHint(u"Row, from the top");
    form->addRow(u"&Direction:", direction);
    form->addRow(u"&Trigger:", trigger);
    form->addRow(hitbox);
    form->addRow(u"Dis&play Position:", priority);
    form->addRow(u"Mo&ve:", move);
    move.setHint(u"Movement rule, by its number in the game's scripts; 0: it stands");
    form->addRow(u"&Condition:", condition).setBuddy(condition.getList());
    form->addRow(u"Sp&rite:", sprite);
    sprite.setHint(u"Name of a sprite; the files of a map do not keep it");
    form->addRow(u"Treasure &box:", treasureBox).setBuddy(treasureBox.getList());
    form->addRow(warpButton);
    kind.onAction([this] { kindChanged(); });
    warpButton.onAction([this] { chooseWarp(); });
}

void EventDialog::buildScript()
{
    BoxLayout column(scriptPane, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    column.add(scriptLabel).add(script, 1).add(checkRow).add(checkResult);
    scriptLabel.setBuddy(script);
    script.setFixedPitch();
    constexpr int kLeastWidth = 320, kLeastHeight = 160;
    script.setMinimumSize(kLeastWidth, kLeastHeight);
    checkResult.setWrapped(true);
    BoxLayout(checkRow, BoxLayout::Axis::Row, BoxLayout::Margin::None)
        .add(checkButton)
        .addStretch();
    checkButton.setHint(u"Compile the script and tell what is wrong with it");
    checkButton.onAction([this] { check(); });
    script.onChange([this] { checkResult.setText({}); });
}

void EventDialog::fill()
{
    name.setText(event->names[0]);
    name2.setText(event->names[1]);
    kind.setTable(loadedTable<WizFloorList>());
    kind.setRow(event->type);
    x.setValue(event->x);
    y.setValue(event->y);
    directions =
        fillChoices(direction, kDirections, event->direction.getValue(), u"Direction::Undefined");
    triggers =
        fillChoices(trigger, kTriggers, event->trigger, u"Exception: undefined trigger type");
    priorities = fillChoices(priority, kPriorities, event->priority,
                             u"Exception: undefined DisplayPosition");
    hitbox.setChecked(event->hitbox == 1);
    move.setValue(event->move);
    condition.setFirstRow(1); // flag 0 is read as no condition
    condition.setTable(loadedTable<FlagDatabase>());
    condition.setRow(event->conditions);
    sprite.setText(event->sprite);
    treasureBox.setTable(loadedTable<TreasureBoxList>());
    const auto* const box = dynamic_cast<const TreasureBoxEvent*>(event.get());
    treasureBox.setRow(box ? box->treasureboxID : 0);
    script.setText(event->script);
    startScript = self ? eventEditing::defaultScript(event->type) : event->script;
    kindChanged();
}

void EventDialog::kindChanged()
{
    const std::int32_t row = kind.getRow();
    treasureBox.setEnabled(isTreasureBox(row));
    warpButton.setEnabled(isWarp(row));
    script.setReadOnly(false);
    // A script that no one touched gives way to that of the new kind.
    const WString typed = script.getText();
    if (row == event->type || (!typed.empty() && typed != replaceAll(startScript, u"\r\n", u"\n")))
        return;
    event->type = row;
    startScript = eventEditing::defaultScript(row);
    script.setText(startScript);
}

void EventDialog::chooseWarp()
{
    const auto target = parseWarp(script.getText());
    WarpLocationDialog dialog(map, target.value_or(MapCell{x.getValue(), y.getValue()}));
    if (dialog.doModal(&getPane()) == Ok)
        script.setText(warpScript(dialog.getTarget()));
}

void EventDialog::check()
{
    WString report;
    for (const ScriptFault& fault : checkScript(script.getText()))
        report += (report.empty() ? u"" : u"\n") + fault.sentence();
    checkResult.setWarning(!report.empty());
    checkResult.setText(report.empty() ? translate(u"The script compiles.") : report);
}

bool EventDialog::accept()
{
    const WStringView fault = map.events.nameFault(name.getText(), self);
    form->setProblem(name, translate(fault));
    if (!fault.empty()) {
        name.setFocus();
        return false;
    }
    event->names = {name.getText(), name2.getText()};
    event->type = kind.getRow();
    event->x = x.getValue();
    event->y = y.getValue();
    event->direction = Direction(chosenValue(direction, directions));
    event->trigger = chosenValue(trigger, triggers);
    event->priority = chosenValue(priority, priorities);
    if (hitbox.isChecked() != (event->hitbox == 1)) // other values of files are kept
        event->hitbox = hitbox.isChecked() ? 1 : 0;
    event->move = move.getValue();
    event->conditions = condition.getRow();
    event->sprite = sprite.getText();
    event->script = withLineEndsOf(event->script, script.getText());
    made = inClassOfKind(*event);
    if (auto* const box = dynamic_cast<TreasureBoxEvent*>(made.get()))
        box->treasureboxID = treasureBox.getRow();
    return true;
}

} // namespace varn

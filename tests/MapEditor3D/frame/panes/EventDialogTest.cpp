#include "PaneFixture.h"

#include "Game/Database/WizFloor.h"
#include "MapEditor3D/frame/panes/EventDialog.h"
#include "MapEditor3D/frame/panes/EventEditing.h"
#include "MapEditor3D/frame/panes/ScriptCheck.h"

namespace varn::test {

namespace {

constexpr std::int32_t kTreasure = 1, kWarp = 2, kStairsDown = 3, kDarkness = 7, kPerson = 8;

class EventDialogTest : public PaneTest
{
  protected:
    EventManager& events() { return editor.getMap().events; }
    /// What a person does in the dialog that the next call opens.
    static void inDialog(std::function<void(NativeHandle)> action)
    {
        robot::later(0, [action = std::move(action)] {
            const NativeHandle front = robot::frontDialog();
            ASSERT_TRUE(front);
            action(front);
        });
    }
    static void pressIn(NativeHandle dialog, WStringView button)
    {
        const NativeHandle found = robot::findField(dialog, button);
        ASSERT_TRUE(found) << toUtf8(button);
        robot::click(found, 4, 4);
    }
    /// Types into a field in place of what it holds.
    static void fillIn(NativeHandle dialog, WStringView label, WStringView text)
    {
        const NativeHandle field = robot::findField(dialog, label);
        ASSERT_TRUE(field) << toUtf8(label);
        robot::key(field, 'A', kHeldControl);
        robot::key(field, kKeyDelete);
        robot::type(field, text);
    }
};

} // namespace

TEST_F(EventDialogTest, AnEventThatIsOnlyLookedAtStaysByteForByte)
{
    events().at(2).script = u"#include \"Lib/Story.txt\"\r\nmeet(0);"; // line ends of other hands
    events().at(2).direction = Direction(3);
    events().at(2).trigger = 7;
    events().at(2).priority = 9;
    events().at(2).hitbox = 2;
    const WString before = editor.getMap().toXml();
    for (std::size_t event = 0; event < events().size(); ++event) {
        inDialog([](NativeHandle dialog) { pressIn(dialog, u"OK"); });
        ASSERT_TRUE(eventEditing::edit(editor, event, nullptr)) << event;
    }
    EXPECT_EQ(editor.getMap().toXml(), before);
}

TEST_F(EventDialogTest, RefusesNamesWithTheToldWords)
{
    EventDialog dialog(editor.getMap(), events().at(2), &events().at(2));
    dialog.show(nullptr);
    const struct
    {
        const char16_t *typed, *told;
    } names[] = {{u"", u"Please enter the name"},
                 {u"Nan", u"There is an event with the same name"},
                 {u"a<b", u"Contains invalid characters"}};
    for (const auto& row : names) {
        fillIn(windowOf(dialog), u"Name:", row.typed);
        press(dialog, u"OK");
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_TRUE(robot::findByText(windowOf(dialog), u"\u26A0 " + WString(row.told)))
            << toUtf8(row.told);
    }
    fillIn(windowOf(dialog), u"Name:", u"Hob the elder");
    press(dialog, u"OK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.takeEvent()->names[0], u"Hob the elder");
}

TEST_F(EventDialogTest, ANewEventStartsFromItsKind)
{
    editor.setLayer(EditorLayer::Event);
    editor.setSelectedTile(kStairsDown);
    inDialog([](NativeHandle dialog) { pressIn(dialog, u"OK"); });
    ASSERT_TRUE(eventEditing::create(editor, {7, 8}, nullptr));
    const GameEvent& stairs = events().at(events().size() - 1);
    EXPECT_EQ(stairs.names[0], u"Stairs down");
    EXPECT_EQ(stairs.type, kStairsDown);
    EXPECT_EQ(stairs.x, 7);
    EXPECT_EQ(stairs.script, u"#include \"Lib/Story.txt\"\ndescend();");
    EXPECT_EQ(editor.getSelectedEvent(), events().size() - 1);

    inDialog([](NativeHandle dialog) { pressIn(dialog, u"Cancel"); });
    const std::size_t count = events().size();
    EXPECT_FALSE(eventEditing::create(editor, {7, 8}, nullptr));
    EXPECT_EQ(events().size(), count);

    editor.setSelectedTile(kDarkness); // does without the dialog
    ASSERT_TRUE(eventEditing::create(editor, {1, 1}, nullptr));
    ASSERT_TRUE(eventEditing::create(editor, {1, 2}, nullptr));
    EXPECT_NE(events().at(count).names[0], events().at(count + 1).names[0]);
}

TEST_F(EventDialogTest, AnotherKindBringsItsScriptClassAndFields)
{
    const GameEvent start = [] {
        GameEvent event;
        event.names[0] = u"Thing";
        event.type = kStairsDown;
        event.script = eventEditing::defaultScript(kStairsDown);
        return event;
    }();
    EventDialog dialog(editor.getMap(), start, nullptr);
    dialog.show(nullptr);
    const NativeHandle kind = control(dialog, u"Kind:");
    for (int step = kStairsDown; step > kTreasure; --step)
        robot::key(kind, kKeyUp);
    const NativeHandle box = control(dialog, u"Treasure box:");
    robot::key(box, kKeyDown);
    press(dialog, u"OK");
    const auto made = dialog.takeEvent();
    ASSERT_TRUE(made);
    EXPECT_EQ(made->type, kTreasure);
    EXPECT_EQ(made->script, u"playSound(\"chest.wav\");");
    const auto* const treasure = dynamic_cast<const TreasureBoxEvent*>(made.get());
    ASSERT_TRUE(treasure);
    EXPECT_EQ(treasure->treasureboxID, 1);

    TreasureBoxEvent chest = *treasure;
    chest.type = kPerson;
    EXPECT_EQ(dynamic_cast<TreasureBoxEvent*>(inClassOfKind(chest).get()), nullptr);
}

TEST_F(EventDialogTest, TheWarpDialogWritesTheScript)
{
    GameEvent start;
    start.names[0] = u"Niche";
    start.type = kWarp;
    EventDialog dialog(editor.getMap(), start, nullptr);
    dialog.show(nullptr);
    inDialog([](NativeHandle warp) {
        fillIn(warp, u"X:", u"4");
        fillIn(warp, u"Y:", u"17");
        pressIn(warp, u"OK");
    });
    press(dialog, u"Warp Location...");
    press(dialog, u"OK");
    EXPECT_EQ(dialog.takeEvent()->script, u"warp(4, 17);");
}

TEST_F(EventDialogTest, ChecksTheScript)
{
    for (const auto& event : events().list())
        for (const ScriptFault& fault : checkScript(event->script))
            ADD_FAILURE() << toUtf8(event->names[0] + u": " + fault.sentence());
    const auto faults = checkScript(u"var a = 1;\nb = a;\n");
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].line, 2U);
    EXPECT_TRUE(faults[0].sentence().starts_with(u"Line 2: ")) << toUtf8(faults[0].sentence());
}

TEST_F(EventDialogTest, CopiesGoThroughTheClipboardToAnyMap)
{
    EXPECT_FALSE(eventEditing::canPaste());
    const std::size_t coffer = 10; // "Kitchen coffer", box 1
    ASSERT_TRUE(eventEditing::copy(editor, coffer));
    ASSERT_TRUE(eventEditing::paste(editor, {4, 5}));
    const auto* const pasted =
        dynamic_cast<const TreasureBoxEvent*>(&events().at(events().size() - 1));
    ASSERT_TRUE(pasted);
    EXPECT_EQ(pasted->names[0], u"Kitchen coffer 2");
    EXPECT_EQ(pasted->treasureboxID, 1);
    EXPECT_EQ(pasted->x, 4);

    editor.load(u"Dungeon/Orchard.map");
    ASSERT_TRUE(eventEditing::paste(editor, {0, 0}));
    EXPECT_EQ(events().at(events().size() - 1).names[0], u"Kitchen coffer");
    host.clipboard = u"<Event name=\"broken";
    EXPECT_FALSE(eventEditing::paste(editor, {0, 0}));
}

} // namespace varn::test

#include "PaneFixture.h"

#include "MapEditor3D/frame/panes/MapPropertyDialog.h"

namespace varn::test {

namespace {

class MapPropertyDialogTest : public PaneTest
{
  protected:
    static void inDialog(std::function<void(NativeHandle)> action)
    {
        robot::later(0, [action = std::move(action)] {
            const NativeHandle front = robot::frontDialog();
            ASSERT_TRUE(front);
            action(front);
        });
    }
    static void typeInto(NativeHandle dialog, WStringView label, WStringView text)
    {
        const NativeHandle field = robot::findField(dialog, label);
        ASSERT_TRUE(field) << toUtf8(label);
        robot::key(field, 'A', kHeldControl);
        robot::type(field, text);
    }
    static void pressIn(NativeHandle dialog, WStringView button)
    {
        const NativeHandle found = robot::findField(dialog, button);
        ASSERT_TRUE(found) << toUtf8(button);
        robot::click(found, 4, 4);
    }
};

std::vector<std::string> keysOf(const Element& values)
{
    std::vector<std::string> keys;
    for (const Attribute& attribute : values.getAttributes())
        keys.push_back(toUtf8(attribute.name));
    return keys;
}

} // namespace

TEST_F(MapPropertyDialogTest, AMapThatIsOnlyLookedAtStaysByteForByte)
{
    for (const char16_t* const name : {u"Cloister", u"Ossuary", u"Orchard"}) {
        editor.load(u"Dungeon/" + WString(name) + u".map");
        const WString before = editor.getMap().toXml();
        inDialog([](NativeHandle dialog) { pressIn(dialog, u"OK"); });
        EXPECT_TRUE(editOpenMapByDialog(session, editor, nullptr));
        EXPECT_EQ(editor.getMap().toXml(), before);
    }
}

TEST_F(MapPropertyDialogTest, GivesTheKeysAndTakesThemOver)
{
    MapPropertyDialog dialog(editor.getMap(), u"Cloister");
    dialog.show(nullptr);
    typeInto(windowOf(dialog), u"Columns:", u"31");
    typeInto(windowOf(dialog), u"Display name:", u"The Walks");
    press(dialog, u"OK");
    const Element& values = dialog.getValues();
    EXPECT_EQ(keysOf(values),
              (std::vector<std::string>{"name", "col", "row", "imageNames", "displayName",
                                        "displayName2", "visibleDistance", "level", "teleportable",
                                        "displayable", "enemyTableID", "encounterSteps", "bgm",
                                        "bgs", "footstep", "door"}));

    const WizMapCells cells = editor.getMap().cells;
    applyMapProperties(editor, values, MapOrigin::Existing);
    EXPECT_EQ(editor.getMap().cols, 31);
    EXPECT_EQ(editor.getMap().names[0], "The Walks");
    EXPECT_EQ(editor.getMap().getImageName(ImageType::Ceiling),
              u"Graphics/Dungeon/Ceilings/crypt.png");
    EXPECT_TRUE(editor.getMap().cells == cells) << "the size touches no cell";

    editor.getMap().setWall(1, Direction::North, 3, 3);
    editor.commitStroke();
    applyMapProperties(editor, values, MapOrigin::New);
    EXPECT_FALSE(editor.canUndo());
    EXPECT_TRUE(editor.getMap().events.empty());
    EXPECT_EQ(editor.getMap().cellAt(3, 3).north, 0);
}

TEST_F(MapPropertyDialogTest, MakesANewMapAndRefusesATakenName)
{
    inDialog([](NativeHandle dialog) {
        typeInto(dialog, u"Name:", u"Orchard");
        pressIn(dialog, u"OK");
        EXPECT_TRUE(robot::findByText(
            dialog, u"\u26A0 There is a file with the same name. please change the name"));
        typeInto(dialog, u"Name:", u"Undercroft");
        typeInto(dialog, u"Rows:", u"9");
        pressIn(dialog, u"OK");
    });
    EXPECT_EQ(createMapByDialog(session, nullptr, 0), u"Undercroft");
    editor.load(u"Dungeon/Undercroft.map");
    EXPECT_EQ(editor.getMap().rows, 9);
    EXPECT_EQ(editor.getMap().getImageName(ImageType::Wall), u"Graphics/Dungeon/wall.png");
    EXPECT_NE(project.read("Dungeon/MapHierarchy.ini").find("2 4 Undercroft\n"), std::string::npos);
}

TEST_F(MapPropertyDialogTest, AnotherNameRenamesFilesTreeAndOpenMap)
{
    inDialog([](NativeHandle dialog) {
        typeInto(dialog, u"Name:", u"Garth");
        pressIn(dialog, u"OK");
    });
    EXPECT_TRUE(editOpenMapByDialog(session, editor, nullptr));
    EXPECT_EQ(editor.getMapName(), u"Garth");
    EXPECT_TRUE(project.has("Dungeon/Garth.xml"));
    EXPECT_FALSE(project.has("Dungeon/Cloister.map"));
    EXPECT_TRUE(session.getHierarchy().findMap(u"Garth"));

    inDialog([](NativeHandle dialog) {
        typeInto(dialog, u"Level:", u"7");
        pressIn(dialog, u"OK");
    });
    EXPECT_TRUE(editMapFileByDialog(session, u"Orchard", nullptr));
    editor.load(u"Dungeon/Orchard.map");
    EXPECT_EQ(editor.getMap().level, 7);
}

} // namespace varn::test

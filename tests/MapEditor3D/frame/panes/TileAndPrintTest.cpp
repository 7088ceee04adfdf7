// "Tile Settings", and the dialogs that print maps.
#include "PaneFixture.h"

#include "Game/Database/WizFloor.h"
#include "MapEditor3D/export/MazePage.h"
#include "MapEditor3D/frame/panes/PrintMapDialog.h"
#include "MapEditor3D/frame/panes/WizEventTileDialog.h"

namespace varn::test {

namespace {

/// A host whose chooser gives a file.
class ChoosingHost final : public RecordingHost
{
  public:
    std::optional<WString> file;
    std::vector<ChooserRequest> requests;
    std::optional<WString> chooseFile(const ChooserRequest& request) override
    {
        requests.push_back(request);
        return file;
    }
};

class TileDialogTest : public PaneTest
{
  protected:
    static WizFloorList& kinds() { return WizFloorList::instance(); }
    static std::vector<WString> names()
    {
        std::vector<WString> list;
        for (std::size_t row = 0; row < kinds().size(); ++row)
            list.push_back(kinds().at(row).getName());
        return list;
    }
};

class PrintTest : public PaneTest
{
  protected:
    static void answer(WStringView button)
    {
        robot::later(0, [button = WString(button)] {
            const NativeHandle found = robot::findField(robot::frontDialog(), button);
            ASSERT_TRUE(found) << toUtf8(button);
            robot::click(found, 4, 4);
        });
    }

    ChoosingHost choosing;
};

} // namespace

TEST_F(TileDialogTest, OkWithoutAChangeWritesTheSameTable)
{
    WizEventTileDialog dialog(0);
    dialog.show(nullptr);
    const WString before = kinds().compose();
    const NativeHandle list = robot::findField(windowOf(dialog), u"Kinds of events");
    for (std::size_t row = 1; list && row < kinds().size(); ++row)
        robot::key(list, kKeyDown);
    press(dialog, u"OK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(kinds().compose(), before);
}

TEST_F(TileDialogTest, RowsAreAddedMovedAndRemovedAndCancelForgetsIt)
{
    const std::string file = project.read("Data/EventFloor.xml");
    for (const char16_t* const end : {u"Cancel", u"OK"}) {
        WizEventTileDialog dialog(1);
        dialog.show(nullptr);
        press(dialog, u"\u25B2"); // Treasure above Message
        press(dialog, u"+");
        robot::key(control(dialog, u"Name:"), 'A', kHeldControl);
        robot::type(control(dialog, u"Name:"), u"Statue");
        robot::key(control(dialog, u"Script Type:"), kKeyDown); // a warp
        press(dialog, end);
        if (end == WStringView(u"Cancel")) {
            EXPECT_EQ(project.read("Data/EventFloor.xml"), file);
        }
    }
    const std::vector<WString> list = names();
    ASSERT_EQ(list.size(), 17U);
    EXPECT_EQ(list[0], u"Treasure");
    EXPECT_EQ(list[1], u"Statue");
    EXPECT_EQ(list[2], u"Message");
    EXPECT_TRUE(kinds().at(0).getTreasurebox());
    EXPECT_TRUE(kinds().at(1).getWarp());
    EXPECT_NE(project.read("Data/EventFloor.xml"), file);

    WizEventTileDialog dialog(1);
    dialog.show(nullptr);
    press(dialog, u"\u2212");
    press(dialog, u"OK");
    EXPECT_EQ(names()[1], u"Message");
}

TEST_F(PrintTest, ThePictureIsTheOneThatIsPrintedUnasked)
{
    choosing.file = u"asked.png";
    answer(u"Save...");
    EXPECT_TRUE(saveMapAsImageByDialog(editor.getMap(), u"Cloister", nullptr));
    ASSERT_EQ(choosing.requests.size(), 1U);
    EXPECT_EQ(choosing.requests[0].title, u"Save 'Cloister' as an image file");
    EXPECT_EQ(choosing.requests[0].suggestedName, u"Cloister.png");
    ASSERT_TRUE(saveMapAsImage(u"Cloister", u"unasked.png"));
    EXPECT_EQ(project.read("asked.png"), project.read("unasked.png"));

    choosing.file.reset();
    answer(u"Save...");
    EXPECT_FALSE(saveMapAsImageByDialog(editor.getMap(), u"Cloister", nullptr));
}

TEST_F(PrintTest, WritesThePageOfTheChosenMaps)
{
    const std::vector<WString> all = {u"Cloister", u"Ossuary", u"Orchard"};
    EXPECT_FALSE(exportMapsAsHtmlByDialog({}, all, nullptr));
    EXPECT_EQ(choosing.messages, std::vector<WString>{u"No output map selected"});

    choosing.file = u"page.html";
    answer(u"Export...");
    EXPECT_TRUE(exportMapsAsHtmlByDialog({u"Ossuary"}, all, nullptr));
    ASSERT_TRUE(exportMapsAsHtml(std::vector<WString>{u"Ossuary"}, u"other.html"));
    EXPECT_EQ(project.read("page.html"), project.read("other.html"));
    EXPECT_EQ(choosing.requests.at(0).suggestedName, u"Ossuary.html");
}

} // namespace varn::test

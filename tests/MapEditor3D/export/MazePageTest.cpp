#include "MapEditor3D/export/MazePage.h"

#include "Game/Database/WizFloor.h"
#include "Game/Map/WizMap.h"
#include "Graphics/Bitmap.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"
#include "Util/TextFile.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

/// Two floors: one with a sign and a warp, one with a plate on the floor. No picture is there, so
/// prints show bare paper and the numbers.
class MazePage : public ::testing::Test
{
  protected:
    MazePage()
    {
        std::filesystem::create_directories("Dungeon");
        WizFloorList& types = WizFloorList::instance();
        types.clear();
        types.add(WizFloorData());
        types.add(WizFloorData());
        types.at(1).setWarp(true);
        saveMap(u"Upper", {{u"Sign <1>", 0, -1, 1, 2, Direction::East, u"if(a < b && c)\n\tgo();"},
                           {u"Gate", 1, -1, 0, 0, Direction::None, u"warp(2, 1);"},
                           {u"Odd gate", 1, -1, 0, 1, Direction::None, u"warp();"}});
        saveMap(u"Lower", {{u"Plate", 0, 1, 2, 2, Direction::North, u""}});
    }
    ~MazePage() override { WizFloorList::instance().clear(); }

    struct Placed
    {
        WString name;
        int type, priority, x, y;
        Direction facing;
        WString script;
    };

    static void saveMap(const WString& name, const std::vector<Placed>& placed)
    {
        WizMap map;
        map.cols = 4;
        map.rows = 3;
        for (const Placed& p : placed) {
            auto event = std::make_unique<GameEvent>();
            event->names[0] = p.name;
            event->type = p.type;
            event->priority = p.priority;
            event->x = p.x;
            event->y = p.y;
            event->direction = p.facing;
            event->script = p.script;
            map.events.add(std::move(event));
        }
        map.save(u"Dungeon/" + name);
    }

    /// The page without its pictures.
    static std::string page(const std::vector<WString>& names)
    {
        EXPECT_TRUE(exportMapsAsHtml(names, u"out/page.html"));
        WString text = readTextFile("out/page.html").value_or(DecodedText()).text;
        const WStringView head = u"data:image/png;base64,";
        for (std::size_t at = text.find(head); at != WString::npos; at = text.find(head, at)) {
            at += head.size();
            text.erase(at, text.find(u'\'', at) - at);
        }
        return toUtf8(text);
    }

    static void expectInOrder(const std::string& text, const std::vector<std::string>& parts)
    {
        std::size_t at = 0;
        for (const std::string& part : parts) {
            const std::size_t found = text.find(part, at);
            ASSERT_NE(found, std::string::npos) << part << "\nin\n" << text;
            at = found + part.size();
        }
    }

    test::TemporaryProject project;
    test::RecordingHost host;
};

TEST_F(MazePage, SeveralMapsWithMarkersAndEvents)
{
    std::filesystem::create_directories("out");
    expectInOrder(
        page({u"Upper", u"Lower"}),
        {"<div class='maze-select-container'>\r\n<select class='maze-select' "
         "onchange='javascript:showMaze(this.options[this.selectedIndex].value);'>\r\n"
         "<option value='maze0'>Upper</option>\r\n<option value='maze1'>Lower</option>\r\n"
         "</select>\r\n</div>\r\n",
         "<div id='maze0' class='maze-container'>\r\n<div class='maze-image'>\r\n"
         "<img src='data:image/png;base64,'>\r\n",
         // A third of a cell toward the facing.
         "<a class='area' style='left: 37px; top: 48px;' href='#' "
         "onclick='showEvent(\"event1\"); return false;'></a>\r\n"
         "<a class='area' style='left: 16px; top: 16px;' href='#' "
         "onclick='showEvent(\"event2\");showWarp(this, 2, 1); return false;'></a>\r\n"
         "<a class='area' style='left: 16px; top: 32px;' href='#' "
         "onclick='showEvent(\"event3\"); return false;'></a>\r\n"
         "\r\n</div>\r\n",
         "<div id='event1' class='event-container'>\r\n"
         "<div class='event-title'>Sign &lt;1&gt;( X:1, Y:2, N:0 ) </div>\r\n"
         "<pre align='left'><code class='js'>if(a &lt; b &amp;&amp; c)\n\tgo();</code></pre>\r\n"
         "</div>\r\n",
         "<div id='event2' ", "<div id='event3' ", "</div>\r\n<div id='maze1' ",
         // Half a cell, since it lies on the floor; the count goes on.
         "<a class='area' style='left: 48px; top: 40px;' href='#' "
         "onclick='showEvent(\"event4\"); return false;'></a>\r\n",
         "<div id='event4' "});
}

TEST_F(MazePage, OneMapHasNoSelector)
{
    std::filesystem::create_directories("out");
    const std::string text = page({u"Lower"});
    EXPECT_EQ(text.find("<select"), std::string::npos);
    EXPECT_NE(text.find("<div id='maze0' class='maze-container'>"), std::string::npos);
}

TEST_F(MazePage, AMapThatCannotBeReadLeavesThePageUnwritten)
{
    std::filesystem::create_directories("out");
    EXPECT_THROW(exportMapsAsHtml(std::vector<WString>{u"Upper", u"Lost"}, u"out/page.html"),
                 Exception);
    EXPECT_FALSE(project.has("out/page.html"));
}

TEST_F(MazePage, APrintedMapWithoutPicturesIsPaperAndNumbers)
{
    ASSERT_TRUE(saveMapAsImage(u"Upper", u"upper.png"));
    Bitmap bitmap;
    bitmap.load(u"upper.png");
    EXPECT_EQ(bitmap.getWidth(), 4 * 16 + 32);
    EXPECT_EQ(bitmap.getHeight(), 3 * 16 + 32);
    EXPECT_EQ(bitmap.getPixelValue(40, 40), 0xFFFFFFFFU);
    // Each of the three missing pictures is told once, none of the view.
    ASSERT_EQ(host.messages.size(), 3U);
    EXPECT_NE(host.messages[0].find(u"Graphics/System/floor2D.png"), WString::npos);
    EXPECT_FALSE(saveMapAsImage(u"Upper", u"no-such-folder/upper.png"));
}

} // namespace
} // namespace varn

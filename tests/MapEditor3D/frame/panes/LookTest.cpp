// Every pane and dialog in every language: it fits the smallest screen we promise, and no text is
// cut off.
#include "PaneFixture.h"

#include "MapEditor3D/frame/panes/AreaSettingPane.h"
#include "MapEditor3D/frame/panes/EventDialog.h"
#include "MapEditor3D/frame/panes/EventTablePane.h"
#include "MapEditor3D/frame/panes/MapPropertyDialog.h"
#include "MapEditor3D/frame/panes/MapTilePane.h"
#include "MapEditor3D/frame/panes/MapTreePane.h"
#include "MapEditor3D/frame/panes/PrintMapDialog.h"
#include "MapEditor3D/frame/panes/SceneSettingPane.h"
#include "MapEditor3D/frame/panes/WarpLocationDialog.h"
#include "MapEditor3D/frame/panes/WizEventTileDialog.h"

#include <cstdlib>

namespace varn::test {

namespace {

class LookTest : public PaneTest, public ::testing::WithParamInterface<const char*>
{
  protected:
    LookTest() { speak(fromUtf8("Languages/" + language + ".xml")); }

    /// With VARN_GALLERY in the environment, a folder, the window's picture is left there.
    void look(NativeHandle shown, const std::string& name) const
    {
        Application::processMessages();
        Bitmap picture;
        robot::grab(shown, picture);
        EXPECT_LE(picture.getWidth(), 1280) << name;
        EXPECT_LE(picture.getHeight(), 720) << name;
        for (const WString& text : robot::findClipped(shown))
            if (text.size() - text.find(u' ') > 2) // signs on small buttons have their room
                ADD_FAILURE() << name << " cuts " << toUtf8(text);
        if (const char* const gallery = std::getenv("VARN_GALLERY"))
            picture.saveAs(fromUtf8(std::string(gallery) + "/" + language + "-" + name + ".png"));
    }
    void look(Dialog& dialog, const std::string& name) const
    {
        dialog.show(nullptr);
        look(windowOf(dialog), name);
        dialog.end(Dialog::Cancelled);
    }
    /// The dialog that a call opens and waits for.
    template <class Call>
    void lookInside(const std::string& name, Call call)
    {
        robot::later(0, [this, name] {
            const NativeHandle front = robot::frontDialog();
            ASSERT_TRUE(front);
            look(front, name);
            robot::key(front, kKeyEscape);
        });
        call();
    }
    template <class Pane>
    void lookAtPane(Pane& pane, const std::string& name, int width = 300, int height = 400)
    {
        show(pane, width, height);
        look(window.getHandle(), name);
        pane.destroy();
    }

    std::string language = GetParam();
};

} // namespace

TEST_P(LookTest, DialogsFit)
{
    const GameEvent& person = editor.getMap().events.at(2);
    EventDialog event(editor.getMap(), person, &person);
    look(event, "event");
    WarpLocationDialog warp(editor.getMap(), {3, 12});
    look(warp, "warp");
    WizEventTileDialog tiles(3);
    look(tiles, "tiles");
    MapPropertyDialog properties(editor.getMap(), u"Cloister");
    look(properties, "properties");
    lookInside("print", [this] { saveMapAsImageByDialog(editor.getMap(), u"Cloister", nullptr); });
    lookInside("html", [] {
        exportMapsAsHtmlByDialog({u"Cloister"}, {u"Cloister", u"Ossuary", u"Orchard"}, nullptr);
    });
}

TEST_P(LookTest, PanesFit)
{
    for (const auto& [layer, name] : {std::pair{EditorLayer::Wall, "walls"},
                                      {EditorLayer::Floor, "floors"},
                                      {EditorLayer::Event, "kinds"},
                                      {EditorLayer::Area, "areas"}}) {
        editor.setLayer(layer);
        MapTilePane palette(editor);
        lookAtPane(palette, std::string("palette-") + name);
    }
    editor.setSelectedTile(4);
    AreaSettingPane areas(editor);
    lookAtPane(areas, "area-settings", 340, 480);
    MapTreePane tree(session, editor);
    lookAtPane(tree, "tree", 200, 300);
    editor.setSelectedEvent(4);
    EventTablePane events(editor);
    lookAtPane(events, "event-table", 380, 300);
    SceneSettingPane scene(editor);
    lookAtPane(scene, "scene", 320, 480);
}

INSTANTIATE_TEST_SUITE_P(Languages, LookTest, ::testing::Values("English", "Japanese"),
                         [](const auto& language) { return std::string(language.param); });

} // namespace varn::test

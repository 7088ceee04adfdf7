// Every dialog in every language: it fits the smallest screen we promise, and no text is cut off.
#include "DialogFixture.h"

#include "Game/Map/View/MapPicture.h"
#include "MapEditor3D/canvas/CommandFinder.h"
#include "MapEditor3D/frame/dialogs/AboutDialog.h"
#include "MapEditor3D/frame/dialogs/CommandFinderDialog.h"
#include "MapEditor3D/frame/dialogs/CreateProjectDialog.h"
#include "MapEditor3D/frame/dialogs/ExportProjectDialog.h"
#include "MapEditor3D/frame/dialogs/MapGeneratorDialog.h"
#include "MapEditor3D/frame/dialogs/PhotoToMapDialog.h"
#include "MapEditor3D/frame/dialogs/ReplaceDialog.h"
#include "MapEditor3D/frame/dialogs/ResourceManagerDialog.h"
#include "MapEditor3D/frame/dialogs/WelcomeDialog.h"

#include "Component/Application.h"

#include <cstdlib>

namespace varn::test {

namespace {

class LookTest : public DialogTest
{
  protected:
    LookTest() { editor.load(u"Dungeon/Ossuary.map"); }

    /// With VARN_GALLERY in the environment, a folder, the dialog's picture is left there.
    template <class Prepare>
    static void look(Dialog& dialog, const std::string& name, const Prepare& prepare)
    {
        show(dialog);
        prepare();
        Application::processMessages();
        const NativeHandle window = windowOf(dialog);
        Bitmap picture;
        robot::grab(window, picture);
        EXPECT_LE(picture.getWidth(), 1280) << name;
        EXPECT_LE(picture.getHeight(), 720) << name;
        for (const WString& text : robot::findClipped(window))
            ADD_FAILURE() << name << " cuts " << toUtf8(text);
        if (const char* const gallery = std::getenv("VARN_GALLERY"))
            picture.saveAs(fromUtf8(std::string(gallery) + "/" + name + ".png"));
        dialog.end(Dialog::Cancelled);
    }
    static void look(Dialog& dialog, const std::string& name)
    {
        look(dialog, name, [] {});
    }
    void lookAtAll(const std::string& language);

    WizMapEditor editor;
    Settings settings{"settings.ini"};
    ProjectSession session{"settings.ini", ProjectSession::Presence::Headless};
};

void LookTest::lookAtAll(const std::string& language)
{
    RecentProjects recent("");
    recent.add("/home/someone/games/The Sunken Priory");
    recent.add("/home/someone/games/A second one");
    const CommandFinder finder(buildMenu(true));

    MapGeneratorDialog generator(editor);
    look(generator, language + "-generator");
    PhotoToMapDialog photo(editor, settings);
    look(photo, language + "-photo");
    PhotoToMapDialog read(editor, settings);
    look(read, language + "-photo-read", [&] {
        Graphics printed;
        WizMapImage images(MapPictures::Plan);
        images.update(editor.getMap());
        drawMapPicture(printed, editor.getMap(), images);
        printed.getImage().saveAs(u"printed.png");
        read.getPicture().getOptions().offsetX = read.getPicture().getOptions().offsetY = 16;
        EXPECT_TRUE(read.openImage("printed.png"));
    });
    ExportProjectDialog exporting(session);
    look(exporting, language + "-export");
    CreateProjectDialog create;
    look(create, language + "-create");
    WelcomeDialog welcome(recent);
    look(welcome, language + "-welcome");
    ReplaceDialog replace(editor);
    look(replace, language + "-replace");
    AboutDialog about;
    look(about, language + "-about");
    CommandFinderDialog command(finder);
    look(command, language + "-command");
    ResourceManagerDialog resources;
    look(resources, language + "-resources");
    ResourceManagerDialog pictures;
    look(pictures, language + "-resources-pictures",
         [&] { pictures.selectCategory(ResourceCategory::Background); });
}

} // namespace

TEST_F(LookTest, EnglishFits)
{
    lookAtAll("English");
}

TEST_F(LookTest, JapaneseFits)
{
    speak(u"Languages/Japanese.xml");
    lookAtAll("Japanese");
}

} // namespace varn::test

// Projects as a whole: made, opened, exported, brought back after a crash.
#include "DialogFixture.h"

#include "Component/Application.h"
#include "MapEditor3D/frame/dialogs/CommandFinderDialog.h"
#include "MapEditor3D/frame/dialogs/CreateProjectDialog.h"
#include "MapEditor3D/frame/dialogs/ExportProjectDialog.h"
#include "MapEditor3D/frame/dialogs/Help.h"
#include "MapEditor3D/frame/dialogs/RecoveryDialog.h"
#include "MapEditor3D/frame/dialogs/WelcomeDialog.h"
#include "MapEditor3D/project/NewProject.h"
#include "MapEditor3D/recovery/RecoveryKeeper.h"
#include "Util/ProjectPath.h"

namespace varn::test {

namespace fs = std::filesystem;

namespace {

class ProjectDialogsTest : public DialogTest
{
  protected:
    static void retype(NativeHandle field, WStringView text)
    {
        robot::key(field, 'A', kHeldControl);
        robot::type(field, text);
    }
};

bool holds(const WString& text, WStringView part)
{
    return text.find(part) != WString::npos;
}

} // namespace

TEST_F(ProjectDialogsTest, CreatingSaysWhatIsWrongBesideTheField)
{
    CreateProjectDialog dialog;
    show(dialog);
    EXPECT_EQ(robot::focused(), control(dialog, u"Project"));
    retype(control(dialog, u"Path"), toWide(project.root()));
    for (const WStringView name : {u"", u"a/b", u"Dungeon"}) { // the last is there and not empty
        retype(control(dialog, u"Project"), name.empty() ? u" " : name);
        if (name.empty())
            robot::key(control(dialog, u"Project"), kKeyBackspace);
        press(dialog, u"Create");
        EXPECT_TRUE(stands(dialog)) << toUtf8(name);
    }
    retype(control(dialog, u"Project"), u"Mine");
    press(dialog, u"Create");
    EXPECT_FALSE(stands(dialog));
    EXPECT_EQ(dialog.getProject(), project.root() / "Mine");
    EXPECT_TRUE(isProjectFolder(dialog.getProject()));
    EXPECT_EQ(host.questions.size(), 1U);
    EXPECT_FALSE(dialog.isToOpen());
}

TEST_F(ProjectDialogsTest, TheWelcomeOpensWhatThereIs)
{
    RecentProjects recent(project.root() / "state");
    recent.add(project.root() / "gone");
    host.chosenFolders = {toWide(project.root() / "Data"), toWide(project.root())};
    WelcomeDialog dialog(recent);
    show(dialog);
    press(dialog, u"Open"); // the row of what is gone
    EXPECT_EQ(host.messages.size(), 1U);
    press(dialog, u"Open another folder..."); // the folder of tables is no project
    EXPECT_EQ(host.messages.size(), 2U);
    EXPECT_TRUE(stands(dialog));
    press(dialog, u"Forget");
    EXPECT_TRUE(recent.list().empty());
    press(dialog, u"Open another folder...");
    EXPECT_FALSE(stands(dialog));
    EXPECT_EQ(dialog.getProject(), project.root());
}

TEST_F(ProjectDialogsTest, TheWelcomeCopiesTheDemo)
{
    RecentProjects recent("");
    host.chosenFolders = {toWide(project.root()), toWide(project.root())};
    for (const char* const name : {"The Sunken Priory", "The Sunken Priory 2"}) {
        WelcomeDialog dialog(recent);
        show(dialog);
        press(dialog, u"Open a copy of the demo game");
        EXPECT_EQ(dialog.getProject(), project.root() / name);
        EXPECT_TRUE(isProjectFolder(dialog.getProject()));
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(ProjectDialogsTest, ExportAsksPacksAndAccounts)
{
    fs::create_directory(project.root() / "out");
    fs::remove(project.root() / "Audio/SE/bell.wav");
    ProjectSession session(project.root() / "settings.ini", ProjectSession::Presence::Headless);
    session.openProject();
    robot::later(50, [] {
        const NativeHandle dialog = robot::frontDialog();
        const NativeHandle target = robot::findField(dialog, u"Save location");
        robot::type(target, u"nowhere");
        robot::click(robot::findByText(dialog, u"Export"), 4, 4);
        EXPECT_EQ(robot::frontDialog(), dialog) << "a folder that is not there keeps it open";
        robot::key(target, 'A', kHeldControl);
        robot::type(target, u"out");
        robot::click(robot::findByText(dialog, u"Export"), 4, 4);
    });
    EXPECT_TRUE(exportProjectWithDialog(session, nullptr));
    EXPECT_TRUE(project.has("out/GameData.gamedata"));
    EXPECT_TRUE(host.messages.empty()) << "what was left out is told once, at the end";
    ASSERT_EQ(host.questions.size(), 1U);
    EXPECT_TRUE(holds(host.questions[0].text, u"Exported GameData.gamedata to out."));
    EXPECT_TRUE(holds(host.questions[0].text, u"Left out (1):"));
    EXPECT_TRUE(holds(host.questions[0].text, u"bell.wav"));
}

TEST_F(ProjectDialogsTest, ACommandIsFoundAndChosenByKeys)
{
    const std::vector<MenuEntry> menu = buildMenu(true);
    const CommandFinder finder(menu);
    CommandFinderDialog dialog(finder);
    show(dialog);
    const NativeHandle field = robot::focused();
    robot::type(field, u"project");
    const auto found = finder.find(u"project");
    ASSERT_GT(found.size(), 2U);
    robot::key(field, kKeyDown);
    robot::key(field, kKeyDown);
    robot::key(field, kKeyUp);
    robot::key(field, kKeyReturn);
    EXPECT_FALSE(stands(dialog));
    ASSERT_TRUE(dialog.getChosen());
    EXPECT_EQ(dialog.getChosen()->command, found[1].command);
}

TEST_F(ProjectDialogsTest, HelpIsThereInBothLanguages)
{
    for (const WStringView language : {u"Languages/English.xml", u"Languages/Japanese.xml"}) {
        speak(language);
        EXPECT_TRUE(openHelp());
        EXPECT_TRUE(isFile(host.opened.back())) << toUtf8(host.opened.back());
    }
    EXPECT_NE(host.opened[0], host.opened[1]);
    EXPECT_TRUE(visitSite());
    EXPECT_EQ(host.opened.back(), kMakerSite);
}

TEST_F(ProjectDialogsTest, AFloorThatACrashLeftIsBroughtBack)
{
    const fs::path state = project.root() / "state";
    WizMapCells drawn{};
    {
        WizMapEditor editor;
        auto keeper = std::make_unique<RecoveryKeeper>(editor, state, project.root());
        editor.load(u"Dungeon/Ossuary.map");
        editor.getMap().setWall(WallKind::SecretDoor, Direction::North, 3, 3);
        editor.commitStroke();
        keeper->flush();
        drawn = editor.getMap().cells;
        fs::copy(state, project.root() / "left", fs::copy_options::recursive);
    }
    WizMapEditor editor;
    robot::later(
        50, [] { robot::click(robot::findByText(robot::frontDialog(), u"Bring back"), 4, 4); });
    EXPECT_TRUE(RecoveryDialog::offer(nullptr, project.root() / "left", project.root(), editor));
    EXPECT_EQ(editor.getMapName(), u"Ossuary");
    EXPECT_EQ(editor.getMap().cells, drawn);
    EXPECT_FALSE(RecoveryDialog::offer(nullptr, project.root() / "none", project.root(), editor));
}

} // namespace varn::test

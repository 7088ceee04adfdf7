#include "MapEditor3D/Menu.h"

#include "Game/Database/LanguageManager.h"
#include "MapEditor3D/Commands.h"
#include "SessionFixture.h"

namespace varn {

class MenuTest : public test::SessionFixture
{};

/// "text|command|argument|checked" a line, two blanks a level.
static std::string print(const std::vector<MenuEntry>& entries, const std::string& indent = {})
{
    std::string out;
    for (const MenuEntry& entry : entries)
        out += indent + toUtf8(entry.text) + "|" + std::to_string(entry.command) + "|" +
               std::to_string(entry.argument) + "|" + (entry.checked ? "x" : "") + "\n" +
               print(entry.children, indent + "  ");
    return out;
}

TEST_F(MenuTest, ItemsGetTheirNumbersAndTheLanguagesTheirs)
{
    project.write("Languages/English.xml",
                  "<Language><Menu>"
                  "<rootMenu title=\"&amp;amp;File\">"
                  "<item title=\"Save\" hotkey=\"S\" shortcut=\"Ctrl+S\" id=\"save\"/>"
                  "<item title=\"Odd\" id=\"noSuchCommand\"/></rootMenu>"
                  "<rootMenu title=\"View\">"
                  "<item title=\"Coordinates\" id=\"absoluteCoordinate\"/>"
                  "<item title=\"Language\" id=\"language\"/></rootMenu>"
                  "</Menu></Language>");
    project.write("Languages/Aramaic.xml", "<Language/>");
    ASSERT_TRUE(LanguageManager::instance().load(u"Languages/English.xml"));
    EXPECT_EQ(print(buildMenu(true)), "&File|0|0|\n"
                                      "  Save (S)\tCtrl+S|203|0|\n"
                                      "  Odd|0|0|\n"
                                      "View|0|0|\n"
                                      "  Coordinates|215|0|x\n"
                                      "  Language|245|0|\n"
                                      "    Aramaic|245|0|\n"
                                      "    English|245|1|x\n");
}

TEST_F(MenuTest, TheLanguageCommandTakesTheItemsPlace)
{
    writeLanguages();
    ProjectSession session(settingsFile(), ProjectSession::Presence::Headless);
    CommandTarget frame(session);
    session.loadTexts();
    dispatchCommand(frame, kLanguageCommand, 1);
    EXPECT_EQ(LanguageManager::instance().getFileName(), u"Languages/Japanese.xml");
    EXPECT_TRUE(dispatchCommand(frame, kLanguageCommand, 2));
    EXPECT_TRUE(dispatchCommand(frame, kLanguageCommand, -1));
    EXPECT_EQ(LanguageManager::instance().getFileName(), u"Languages/Japanese.xml");
    EXPECT_TRUE(buildMenu(false).empty());
}

} // namespace varn

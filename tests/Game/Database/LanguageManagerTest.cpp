#include "Game/Database/LanguageManager.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

class LanguageManagerTest : public ::testing::Test
{
  protected:
    TemporaryProject project;
    RecordingHost host;
    LanguageManager manager;

    void load(std::string_view document)
    {
        project.write("Languages/Test.xml", document);
        ASSERT_TRUE(manager.load(u"Languages/Test.xml"));
    }
};

/// A line an item: two blanks a level, what the menu shows, "*" for a check mark, the command.
WString describe(const std::vector<MenuItem>& items, std::size_t level = 0)
{
    WString out;
    for (const MenuItem& item : items) {
        out += WString(2 * level, u' ') + item.getText() + (item.checked ? u"*" : u"");
        out += u" [" + item.id + u"]\n" + describe(item.children, level + 1);
    }
    return out;
}

TEST_F(LanguageManagerTest, TakesDisplayTexts)
{
    load("<Language><DisplayText><g><item DefaultText='Yes' default='Oui'/></g>"
         "<item DefaultText='No' default='Non'/></DisplayText></Language>");
    EXPECT_EQ(manager.getDisplayText(u"Yes"), u"Oui");
    EXPECT_EQ(manager.getDisplayText(u"Cancel"), u"Cancel");
    EXPECT_EQ(manager.getDisplayTexts().size(), 2u);
    EXPECT_TRUE(manager.buildMenu().empty());

    project.write("Languages/Bad.xml", "<Language></language>");
    EXPECT_FALSE(manager.load(u"Languages/Bad.xml"));
    EXPECT_EQ(host.messages.size() + host.questions.size(), 1u);
    EXPECT_FALSE(manager.load(u"Languages/None.xml"));
    EXPECT_EQ(host.messages.size() + host.questions.size(), 1u);
    EXPECT_EQ(manager.getFileName(), u"Languages/Test.xml");
    EXPECT_EQ(manager.getDisplayText(u"No"), u"Non");

    load("<Language/>");
    EXPECT_EQ(manager.getDisplayText(u"No"), u"No");
}

TEST_F(LanguageManagerTest, BuildsTheMenu)
{
    project.write("Languages/English.xml", "<x/>");
    project.write("Languages/notes.txt", "no language");
    const char* const kMenu =
        "<Menu><rootMenu title='File'><item title='Save &amp;amp; exit' hotkey='S' "
        "shortcut='Ctrl+S' "
        "id='save'/><sub title='More'><item title='A' id='unknown'/></sub></rootMenu>"
        "<rootMenu><item title='Bare'/></rootMenu>"
        "<rootMenu title='View'><item title='Language' id='language'/></rootMenu><other/></Menu>";
    const WString expected = u"File []\n"
                             u"  Save & exit (S)\tCtrl+S [save]\n"
                             u"  More []\n"
                             u"    A [unknown]\n"
                             u"Bare []\n"
                             u"View []\n"
                             u"  Language [language]\n"
                             u"    English []\n"
                             u"    Test* []\n";
    load(std::string("<Language>") + kMenu + "</Language>");
    EXPECT_EQ(describe(manager.buildMenu()), expected);

    // The menu may stand in a document of its own, which may be the menu alone.
    project.write("Languages/Menu.txt", kMenu);
    load("<Language><Menu url=''/></Language>");
    EXPECT_EQ(describe(manager.buildMenu()), expected);
    project.write("Languages/Other.txt", std::string("<x>") + kMenu + "</x>");
    load("<Language><Menu url='Languages/Other.txt'/></Language>");
    EXPECT_EQ(describe(manager.buildMenu()), expected);
    load("<Language><Menu url='Languages/None.txt'/></Language>");
    EXPECT_TRUE(manager.buildMenu().empty());
}

TEST_F(LanguageManagerTest, AMenuOfAnyDepthIsHarmless)
{
    std::string document = "<Menu><rootMenu title='deep'>";
    constexpr int kLevels = 20000;
    for (int i = 0; i < kLevels; i++)
        document += "<i title='x'>";
    for (int i = 0; i < kLevels; i++)
        document += "</i>";
    load(document + "</rootMenu></Menu>");
    EXPECT_EQ(manager.buildMenu().size(), 1u);
}

TEST_F(LanguageManagerTest, FallsBackToTheUsersLanguage)
{
    project.write("Languages/Japanese.xml", "<x/>");
    project.write("Languages/English.xml", "<x/>");
    EXPECT_TRUE(manager.loadChosen(u""));
    EXPECT_TRUE(manager.isEnglish());
    host.japanese = true;
    EXPECT_TRUE(manager.loadChosen(u"Languages/French.xml"));
    EXPECT_EQ(manager.getFileName(), u"Languages/Japanese.xml");
    EXPECT_TRUE(manager.loadChosen(u"Languages/English.xml"));
    EXPECT_EQ(manager.getFileName(), u"Languages/English.xml");
}

} // namespace
} // namespace varn::test

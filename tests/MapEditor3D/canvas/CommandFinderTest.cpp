#include "MapEditor3D/canvas/CommandFinder.h"

#include "Game/Database/LanguageManager.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {

namespace {

/// The menus that are shipped, English in force.
class CommandFinderTest : public ::testing::Test
{
  protected:
    CommandFinderTest()
    {
        for (const char* const file :
             {"English.xml", "Japanese.xml", "Menu.txt", "MenuEnglish.txt"})
            project.write(std::string("Languages/") + file,
                          readSource(std::string("assets/Languages/") + file));
        EXPECT_TRUE(LanguageManager::instance().load(u"Languages/English.xml"));
    }

    std::string best(WStringView query)
    {
        const auto found = finder().find(query, 1);
        return found.empty() ? "" : toUtf8(found[0].title);
    }
    static CommandFinder finder()
    {
        const auto others = buildOtherMenus();
        CommandFinder finder(buildMenu(false), others);
        finder.add(6, u"Zoom In", u"Ctrl++");
        return finder;
    }

    TemporaryProject project;
};

} // namespace

TEST_F(CommandFinderTest, FindsByInitialsPartsAndWordsOfTheOtherLanguage)
{
    const struct
    {
        WStringView query;
        std::string title;
    } cases[] = {
        {u"undo", "Undo"},
        {u"UND", "Undo"},
        {u"wl", "Wall Layer"},
        {u"zi", "Zoom In"},
        {u"map gen", "Map Generator..."},
        {u"mpgn", "Map Generator..."},
        {u"壁レイヤー", "Wall Layer"},
        {u"イベントレ", "Event Layer"},
        {u"xqzzy", ""},
    };
    for (const auto& test : cases)
        EXPECT_EQ(best(test.query), test.title) << toUtf8(test.query);
}

TEST_F(CommandFinderTest, AnEmptyQueryGivesAllInOrderAndEveryLeafOfTheMenuIsThere)
{
    const auto all = finder().find(u"", 1000);
    EXPECT_EQ(all.size(), finder().size());
    EXPECT_GT(all.size(), 30U);
    EXPECT_EQ(all.back().title, u"Zoom In");
    for (const FoundCommand& one : all)
        EXPECT_NE(one.command, 0) << toUtf8(one.title);
}

TEST(FuzzyMatch, TellsThePlacesItTookAndPrefersBeginnings)
{
    const auto match = fuzzyMatch(u"ml", u"Small Map Layer");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->places, (std::vector<std::size_t>{6, 10}));
    EXPECT_FALSE(fuzzyMatch(u"lm", u"Map Layer's")) << "letters keep their order";
    EXPECT_GT(fuzzyMatch(u"save", u"Save All")->score, fuzzyMatch(u"save", u"Sea over all")->score);
    EXPECT_GT(fuzzyMatch(u"map", u"Map")->score, fuzzyMatch(u"map", u"Map Generator...")->score);
}

} // namespace varn::test

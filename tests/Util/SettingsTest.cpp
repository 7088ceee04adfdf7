#include "Util/Settings.h"

#include "Support/ChildProcess.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

constexpr std::string_view kFile = "; made by hand\r\n"
                                   "stray=1\r\n"
                                   "[View]\r\n"
                                   "Language = Languages\\English.xml  \r\n"
                                   "  tileScaleCount=3steps\r\n"
                                   "Empty=\r\n"
                                   "Quoted=\" a \"\r\n"
                                   "Single='b'\r\n"
                                   "Half=\"c\r\n"
                                   ";Commented=1\r\n"
                                   "no key here\r\n"
                                   "Language=second\r\n"
                                   "\r\n"
                                   "[ Project ] trailing\r\n"
                                   "Path=a=b;c\r\n"
                                   "[view]\r\n"
                                   "Late=1";

TEST(Settings, ReadsKeyByKey)
{
    test::TemporaryProject project;
    project.write("a.ini", kFile);
    const Settings settings("a.ini");
    const struct
    {
        WStringView section, key, value;
    } cases[] = {
        {u"View", u"Language", u"Languages\\English.xml"},
        {u"VIEW", u"LANGUAGE", u"Languages\\English.xml"},
        {u"View", u"TileScaleCount", u"3steps"},
        {u"View", u"Empty", u""},
        {u"View", u"Quoted", u" a "},
        {u"View", u"Single", u"b"},
        {u"View", u"Half", u"\"c"},
        {u"View", u"Commented", u"fallback"},
        {u"View", u"Late", u"fallback"}, // the first section of a name counts
        {u"View", u"stray", u"fallback"},
        {u"Project", u"Path", u"a=b;c"},
        {u"Nowhere", u"Path", u"fallback"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(settings.getSettingString(c.section, c.key, u"fallback"), c.value)
            << toUtf8(c.key);
    EXPECT_EQ(settings.getSettingInt(u"View", u"TileScaleCount", 9), 3);
    EXPECT_EQ(settings.getSettingInt(u"View", u"Empty", 9), 0);
    EXPECT_EQ(settings.getSettingInt(u"View", u"Missing", -9), -9);
    EXPECT_EQ(Settings("missing.ini").getSettingInt(u"View", u"Empty", 9), 9);
    project.write("long.ini", "[a]\nb=" + std::string(2000, 'x'));
    EXPECT_EQ(Settings("long.ini").getSettingString(u"a", u"b", u"").size(), 1023u);
}

TEST(Settings, TouchesOnlyTheLineItWrites)
{
    const struct
    {
        std::string_view name;
        WStringView section, key, value;
        std::string_view before, after;
    } cases[] = {
        {"new file", u"A", u"k", u"v", "", "[A]\r\nk=v\r\n"},
        {"change", u"a", u"K", u"new", "; c\n[A]\n k = old ; x\nz=1\n",
         "; c\n[A]\n k = new\nz=1\n"},
        {"fill", u"A", u"k", u"v", "[A]\nk=\nz", "[A]\nk=v\nz"},
        {"before the blank lines", u"A", u"k", u"v", "[A]\nz=1\n\n[B]\n", "[A]\nz=1\nk=v\n\n[B]\n"},
        {"empty section", u"A", u"k", u"v", "[A]", "[A]\r\nk=v\r\n"},
        {"new section", u"B", u"k", u"v", "[A]\nz=1", "[A]\nz=1\n\n[B]\nk=v\n"},
        {"quotes keep blanks", u"A", u"k", u" v ", "[A]\n", "[A]\nk=\" v \"\n"},
        {"quotes keep quotes", u"A", u"k", u"'v'", "[A]\n", "[A]\nk=\"'v'\"\n"},
    };
    test::TemporaryProject project;
    for (const auto& c : cases) {
        if (!c.before.empty())
            project.write("a.ini", c.before);
        Settings settings("a.ini");
        EXPECT_TRUE(settings.setSettingString(c.section, c.key, c.value)) << c.name;
        EXPECT_EQ(project.read("a.ini"), c.after) << c.name;
        EXPECT_EQ(settings.getSettingString(c.section, c.key, u"none"), c.value) << c.name;
    }
}

TEST(Settings, Erases)
{
    const struct
    {
        std::string_view name;
        WStringView section, key; // an empty key: the section
        std::string_view before, after;
    } cases[] = {
        {"a key", u"a", u"K", "[A]\r\nk=1\r\nz=2\r\n", "[A]\r\nz=2\r\n"},
        {"all of its name", u"A", u"k", "[A]\nk=1\n;k=2\nK = 3", "[A]\n;k=2\n"},
        {"not elsewhere", u"A", u"k", "k=0\n[B]\nk=1\n[A]\nk=2\n[B]\n[A]\nk=3\n",
         "k=0\n[B]\nk=1\n[A]\n[B]\n[A]\nk=3\n"},
        {"no such key", u"A", u"q", "[A]\nk=1\n", "[A]\nk=1\n"},
        {"a section", u"b", u"", "[A]\nk=1\n[B]\nk=2\n\n[C]\n", "[A]\nk=1\n[C]\n"},
        {"each of its name", u"A", u"", ";\n[A]\nk=1\n[B]\n[a]\nk=2", ";\n[B]\n"},
        {"no such section", u"C", u"", "[A]\n", "[A]\n"},
    };
    test::TemporaryProject project;
    for (const auto& c : cases) {
        project.write("a.ini", c.before);
        Settings settings("a.ini");
        EXPECT_TRUE(c.key.empty() ? settings.eraseSection(c.section)
                                  : settings.eraseKey(c.section, c.key))
            << c.name;
        EXPECT_EQ(project.read("a.ini"), c.after) << c.name;
    }
    EXPECT_TRUE(Settings("missing.ini").eraseKey(u"A", u"k"));
    EXPECT_FALSE(project.has("missing.ini"));
    EXPECT_FALSE(Settings(".").eraseSection(u"A"));
}

TEST(Settings, KeepsTheEncodingWhileItHoldsTheText)
{
    const struct
    {
        std::string_view name, before;
        WStringView value;
        std::string_view after;
    } cases[] = {
        {"Shift_JIS stays", "[A]\nz=\x93\xFA\n", u"日", "[A]\nz=\x93\xFA\nk=\x93\xFA\n"},
        {"ASCII becomes UTF-8", "[A]\n", u"日本語",
         "[A]\nk=\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E\n"},
        {"a mark where it is mistaken", "[A]\n", u"ああ",
         "\xEF\xBB\xBF[A]\nk=\xE3\x81\x82\xE3\x81\x82\n"},
        {"Shift_JIS gives way", "[A]\nz=\x93\xFA\n", u"é",
         "\xEF\xBB\xBF[A]\nz=\xE6\x97\xA5\nk=\xC3\xA9\n"},
        {"UTF-16 stays", std::string_view("\xFF\xFE[\0A\0]\0\n\0", 10), u"é",
         std::string_view("\xFF\xFE[\0A\0]\0\n\0k\0=\0\xE9\0\n\0", 18)},
    };
    test::TemporaryProject project;
    for (const auto& c : cases) {
        project.write("a.ini", c.before);
        Settings settings("a.ini");
        EXPECT_TRUE(settings.setSettingString(u"A", u"k", c.value)) << c.name;
        EXPECT_EQ(project.read("a.ini"), c.after) << c.name;
        EXPECT_EQ(settings.getSettingString(u"A", u"k", u""), c.value) << c.name;
    }
}

TEST(Settings, RefusesWhatWouldNotBeFoundAgain)
{
    test::TemporaryProject project;
    Settings settings("new/folder/a.ini");
    for (const WStringView bad : {u"a=b", u";a", u"[a", u" a", u"a\nb"})
        EXPECT_FALSE(settings.setSettingString(u"A", bad, u"v")) << toUtf8(bad);
    EXPECT_FALSE(settings.setSettingString(u"A]", u"k", u"v"));
    EXPECT_FALSE(settings.setSettingString(u"A", u"k", u"v\r\n[B]"));
    EXPECT_FALSE(project.has("new"));
    EXPECT_TRUE(settings.setSettingInt(u"A", u"k", -5));
    EXPECT_EQ(settings.getSettingInt(u"a", u"K", 0), -5);
    EXPECT_FALSE(Settings(".").setSettingInt(u"A", u"k", 1));
}

TEST(Settings, DoesNotReplaceAFileItCannotRead)
{
    test::TemporaryProject project;
    project.write("a.ini", "[A]\nsecret=1\n");
    std::filesystem::permissions("a.ini", std::filesystem::perms(0222));
    std::filesystem::permissions(".", std::filesystem::perms(0777));
    EXPECT_TRUE(
        test::holdsForOrdinaryUser([] { return !Settings("a.ini").setSettingInt(u"A", u"k", 1); }));
    std::filesystem::permissions("a.ini", std::filesystem::perms(0644));
    EXPECT_EQ(project.read("a.ini"), "[A]\nsecret=1\n");
}

} // namespace
} // namespace varn

#include "Game/GameResourceFile.h"

#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

using test::RecordingHost;
using test::TemporaryProject;

constexpr WStringView kArchive = u"out.gamedata";
constexpr std::size_t kHead = 24;

std::string u16(std::uint32_t value)
{
    return {static_cast<char>(value), static_cast<char>(value >> 8)};
}

std::string u32(std::uint32_t value)
{
    return u16(value) + u16(value >> 16);
}

std::string head(std::uint32_t count, char kind, std::uint32_t headerSize = 16)
{
    return "GRES" + u32(headerSize) + std::string{kind, 1, 0, 0} + u32(count) +
           std::string(8, '\0');
}

/// An entry as documented, put together by hand.
std::string entry(const std::string& kind, const std::string& name, const std::string& data)
{
    const auto nameSize = static_cast<std::uint32_t>(name.size() + 1);
    const auto dataSize = static_cast<std::uint32_t>(data.size());
    return kind + u32(20 + nameSize + dataSize) + u32(0) + '\x03' + std::string(3, '\0') +
           u32(dataSize) + u32(0) + u32(0) + u16(nameSize) + u16(0) + name + '\0' + data;
}

/// The key, learned from what the program itself writes over a body that is known.
std::string learnKey(const TemporaryProject& project)
{
    GameResourceFile archive;
    archive.addText(u"key", WString(256, u'.'));
    EXPECT_TRUE(archive.save(u"key.gamedata"));
    const std::string written = project.read("key.gamedata").substr(kHead);
    const std::string plain = entry("TEXT", "key", std::string(256, '.') + '\0');
    EXPECT_EQ(written.size(), plain.size());
    std::string key;
    for (std::size_t i = 0; i < 64; ++i)
        key += static_cast<char>(written[i] ^ plain[i]);
    return key;
}

std::string scrambled(std::string body, const std::string& key)
{
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(body[i] ^ key[i % 64]);
    return body;
}

std::string textOf(const GameResourceFile& archive, WStringView name)
{
    const auto* resource = archive.getResource(name);
    return resource ? std::string(asChars(resource->data)) : "(none)";
}

WString loadFault(const std::string& bytes)
{
    GameResourceFile archive;
    try {
        archive.loadBytes(bytes, u"F");
    } catch (const Exception& fault) {
        return fault.getMessage();
    }
    return u"(loaded)";
}

TEST(GameResourceFile, WritesTheDocumentedBytes)
{
    const TemporaryProject project;
    const std::string key = learnKey(project);
    // Larger than the blocks that the archive is written in, and no multiple of the key's length.
    std::string large;
    for (std::size_t i = 0; i < 700'001; ++i)
        large += static_cast<char>(i * i / 7);
    project.write("Audio/Large.ogg", large);
    project.write("empty", "");

    GameResourceFile archive;
    archive.addText(u"DATABASE", u"<Database>\u00e9\u65e5</Database>");
    archive.addFile(u"Audio/Large.ogg", u"audio\\large.OGG");
    archive.addFile(u"empty", u"empty");
    archive.addText(u"none", u"");
    ASSERT_TRUE(archive.save(kArchive));

    const std::string body =
        entry("TEXT", "DATABASE",
              "<Database>\xC3\xA9\xE6\x97\xA5</Database>" + std::string(1, '\0')) +
        entry("FILE", "Audio/Large.ogg", large) + entry("FILE", "empty", "") +
        entry("TEXT", "none", std::string(1, '\0'));
    EXPECT_TRUE(project.read(kArchive) == head(4, 1) + scrambled(body, key));
}

TEST(GameResourceFile, ReadsBackWhatItWrote)
{
    const TemporaryProject project;
    project.write("a.bin", std::string("\0\1\2", 3));
    GameResourceFile archive;
    archive.addText(u"\u65e5\u672c", u"text\u65e5");
    archive.addFile(u"Dungeon/B 1.map", u"a.bin");
    ASSERT_TRUE(archive.save(kArchive));
    archive.load(kArchive);

    ASSERT_EQ(archive.getResources().size(), 2U);
    EXPECT_EQ(archive.getResources()[0].name, u"\u65e5\u672c");
    EXPECT_EQ(textOf(archive, u"\u65e5\u672c"), std::string("text\xE6\x97\xA5\0", 8));
    EXPECT_EQ(asChars(archive.getResource(u"\u65e5\u672c")->content()), "text\xE6\x97\xA5");
    EXPECT_EQ(textOf(archive, u"Dungeon/B 1.map"), std::string("\0\1\2", 3));
    EXPECT_EQ(asChars(archive.getResource(u"Dungeon/B 1.map")->content()).size(), 3U);
    EXPECT_EQ(archive.getResource(u"dungeon/b 1.map"), nullptr);
}

TEST(GameResourceFile, WritesAnEmptyArchive)
{
    const TemporaryProject project;
    GameResourceFile archive;
    ASSERT_TRUE(archive.save(kArchive));
    EXPECT_EQ(project.read(kArchive), head(0, 1));
    archive.load(kArchive);
    EXPECT_TRUE(archive.getResources().empty());
}

TEST(GameResourceFile, SkipsWhatItCannotPackAndCountsIt)
{
    const TemporaryProject project;
    RecordingHost host;
    project.write("sparse", "");
    std::filesystem::resize_file("sparse", 0xFFFFFFFFULL - 10); // fits, but not with its name
    GameResourceFile archive;
    archive.addText(u"first", u"1");
    archive.addFile(u"gone", u"no/such.file");
    archive.addFile(u"huge", u"sparse");
    archive.addText(WString(259, u'n'), u"name of 260 with its terminator");
    archive.addText(WString(258, u'n'), u"longest");
    ASSERT_TRUE(archive.save(kArchive));

    const std::vector<WString> expected = {
        u"Couldn't open this file.\r\nno/such.file",
        u"This file is too large for the gamedata.\r\nsparse",
        u"This name is too long for the gamedata.\r\n" + WString(259, u'n'),
    };
    EXPECT_EQ(host.messages, expected);
    EXPECT_EQ(project.read(kArchive).substr(12, 4), u32(5));
    archive.load(kArchive);
    EXPECT_EQ(archive.getResources().size(), 2U);
}

TEST(GameResourceFile, LeavesTheOldFileWhereItCannotFinish)
{
    const TemporaryProject project;
    RecordingHost host;
    project.write(kArchive, "old");
    project.write("asset", std::string(3 << 20, 'x'));

    GameResourceFile archive;
    archive.addFile(u"asset", u"asset");
    EXPECT_FALSE(archive.save(kArchive, [](auto done, auto total, WStringView name) {
        EXPECT_EQ(name, u"asset");
        EXPECT_EQ(total, 3U << 20);
        return done < total / 2;
    }));
    EXPECT_EQ(project.read(kArchive), "old");
    EXPECT_TRUE(host.messages.empty());

    EXPECT_FALSE(archive.save(u"no/such/folder/out.gamedata"));
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0], u"no/such/folder/out.gamedata\r\nCouldn't open the resource file.");
}

TEST(GameResourceFile, SurvivesAFileThatChangesWhileItIsRead)
{
    const TemporaryProject project;
    const std::string start(2 << 20, 'a');
    for (const std::size_t newSize : {std::size_t{3} << 20, std::size_t{1} << 20}) {
        project.write("changing", start);
        GameResourceFile archive;
        archive.addText(u"before", u"1");
        archive.addFile(u"changing", u"changing");
        archive.addText(u"behind", u"2");
        ASSERT_TRUE(archive.save(kArchive, [&](auto done, auto, WStringView name) {
            if (name == u"changing" && done < 600'000)
                std::filesystem::resize_file("changing", newSize);
            return true;
        }));
        archive.load(kArchive);
        ASSERT_EQ(archive.getResources().size(), 3U);
        EXPECT_EQ(archive.getResource(u"changing")->size, newSize);
        EXPECT_EQ(textOf(archive, u"behind"), std::string("2\0", 2));
    }
}

TEST(GameResourceFile, RefusesBrokenArchives)
{
    const TemporaryProject project;
    const std::string key = learnKey(project);
    const std::string one = entry("FILE", "a", "data");
    const std::string longName = entry("FILE", std::string(259, 'n'), "");
    std::string plainKind = project.read("key.gamedata");
    plainKind[8] = 0;
    std::string unmarked = head(1, 1) + one;
    unmarked[9] = 0; // scrambling disabled

    const struct
    {
        const char* name;
        std::string bytes;
        WStringView fault;
    } cases[] = {
        {"nothing", "", u"The gamedata is not supported. F"},
        {"other magic", "GREX" + one, u"The gamedata is not supported. F"},
        {"header size", head(1, 0, 20) + one, u"The gamedata's header size is invalid.F"},
        {"cut in the head", head(0, 0).substr(0, 20), u"The gamedata's header size is invalid.F"},
        {"scrambled marked plain", plainKind, u"The gamedata has a invalid signature. F"},
        {"lower case", head(1, 0) + "file" + one.substr(4),
         u"The gamedata has a invalid signature. F"},
        {"name of 260", head(1, 0) + longName, u"The gamedata's file name size is invalid. F"},
        {"same name twice", head(2, 0) + one + one, u"The gamedata has a duplicate entry name. F"},
        {"cut in the details", head(1, 0) + one.substr(0, 31),
         u"The gamedata ends within an entry. F"},
        {"cut in the data", head(1, 0) + one.substr(0, one.size() - 1),
         u"The gamedata ends within an entry. F"},
        {"cut in an entry's head", head(9, 0) + one + one.substr(0, 11), u"(loaded)"},
        {"count is not looked at", head(77, 0) + one, u"(loaded)"},
        {"scrambled", head(1, 1) + scrambled(one, key), u"(loaded)"},
        {"scrambling disabled", unmarked, u"(loaded)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(loadFault(c.bytes), c.fault) << c.name;
}

TEST(GameResourceFile, KeepsTheEntriesBeforeAFault)
{
    const std::string one = entry("FILE", "a", "data");
    GameResourceFile archive;
    EXPECT_THROW(archive.loadBytes(head(1, 0) + one + "junk of 12 b", u"F"), Exception);
    EXPECT_EQ(textOf(archive, u"a"), "data");
    const TemporaryProject project;
    EXPECT_THROW(archive.load(u"none.gamedata"), FileNotFoundException);
    EXPECT_TRUE(archive.getResources().empty());
}

TEST(GameResourceFile, StandsInForMissingFiles)
{
    const TemporaryProject project;
    closeProjectArchive();
    EXPECT_EQ(readFileOrResource(u"Scripts/a.txt", u"Scripts/a.txt"), std::nullopt);

    GameResourceFile archive;
    archive.addText(u"Scripts/a.txt", u"packed");
    ASSERT_TRUE(archive.save(u"GameData.gamedata"));
    EXPECT_EQ(projectArchive(), nullptr) << "asked once";
    closeProjectArchive();
    EXPECT_EQ(readFileOrResource(u"Scripts/a.txt", u"Scripts/a.txt"), "packed");
    project.write("scripts/A.TXT", "plain");
    EXPECT_EQ(readFileOrResource(u"Scripts\\a.txt", u"Scripts/a.txt"), "plain");

    RecordingHost host;
    project.write("GameData.gamedata", "junk");
    closeProjectArchive();
    EXPECT_EQ(projectArchive(), nullptr);
    EXPECT_EQ(projectArchive(), nullptr);
    EXPECT_EQ(host.messages,
              std::vector<WString>{u"The gamedata is not supported. GameData.gamedata"});
    closeProjectArchive();
}

} // namespace
} // namespace varn

#include "Util/File.h"

#include "Support/ChildProcess.h"
#include "Support/TemporaryProject.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace varn {
namespace {

namespace fs = std::filesystem;
using test::TemporaryProject;
using Scratch = FileReplacement::Scratch;

std::size_t entriesOf(const fs::path& folder)
{
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

bool save(const fs::path& path, std::string_view bytes, Scratch scratch = Scratch::Nameless)
{
    FileReplacement file(path, scratch);
    return file.write(asBytes(bytes)) && file.commit();
}

TEST(ReadFile, TakesPlainFilesOnly)
{
    TemporaryProject project;
    project.write("a", "text");
    project.write("empty", "");
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    EXPECT_EQ(readFile("a"), "text");
    EXPECT_EQ(readFile("empty"), "");
    for (const char* other : {"missing", ".", "pipe", "a/b"})
        EXPECT_FALSE(readFile(other)) << other;

    File file;
    ASSERT_TRUE(file.open("a"));
    std::byte buffer[3];
    EXPECT_EQ(file.read(buffer), 3u);
    EXPECT_EQ(file.read(buffer), 1u);
    EXPECT_EQ(file.read(buffer), 0u);
    EXPECT_FALSE(file.open("missing"));
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(file.getSize(), 0u);
}

TEST(FileReplacement, KeepsWhatTheOldFileWas)
{
    for (const Scratch scratch : {Scratch::Nameless, Scratch::Named}) {
        TemporaryProject project;
        project.write("real/target", "old");
        fs::create_symlink("real/target", "link");
        fs::create_symlink("real/new", "dangling");
        fs::permissions("real/target", fs::perms(0640));
        EXPECT_TRUE(save("link", "longer than before", scratch));
        EXPECT_TRUE(save("dangling", "made", scratch));
        EXPECT_TRUE(fs::is_symlink("link"));
        EXPECT_EQ(project.read("real/target"), "longer than before");
        EXPECT_EQ(fs::status("real/target").permissions(), fs::perms(0640));
        EXPECT_EQ(project.read("real/new"), "made");
        EXPECT_EQ(entriesOf("real"), 2u) << "scratch files are gone";
    }
}

TEST(FileReplacement, LeavesTheOldFileWithoutACommit)
{
    for (const Scratch scratch : {Scratch::Nameless, Scratch::Named}) {
        TemporaryProject project;
        project.write("a", "old");
        {
            FileReplacement file("a", scratch);
            EXPECT_TRUE(file.write(asBytes("half of the new")));
        }
        EXPECT_EQ(project.read("a"), "old");
        EXPECT_EQ(entriesOf("."), 1u);
    }
}

TEST(FileReplacement, WritesHeadersLast)
{
    TemporaryProject project;
    FileReplacement file("a");
    EXPECT_TRUE(file.write(asBytes("....body")));
    EXPECT_TRUE(file.writeAt(0, asBytes("head")));
    EXPECT_TRUE(file.write(asBytes(" tail")));
    EXPECT_TRUE(file.commit());
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(project.read("a"), "headbody tail");
}

TEST(FileReplacement, TellsWhereNothingCanBeWritten)
{
    TemporaryProject project;
    fs::create_directory("folder");
    fs::create_symlink("loop", "loop");
    for (const char* path : {"folder", "missing/a", "/proc/nothing", "/dev/full", "loop"})
        EXPECT_FALSE(replaceFile(path, asBytes("x"))) << path;
    EXPECT_TRUE(replaceFile("/dev/null", asBytes("x")))
        << "what is no plain file is written in place";
}

TEST(FileReplacement, RespectsAReadOnlyFile)
{
    TemporaryProject project;
    project.write("a", "old");
    fs::permissions("a", fs::perms(0444));
    fs::permissions(".", fs::perms(0777));
    EXPECT_TRUE(test::holdsForOrdinaryUser([] { return !replaceFile("a", asBytes("new")); }));
    EXPECT_EQ(project.read("a"), "old");
}

TEST(FileReplacement, WritesInPlaceWhereTheFolderRefusesNewNames)
{
    TemporaryProject project;
    project.write("closed/a", "a longer old text");
    fs::permissions("closed/a", fs::perms(0666));
    fs::permissions("closed", fs::perms(0555));
    fs::permissions(".", fs::perms(0755));
    EXPECT_TRUE(test::holdsForOrdinaryUser([] {
        {
            FileReplacement dropped("closed/a");
            dropped.write(asBytes("dropped"));
        }
        return readFile("closed/a") == "a longer old text" &&
               replaceFile("closed/a", asBytes("new")) && !replaceFile("closed/b", asBytes("new"));
    }));
    EXPECT_EQ(project.read("closed/a"), "new");

    project.write("sticky/a", "old"); // takes new names, but gives up only one's own
    fs::permissions("sticky/a", fs::perms(0666));
    fs::permissions("sticky", fs::perms(01777));
    EXPECT_TRUE(test::holdsForOrdinaryUser([] { return replaceFile("sticky/a", asBytes("new")); }));
    EXPECT_EQ(project.read("sticky/a"), "new");
    EXPECT_EQ(entriesOf("sticky"), 1u);
}

/// The limit stands for a full disk: the write that passes it fails, or kills the process.
TEST(FileReplacement, KeepsTheOldFileWhenTheDiskIsFull)
{
    for (const bool killed : {false, true}) {
        for (const Scratch scratch : {Scratch::Nameless, Scratch::Named}) {
            TemporaryProject project;
            project.write("a", "old");
            test::ChildProcess child([&] {
                const rlimit limit = {5000, 5000};
                ::setrlimit(RLIMIT_FSIZE, &limit);
                ::signal(SIGXFSZ, killed ? SIG_DFL : SIG_IGN);
                return save("a", std::string(100000, 'x'), scratch) ? 1 : 0;
            });
            const int status = child.wait();
            EXPECT_EQ(killed ? WTERMSIG(status) : status, killed ? SIGXFSZ : 0);
            EXPECT_EQ(project.read("a"), "old");
            EXPECT_EQ(entriesOf("."), killed && scratch == Scratch::Named ? 2u : 1u);
        }
    }
}

TEST(ProgramFolder, HoldsTheProgram)
{
    EXPECT_TRUE(fs::exists(programFolder() / programStem()));
    EXPECT_EQ(programFolder().native().back(), '/');
    TemporaryProject project;
    EXPECT_TRUE(createDirectories("a/b/c"));
    EXPECT_TRUE(createDirectories("a/b"));
    project.write("file", "");
    EXPECT_FALSE(createDirectories("file/b"));
}

} // namespace
} // namespace varn

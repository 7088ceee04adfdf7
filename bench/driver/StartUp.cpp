// How long the driver takes from start to exit, as ratios to peers that are run in turn with it:
// `varn --version` to an empty program, and calls on a large project to `cat` of the project's
// files.
//
//   bench_startup VARN EMPTY

#include "Game/Database/GameDatabase.h"
#include "Game/Database/StoryTables.h"
#include "Game/Map/MapHierarchy.h"
#include "Game/Map/WizMap.h"
#include "Util/File.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;
using namespace varn;

namespace {

using Words = std::vector<std::string>;

/// Runs a program with its output thrown away; milliseconds from start to exit.
double run(const Words& words)
{
    std::vector<char*> argv;
    for (const std::string& word : words)
        argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = 0;
    if (posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ) != 0 ||
        waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s failed\n", argv[0]);
        std::exit(1);
    }
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    return taken.count();
}

double median(std::vector<double> values)
{
    std::ranges::nth_element(values, values.begin() + static_cast<long>(values.size() / 2));
    return values[values.size() / 2];
}

/// The two in turn, so that a machine that slows down slows both; the ratio is that of the medians.
void compare(const char* name, const Words& ours, const Words& peer, int runs)
{
    std::vector<double> mine, theirs;
    run(ours);
    run(peer);
    for (int i = 0; i < runs; ++i) {
        mine.push_back(run(ours));
        theirs.push_back(run(peer));
    }
    std::printf("%-34s %8.2f ms  peer %8.2f ms  ratio %6.2f\n", name, median(mine), median(theirs),
                median(mine) / median(theirs));
    std::fflush(stdout);
}

constexpr std::size_t kMessageBytes = 16u << 20;
constexpr int kFloors = 60;

void writeMessages()
{
    MessageTable& table = MessageTable::instance();
    table.load(u"MessageTable.xml", 0);
    const WString text(2000, u'\x3042');
    for (std::size_t bytes = 0; bytes < kMessageBytes; bytes += 2 * text.size()) {
        table.appendBlank();
        table.at(table.size() - 1).setMessage(0, text);
    }
    table.save();
}

void writeFloors()
{
    MapHierarchy tree;
    WizMap map;
    map.cols = map.rows = kMapStride;
    for (int y = 0; y < map.rows; ++y)
        for (int x = 0; x < map.cols; ++x)
            map.setWall((x * 7 + y * 3) % 3, kSides[(x + y) % 4], x, y);
    for (int i = 0; i < kFloors; ++i) {
        const WString name = u"B" + toDecimal(i) + u"F";
        map.save(u"Dungeon/" + name);
        tree.addMap(std::nullopt, name);
    }
    tree.save(u"Dungeon/MapHierarchy.ini");
}

/// Every table of a start, an export and the database window, full of blank rows.
void writeTables()
{
    for (const auto& loaded : {loadStartupTables(), loadDatabaseTables(), loadExportTables()})
        for (const LoadedTable& table : loaded)
            table.table->save();
}

Words filesBelow(const fs::path& folder)
{
    Words files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path().string());
    return files;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: bench_startup VARN EMPTY\n", stderr);
        return 2;
    }
    const std::string varn = fs::absolute(argv[1]).string();
    compare("varn --version : empty program", {varn, "--version"}, {fs::absolute(argv[2]).string()},
            200);

    std::string folder = (fs::temp_directory_path() / "varn-bench-XXXXXX").string();
    if (!::mkdtemp(folder.data()))
        return 1;
    fs::current_path(folder);
    fs::create_directory("Dungeon");
    writeTables();
    writeMessages();
    writeFloors();
    Words cat = filesBelow(".");
    cat.insert(cat.begin(), "cat");
    const std::string settings = folder + "/mapeditor.ini";
    const auto ours = [&](Words words) {
        words.insert(words.begin(), {varn, "--settings", settings});
        return words;
    };
    compare("varn start : cat", ours({"start"}), cat, 21);
    compare("varn table MessageTable.xml : cat", ours({"table", "MessageTable.xml"}), cat, 11);
    fs::create_directory("out");
    compare("varn export : cat", ours({"export", "out"}), cat, 11);
    fs::current_path("/");
    fs::remove_all(folder);
}

// Writing a game archive against `cat FILES > ONE` over the same files, in the same run,
// alternately.
//
//   ArchiveBench [MEGABYTES [ROUNDS [FOLDER]]]
//
// Builds MEGABYTES (1024) of assets below FOLDER (the temporary folder), reads them once so that
// both find them in the page cache, then prints the medians of ROUNDS (5) and the ratios. `cat`
// does not sync, the archive is on the disk when `save` returns: so `cat` followed by a sync stands
// beside both.

#include "Game/GameResourceFile.h"
#include "Util/ProjectPath.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

namespace fs = std::filesystem;
using Seconds = std::chrono::duration<double>;

double timeOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return Seconds(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

[[noreturn]] void fail(const char* what)
{
    std::perror(what);
    std::exit(1);
}

/// A value of /proc/self/status in kB.
long statusValue(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(key + ":"))
            return std::atol(line.c_str() + key.size() + 1);
    }
    return 0;
}

/// Files as a game has them: long music, pictures, and many small ones; bytes that do not repeat.
std::vector<fs::path> makeAssets(const fs::path& folder, std::size_t total)
{
    constexpr std::size_t kSizes[] = {12'582'917, 1'500'001, 40'009, 700'003, 3'001};
    std::vector<char> bytes(std::size_t{16} << 20);
    std::uint32_t word = 2463534242;
    for (char& byte : bytes) {
        word ^= word << 13, word ^= word >> 17, word ^= word << 5;
        byte = static_cast<char>(word);
    }
    std::vector<fs::path> files;
    for (std::size_t made = 0; made < total;) {
        const std::size_t index = files.size();
        const std::size_t size = std::min(kSizes[index % std::size(kSizes)], total - made);
        files.push_back(folder / ("asset" + std::to_string(index)));
        std::ofstream out(files.back(), std::ios::binary);
        out.write(bytes.data() + index % 4096, static_cast<std::streamsize>(size));
        made += size;
    }
    return files;
}

void runCat(const std::vector<fs::path>& files, const fs::path& out)
{
    std::vector<std::string> words = {"cat"};
    for (const fs::path& file : files)
        words.push_back(file.string());
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t child = 0;
    if (posix_spawnp(&child, "cat", &actions, nullptr, arguments.data(), environ) != 0)
        fail("cat");
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (waitpid(child, &status, 0) < 0 || status != 0)
        fail("cat");
}

void syncFile(const fs::path& path)
{
    const int handle = ::open(path.c_str(), O_RDONLY);
    if (handle < 0 || ::fsync(handle) != 0)
        fail("fsync");
    ::close(handle);
}

void readAll(const std::vector<fs::path>& files)
{
    std::vector<char> buffer(1 << 20);
    for (const fs::path& path : files) {
        std::ifstream in(path, std::ios::binary);
        while (in.read(buffer.data(), static_cast<std::streamsize>(buffer.size())))
            continue;
    }
}

} // namespace

int main(int count, char** words)
{
    const std::size_t megabytes = count > 1 ? std::strtoul(words[1], nullptr, 10) : 1024;
    const std::size_t rounds = count > 2 ? std::strtoul(words[2], nullptr, 10) : 5;
    const fs::path base = count > 3 ? fs::path(words[3]) : fs::temp_directory_path();
    const fs::path folder = base / ("varn-bench-export-" + std::to_string(::getpid()));
    fs::create_directories(folder);

    const std::vector<fs::path> files = makeAssets(folder, megabytes << 20);
    const fs::path joined = folder / "joined";
    const fs::path archive = folder / "GameData.gamedata";
    varn::GameResourceFile game;
    for (const fs::path& file : files)
        game.addFile(varn::toWide(file.filename()), varn::toWide(file));

    const auto fresh = [&] {
        fs::remove(joined);
        fs::remove(archive);
        ::sync();
    };
    std::vector<double> cat, catAndSync, save;
    long peak = 0;
    readAll(files);
    for (std::size_t round = 0; round < rounds; ++round) {
        fresh();
        double copied = 0;
        const double synced = timeOf([&] {
            copied = timeOf([&] { runCat(files, joined); });
            syncFile(joined);
        });
        cat.push_back(copied);
        catAndSync.push_back(synced);

        fresh();
        std::ofstream("/proc/self/clear_refs") << "5"; // the peak counts from here
        const long before = statusValue("VmRSS");
        save.push_back(timeOf([&] {
            if (!game.save(varn::toWide(archive)))
                fail("save");
        }));
        peak = std::max(peak, statusValue("VmHWM") - before);
        std::printf("round %zu: cat %.3f s, cat and sync %.3f s, save %.3f s\n", round + 1, copied,
                    synced, save.back());
    }
    std::printf("%zu files, %zu MB: cat %.3f s, cat and sync %.3f s, save %.3f s (on the disk)\n",
                files.size(), megabytes, median(cat), median(catAndSync), median(save));
    std::printf("save / cat %.2f, save / cat and sync %.2f, peak memory above the start %.1f MB\n",
                median(save) / median(cat), median(save) / median(catAndSync),
                static_cast<double>(peak) / 1024);
    fs::remove_all(folder);
    return 0;
}

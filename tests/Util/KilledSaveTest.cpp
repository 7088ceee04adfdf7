#include "Support/ChildProcess.h"
#include "Support/TemporaryProject.h"
#include "Util/File.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <sys/ptrace.h>
#include <thread>

namespace varn {
namespace {

using Scratch = FileReplacement::Scratch;

constexpr std::size_t kSmallest = 100'000;

/// A file that tells its version in its length and in every byte.
std::string contentOf(unsigned version)
{
    return std::string(kSmallest + version % 1000, static_cast<char>('a' + version % 26));
}

bool save(unsigned version, Scratch scratch)
{
    FileReplacement file("B1F.map", scratch);
    const std::string bytes = contentOf(version);
    const ByteSpan whole = asBytes(bytes);
    return file.write(whole.first(30'000)) && file.write(whole.subspan(30'000)) && file.commit();
}

/// The version in the file, or nothing when it is no version whole.
std::optional<unsigned> versionOf(const std::string& bytes)
{
    if (bytes.size() < kSmallest)
        return std::nullopt;
    const auto version = static_cast<unsigned>(bytes.size() - kSmallest);
    return bytes == contentOf(version) ? std::optional(version) : std::nullopt;
}

TEST(KilledSave, AtRandomMomentsLeavesAWholeFile)
{
    constexpr int kKills = 300;
    constexpr unsigned kVersions = 26; // so that length and letter go round together
    std::mt19937 random(1);
    test::TemporaryProject project;
    project.write("B1F.map", contentOf(0));
    int newer = 0;
    for (int i = 0; i < kKills; ++i) {
        const Scratch scratch = i % 2 == 0 ? Scratch::Nameless : Scratch::Named;
        {
            test::ChildProcess child([&] {
                for (unsigned version = 1;; version = version % (kVersions - 1) + 1)
                    save(version, scratch);
                return 0;
            });
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 6000));
        }
        const auto version = versionOf(project.read("B1F.map"));
        ASSERT_TRUE(version) << "after kill " << i;
        newer += *version != 0;
    }
    EXPECT_GT(newer, kKills / 2) << "the kills came before any save was done";
}

/// Runs one save under trace and kills it at its system call number `stop`, counting entries and
/// exits. False: the save was done before that.
bool saveKilledAt(int stop, Scratch scratch)
{
    test::ChildProcess child([scratch] {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        return save(1, scratch) ? 0 : 1;
    });
    int status = 0;
    for (int i = 0; i <= stop; ++i) {
        ::waitpid(child.processId(), &status, 0);
        if (!WIFSTOPPED(status))
            return false;
        if (i < stop)
            ::ptrace(PTRACE_SYSCALL, child.processId(), nullptr, nullptr);
    }
    return true;
}

TEST(KilledSave, AtEverySystemCallLeavesAWholeFile)
{
    for (const Scratch scratch : {Scratch::Nameless, Scratch::Named}) {
        bool wasNew = false;
        int stop = 0;
        for (bool killed = true; killed; ++stop) {
            test::TemporaryProject project;
            project.write("B1F.map", contentOf(0));
            killed = saveKilledAt(stop, scratch);
            const auto version = versionOf(project.read("B1F.map"));
            ASSERT_TRUE(version) << "killed at stop " << stop;
            EXPECT_GE(*version, wasNew ? 1u : 0u) << "the new file came and went";
            wasNew = *version == 1;
        }
        EXPECT_TRUE(wasNew);
        EXPECT_GT(stop, 12) << "fewer system calls than a safe save takes";
    }
}

} // namespace
} // namespace varn

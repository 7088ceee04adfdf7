#include "ScriptRun.h"
#include "Support/TemporaryProject.h"

#include <filesystem>
#include <gtest/gtest.h>

// One short script a behaviour. A line tells what it causes at its end: `// expect: TEXT` a trace,
// `// expect message: TEXT` a box or the end of the run with that in it. Nothing else may happen.

namespace varn::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> expectations(const std::string& source, std::string_view mark)
{
    std::vector<std::string> found;
    for (std::size_t at = source.find(mark); at != std::string::npos; at = source.find(mark, at)) {
        at += mark.size();
        found.push_back(source.substr(at, source.find('\n', at) - at));
    }
    return found;
}

class ScriptFile : public testing::TestWithParam<std::string>
{};

TEST_P(ScriptFile, DoesWhatItSays)
{
    const std::string source = readSource("tests/Game/Compiler/scripts/" + GetParam());
    const ScriptRun run = runScript(source);
    EXPECT_EQ(run.compileErrors, "");
    EXPECT_EQ(run.traces, expectations(source, "// expect: "));
    std::vector<std::string> told = run.messages;
    if (!run.fatal.empty())
        told.push_back(run.fatal);
    const auto wanted = expectations(source, "// expect message: ");
    ASSERT_EQ(told.size(), wanted.size()) << testing::PrintToString(told);
    for (std::size_t i = 0; i < told.size(); ++i)
        EXPECT_NE(told[i].find(wanted[i]), std::string::npos) << told[i];
}

std::vector<std::string> scriptFiles()
{
    const fs::path folder = fs::path(VARN_SOURCE_DIR) / "tests/Game/Compiler/scripts";
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.path().extension() == ".txt")
            files.push_back(fs::relative(entry.path(), folder).generic_string());
    std::sort(files.begin(), files.end());
    return files;
}

std::string testName(const testing::TestParamInfo<std::string>& file)
{
    std::string name;
    for (const char c : file.param.substr(0, file.param.size() - 4))
        name.push_back(std::isalnum(static_cast<unsigned char>(c)) ? c : '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Scripts, ScriptFile, testing::ValuesIn(scriptFiles()), testName);

} // namespace
} // namespace varn::test

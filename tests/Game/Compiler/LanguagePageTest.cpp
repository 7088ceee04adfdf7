#include "ScriptRun.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

// Every example of docs/language.md is run, and does what it says at its lines' ends.

namespace varn::test {
namespace {

/// A fenced block: a script, or, with a name behind the fence, a file that later ones include.
struct Example
{
    std::string fileName;
    std::string source;
    std::size_t line = 0; ///< of the page, where the source begins
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        lines.push_back(text.substr(start, end - start));
    return lines;
}

std::vector<Example> examplesOf(const std::string& page)
{
    constexpr std::string_view kFence = "```js";
    std::vector<Example> examples;
    bool inside = false;
    std::size_t number = 0;
    for (const std::string& line : linesOf(page)) {
        ++number;
        if (inside && line == "```")
            inside = false;
        else if (inside)
            examples.back().source += line + "\n";
        else if ((inside = line.starts_with(kFence)))
            examples.push_back(
                {line.substr(std::min(kFence.size() + 1, line.size())), "", number + 1});
    }
    return examples;
}

/// What stands behind a mark at the ends of the lines.
std::vector<std::string> told(const std::string& source, const std::string& mark)
{
    std::vector<std::string> found;
    for (const std::string& line : linesOf(source))
        if (const std::size_t at = line.find(mark); at != std::string::npos)
            found.push_back(line.substr(at + mark.size()));
    return found;
}

/// Each of the texts has its part, in order.
void expectParts(const std::vector<std::string>& texts, const std::vector<std::string>& parts)
{
    ASSERT_EQ(texts.size(), parts.size()) << testing::PrintToString(texts);
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_NE(texts[i].find(parts[i]), std::string::npos) << texts[i];
}

void expectAsTold(const Example& example)
{
    const auto prints = told(example.source, "// prints: ");
    const auto shows = told(example.source, "// shows: ");
    const auto refused = told(example.source, "// refused: ");
    EXPECT_GT(prints.size() + shows.size() + refused.size(), 0U) << "tells nothing";
    Stage stage;
    Script vm;
    vm.setServices({.stage = &stage});
    ScriptRun run = runScript(example.source, vm, u"example");
    EXPECT_EQ(run.traces, prints);
    if (!run.fatal.empty())
        run.messages.push_back(run.fatal);
    expectParts(run.messages, shows);
    expectParts(linesOf(run.compileErrors), refused);
}

TEST(LanguagePage, ExamplesDoWhatTheySay)
{
    const TemporaryProject project;
    const std::vector<Example> examples = examplesOf(readSource("docs/language.md"));
    EXPECT_GT(examples.size(), 30U);
    for (const Example& example : examples) {
        const testing::ScopedTrace place("docs/language.md", static_cast<int>(example.line),
                                         example.source);
        if (example.fileName.empty())
            expectAsTold(example);
        else
            project.write(example.fileName, example.source);
    }
}

} // namespace
} // namespace varn::test

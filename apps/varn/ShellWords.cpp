#include "ShellWords.h"

namespace varn::driver {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kEscapedInQuotes = "\"\\$`";

class WordReader
{
  public:
    explicit WordReader(std::string_view line) : rest(line) {}

    /// Moves to the next word; false at the end or before a comment.
    bool skipBlanks()
    {
        rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
        return !rest.empty() && rest.front() != '#';
    }

    std::string word()
    {
        std::string text;
        while (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos) {
            const char c = take();
            if (c == '\'')
                readSingleQuoted(text);
            else if (c == '"')
                readDoubleQuoted(text);
            else if (c == '\\')
                text += takeOr("a backslash stands at the end of the line");
            else
                text += c;
        }
        return text;
    }

  private:
    void readSingleQuoted(std::string& text)
    {
        for (char c = takeQuoted(); c != '\''; c = takeQuoted())
            text += c;
    }

    void readDoubleQuoted(std::string& text)
    {
        for (char c = takeQuoted(); c != '"'; c = takeQuoted()) {
            const bool escapes = c == '\\' && !rest.empty() &&
                                 kEscapedInQuotes.find(rest.front()) != std::string_view::npos;
            text += escapes ? take() : c;
        }
    }

    char takeQuoted() { return takeOr("a quote is not closed"); }

    char takeOr(const char* fault)
    {
        if (rest.empty())
            throw QuotingError(fault);
        return take();
    }

    char take()
    {
        const char c = rest.front();
        rest.remove_prefix(1);
        return c;
    }

    std::string_view rest;
};

} // namespace

std::vector<std::string> splitShellWords(std::string_view line)
{
    std::vector<std::string> words;
    WordReader reader(line);
    while (reader.skipBlanks())
        words.push_back(reader.word());
    return words;
}

} // namespace varn::driver

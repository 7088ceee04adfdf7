#include "Game/Compiler/CodeCompletion.h"

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/Token.h"
#include "Parser/Tokenizer.h"

#include <algorithm>

namespace varn {
namespace {

using Kind = CompletionCandidate::Kind;
using Methods = ClassInterface::Methods;
using SmallToken = Tokenizer::Token;
using Tokens = std::vector<SmallToken>;

Tokens tokensOf(WStringView line)
{
    return Tokenizer(line).rest();
}

/// Takes the last line away and gives it.
WStringView takeLastLine(WStringView& text)
{
    const std::size_t end = text.find_last_of(u"\r\n");
    const WStringView line = end == WStringView::npos ? text : text.substr(end + 1);
    text = text.substr(0, end == WStringView::npos ? 0 : end);
    return line;
}

bool isMark(const SmallToken& token, WStringView mark)
{
    return token.kind == Tokenizer::Kind::Mark && token.text == mark;
}

bool isWord(const SmallToken& token)
{
    return token.kind == Tokenizer::Kind::Word;
}

const ClassInterface* findClass(WStringView name)
{
    return GlobalClassTable::instance().find(toUtf8(name));
}

/// A word put behind the line does not come out as one.
bool endsInTextOrComment(WStringView line)
{
    const Tokens tokens = tokensOf(WString(line) + u" _");
    return tokens.empty() || !isWord(tokens.back()) || tokens.back().text != u"_";
}

/// The class that a line shows for a name, by its annotation or by its first value; or null.
const ClassInterface* classShown(const Tokens& tokens, WStringView name)
{
    for (std::size_t i = 0; i + 2 < tokens.size(); ++i) {
        if (!isWord(tokens[i]) || tokens[i].text != name)
            continue;
        const SmallToken& value = tokens[i + 2];
        const ClassInterface* found = nullptr;
        if (isMark(tokens[i + 1], u":") && isWord(value))
            found = findClass(value.text);
        else if (!isMark(tokens[i + 1], u"="))
            continue;
        else if (value.kind == Tokenizer::Kind::String)
            found = findClass(u"String");
        else if (isMark(value, u"["))
            found = findClass(u"Array");
        else if (value.text == u"new" && i + 3 < tokens.size())
            found = findClass(tokens[i + 3].text);
        if (found)
            return found;
    }
    return nullptr;
}

/// The class of a variable, from the nearest line above that tells it.
const ClassInterface* classOfVariable(WStringView before, WStringView name)
{
    while (!before.empty()) {
        const WStringView line = takeLastLine(before);
        if (line.find(name) == WStringView::npos)
            continue;
        if (const ClassInterface* found = classShown(tokensOf(line), name))
            return found;
    }
    return nullptr;
}

/// What stands before a dot.
struct Receiver
{
    const ClassInterface* type = nullptr; ///< null: not known
    bool isClassName = false;
};

Receiver receiverOf(const SmallToken& token, WStringView before)
{
    if (token.kind == Tokenizer::Kind::String)
        return {findClass(u"String"), false};
    if (!isWord(token))
        return {};
    if (const ClassInterface* named = findClass(token.text))
        return {named, true};
    return {classOfVariable(before, token.text), false};
}

class CandidateList
{
  public:
    explicit CandidateList(WStringView word) : word(word) {}

    void add(std::string_view name, Kind kind)
    {
        WString wide = widen(name);
        if (equalsIgnoringAsciiCase(WStringView(wide).substr(0, word.size()), word))
            found.push_back({std::move(wide), kind});
    }
    void addMethods(const Receiver& receiver)
    {
        if (!receiver.type)
            return;
        const Methods which = receiver.isClassName ? Methods::Static : Methods::All;
        for (const std::string& name : receiver.type->getMethodNames(which))
            add(name, Kind::Method);
    }
    void addGlobals()
    {
        for (const Keyword& keyword : kKeywords)
            add(keyword.spelling, Kind::Keyword);
        for (const auto& each : GlobalClassTable::instance().classes())
            add(each->scriptName(), Kind::Class);
        for (const std::string& name : globalFunctionNames())
            add(name, Kind::Function);
    }
    std::vector<CompletionCandidate> sorted() &&
    {
        std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
            return std::pair(folded(a.name), WStringView(a.name)) <
                   std::pair(folded(b.name), WStringView(b.name));
        });
        return std::move(found);
    }

  private:
    static WString folded(WString name)
    {
        for (char16_t& unit : name)
            unit = static_cast<char16_t>(foldCase(unit));
        return name;
    }

    WStringView word;
    std::vector<CompletionCandidate> found;
};

/// Place of the word whose arguments are open behind the last token, or -1. Parentheses that only
/// group are looked through.
std::ptrdiff_t openCallee(const Tokens& tokens)
{
    int closed = 0;
    for (std::size_t i = tokens.size(); i-- > 1;) {
        if (isMark(tokens[i], u")"))
            ++closed;
        else if (isMark(tokens[i], u"(") && closed > 0)
            --closed;
        else if (isMark(tokens[i], u"(") && isWord(tokens[i - 1]))
            return static_cast<std::ptrdiff_t>(i) - 1;
    }
    return -1;
}

} // namespace

CodeCompletion completeCode(WStringView before)
{
    WStringView above = before;
    const WStringView line = takeLastLine(above);
    if (endsInTextOrComment(line))
        return {};
    CodeCompletion made;
    Tokens tokens = tokensOf(line);
    const bool touchesToken = !line.empty() && line.back() > u' ';
    if (touchesToken && isWord(tokens.back())) {
        made.word = tokens.back().text;
        tokens.pop_back();
    } else if (touchesToken && tokens.back().kind != Tokenizer::Kind::Mark) {
        return made; // a number
    }
    CandidateList list(made.word);
    if (tokens.empty() || !isMark(tokens.back(), u"."))
        list.addGlobals();
    else if (tokens.size() > 1)
        list.addMethods(receiverOf(tokens[tokens.size() - 2], before));
    made.candidates = std::move(list).sorted();
    return made;
}

OpenCall openCallAt(WStringView before)
{
    WStringView above = before;
    const Tokens tokens = tokensOf(takeLastLine(above));
    const std::ptrdiff_t callee = openCallee(tokens);
    if (callee < 0)
        return {};
    const auto at = static_cast<std::size_t>(callee);
    OpenCall call{u"global", tokens[at].text};
    if (at > 0 && isMark(tokens[at - 1], u".")) {
        const Receiver receiver = at > 1 ? receiverOf(tokens[at - 2], before) : Receiver();
        call.className = receiver.type ? receiver.type->getClassName() : WString();
    }
    return call;
}

} // namespace varn

#include "ReferencePage.h"

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/classes/Classes.h"
#include "Parser/XMLParser.h"
#include "Support/TemporaryProject.h"

#include <algorithm>
#include <map>
#include <optional>

namespace varn::test {
namespace {

using Texts = std::map<std::string, std::string>;

XMLParser readAsset(const std::string& name)
{
    XMLParser document;
    const std::string bytes = readSource("assets/" + name);
    document.loadBytes(asBytes(bytes), fromUtf8(name));
    return document;
}

std::string attributeOf(const Element& element, WStringView name)
{
    return toUtf8(element.getString(name));
}

/// The descriptions as the document has them: of a class by "Class", of a method by "Class.method".
Texts readHints()
{
    Texts hints;
    const XMLParser document = readAsset("Resources/BuiltinClass.xml");
    for (const Element* owner : document.elementsByTag(u"class")) {
        const std::string name = attributeOf(*owner, u"name");
        hints[name] = attributeOf(*owner, u"description");
        for (const Element* method : owner->getChildren())
            if (method->hasAttribute(u"name"))
                hints[name + "." + attributeOf(*method, u"name")] =
                    attributeOf(*method, u"description");
    }
    return hints;
}

Texts readDisplayTexts(const std::string& languageFile)
{
    Texts texts;
    const XMLParser document = readAsset("Languages/" + languageFile);
    for (const Element* item : document.elementsByTag(u"item"))
        texts[attributeOf(*item, u"DefaultText")] = attributeOf(*item, u"default");
    return texts;
}

/// A method's hint: how it is called, and behind the line break what it does.
struct Hint
{
    std::string call, text;
};

Hint splitHint(const std::string& description)
{
    const std::size_t lineBreak = description.find("\\n");
    if (lineBreak == std::string::npos)
        return {description, ""};
    return {description.substr(0, lineBreak), description.substr(lineBreak + 2)};
}

/// How many arguments the written form of a call names; nothing for one that ends in "...".
std::optional<int> namedArguments(const std::string& call)
{
    if (call.find("...") != std::string::npos)
        return std::nullopt;
    const std::size_t open = call.find('(');
    if (open == std::string::npos || call[open + 1] == ')')
        return 0;
    return 1 + static_cast<int>(std::count(call.begin(), call.end(), ','));
}

/// Writes one page; what it misses it notes.
class Composer
{
  public:
    Composer(const ReferencePage::Wording& wording, std::vector<std::string>& missing)
        : wording(wording), missing(missing), hints(readHints()),
          translations(readDisplayTexts(wording.languageFile))
    {}

    std::string compose()
    {
        checkTranslations();
        page = wording.introduction;
        addSection(wording.functions, describe("global"));
        for (const std::string& name : globalFunctionNames())
            addRow("global", name, wording.anyCount, name);
        for (const auto& each : GlobalClassTable::instance().classes())
            addClass(*each);
        return std::move(page);
    }

  private:
    std::string describe(const std::string& key)
    {
        const auto hint = hints.find(key);
        if (hint == hints.end() || hint->second.empty()) {
            missing.push_back(key + " has no description");
            return "";
        }
        const auto translated = translations.find(hint->second);
        return translated == translations.end() ? hint->second : translated->second;
    }

    /// Of every hint, also of those for classes that only the game has.
    void checkTranslations()
    {
        for (const auto& [key, description] : hints)
            if (!translations.contains(description))
                missing.push_back(key + " is not in " + wording.languageFile);
    }

    void addSection(const std::string& title, const std::string& text)
    {
        page += "\n## " + title + "\n\n" + text + "\n";
        tableOpen = false;
    }

    void addClass(const ClassInterface& each)
    {
        const std::string& name = each.scriptName();
        addSection(name, describe(name));
        std::vector<std::string> methods = each.getMethodNames(ClassInterface::Methods::All);
        if (each.hasMethod("constructor"))
            methods.insert(methods.begin(), "constructor");
        for (const std::string& method : methods)
            addMethod(name, *each.findMethod(method));
    }

    void addMethod(const std::string& owner, const NativeFunction& method)
    {
        std::string counts;
        for (const NativeFunction* each = &method; each; each = each->next) {
            const bool any = each->arity == NativeFunction::kAnyArity;
            const std::string count = any ? wording.anyCount : std::to_string(each->arity);
            counts =
                counts.empty() ? count : std::min(count, counts) + ", " + std::max(count, counts);
            checkCall(owner, *each);
        }
        const std::string start = method.name == "constructor" ? "new " + owner : method.name;
        addRow(owner, method.name, counts, start, method.isStatic ? owner + "." : "");
    }

    /// The call in the hint must have room for what the native takes.
    void checkCall(const std::string& owner, const NativeFunction& method)
    {
        const auto hint = hints.find(owner + "." + method.name);
        if (hint == hints.end() || method.arity == NativeFunction::kAnyArity)
            return;
        const std::optional<int> named = namedArguments(splitHint(hint->second).call);
        if (named && *named < method.arity)
            missing.push_back(hint->first + " names too few arguments");
    }

    void addRow(const std::string& owner, const std::string& method, const std::string& counts,
                const std::string& start, const std::string& prefix = "")
    {
        const Hint hint = splitHint(describe(owner + "." + method));
        const std::string end = hint.call.substr(std::min(start.size(), hint.call.size()));
        if (!hint.call.starts_with(start) || (!end.empty() && end.front() != '('))
            missing.push_back(owner + "." + method + " is described as another call");
        if (!tableOpen)
            page += wording.tableHead;
        tableOpen = true;
        page += "| `" + prefix + hint.call + "` | " + counts + " | " + hint.text + " |\n";
    }

    const ReferencePage::Wording& wording;
    std::vector<std::string>& missing;
    Texts hints, translations;
    std::string page;
    bool tableOpen = false;
};

} // namespace

ReferencePage::ReferencePage(const Wording& wording)
{
    registerEngineClasses();
    page = Composer(wording, missing).compose();
}

} // namespace varn::test

#include "Game/Compiler/MethodDescriptions.h"

#include "Game/Database/LanguageManager.h"
#include "Game/Database/ToolFile.h"

#include <algorithm>

namespace varn {

MethodDescriptions MethodDescriptions::load()
{
    XMLParser document;
    if (!loadToolFile(document, u"Resources/BuiltinClass.xml"))
        return {};
    return MethodDescriptions(*document.getRootElement());
}

MethodDescriptions::MethodDescriptions(const Element& root)
{
    std::vector<const Element*> pending = {&root};
    while (!pending.empty()) { // a list, not the native stack: a document may nest as it likes
        const Element& element = *pending.back();
        pending.pop_back();
        if (element.hasAttribute(u"name")) {
            const Element* parent = element.getParent();
            const WString description =
                LanguageManager::instance().getDisplayText(element.getString(u"description"));
            entries.push_back({WString(element.getString(u"name")),
                               WString(parent ? parent->getString(u"name") : WStringView()),
                               replaceAll(description, u"\\n", u"\n")});
        }
        const std::vector<Element*> children = element.getChildren();
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.name < b.name; });
}

const WString* MethodDescriptions::find(WStringView className, WStringView method) const
{
    const auto isBefore = [](const Entry& entry, WStringView name) { return entry.name < name; };
    const WString* found = nullptr;
    for (auto at = std::lower_bound(entries.begin(), entries.end(), method, isBefore);
         at != entries.end() && at->name == method; ++at) {
        if (at->className == className)
            return &at->description;
        if (!found)
            found = &at->description;
    }
    return found;
}

} // namespace varn

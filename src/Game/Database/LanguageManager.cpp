#include "Game/Database/LanguageManager.h"

#include "Game/Database/ToolFile.h"
#include "Parser/StoredText.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

constexpr WStringView kFolder = u"Languages/";
constexpr WStringView kDefaultMenu = u"Languages/Menu.txt";
constexpr WStringView kMenuTag = u"Menu";
constexpr WStringView kTopLevelTag = u"rootMenu";

bool isNamedElement(const Element& node)
{
    return !node.getTagName().empty();
}

MenuItem readItem(const Element& element)
{
    MenuItem item;
    item.title = decodeText(element.getString(u"title"), LineBreaks::Drop);
    item.hotkey = element.getString(u"hotkey");
    item.shortcut = element.getString(u"shortcut");
    item.id = element.getString(u"id");
    return item;
}

/// Items below a deeper level are left out: no menu shows them, and no document may exhaust the
/// stack.
constexpr int kDeepestLevel = 16;

std::vector<MenuItem> readItems(const Element& parent, int level)
{
    std::vector<MenuItem> items;
    for (const Element* child = parent.getFirstChild(); child && level < kDeepestLevel;
         child = child->getNextSibling()) {
        if (!isNamedElement(*child))
            continue;
        items.push_back(readItem(*child));
        items.back().children = readItems(*child, level + 1);
    }
    return items;
}

/// Each `rootMenu` with a title is an item of the menu bar, one without holds such items.
std::vector<MenuItem> readTopLevel(const Element& menu)
{
    std::vector<MenuItem> items;
    for (const Element* child = menu.getFirstChild(); child; child = child->getNextSibling()) {
        if (child->getTagName() != kTopLevelTag)
            continue;
        std::vector<MenuItem> below = readItems(*child, 1);
        if (child->hasAttribute(u"title")) {
            items.push_back(readItem(*child));
            items.back().children = std::move(below);
        } else {
            std::move(below.begin(), below.end(), std::back_inserter(items));
        }
    }
    return items;
}

bool isSameFile(WStringView a, WStringView b)
{
    return equalsIgnoringAsciiCase(withForwardSlashes(a), withForwardSlashes(b));
}

std::vector<MenuItem> languageItems(const LanguageManager& manager)
{
    std::vector<MenuItem> items;
    for (const WString& file : manager.getLanguageFiles()) {
        MenuItem& item = items.emplace_back();
        item.title = fileNameOf(withoutExtension(file));
        item.checked = isSameFile(file, manager.getFileName());
    }
    return items;
}

void fillLanguages(std::vector<MenuItem>& items, const std::vector<MenuItem>& languages)
{
    for (MenuItem& item : items) {
        if (item.id == kLanguageMenuId)
            item.children = languages;
        else
            fillLanguages(item.children, languages);
    }
}

std::filesystem::path languageFolder()
{
    return isFolder(kFolder) ? resolveProjectPath(kFolder) : programFolder() / "Languages";
}

} // namespace

WString MenuItem::getText() const
{
    WString text = title;
    if (!hotkey.empty())
        text += u" (" + hotkey + u")";
    if (!shortcut.empty())
        text += u"\t" + shortcut;
    return text;
}

LanguageManager& LanguageManager::instance()
{
    static LanguageManager manager;
    return manager;
}

bool LanguageManager::load(WStringView name)
{
    XMLParser next;
    if (!loadToolFile(next, name))
        return false;
    document = std::move(next);
    fileName = name;
    displayTexts.clear();
    const Element* const texts = document.findElement(u"DisplayText");
    std::vector<Element*> items;
    if (texts)
        texts->findAll(u"item", items);
    for (const Element* const item : items)
        displayTexts.insert_or_assign(WString(item->getString(u"DefaultText")),
                                      WString(item->getString(u"default")));
    return true;
}

bool LanguageManager::loadChosen(WStringView name)
{
    if (!name.empty() && load(name))
        return true;
    return load(host().isJapaneseUser() ? u"Languages/Japanese.xml" : u"Languages/English.xml");
}

WString LanguageManager::getDisplayText(WStringView defaultText) const
{
    const auto found = displayTexts.find(defaultText);
    return found != displayTexts.end() ? found->second : WString(defaultText);
}

const Element* LanguageManager::getStringTable() const
{
    return document.findElement(u"StringTable");
}

const Element* LanguageManager::findMenu()
{
    const Element* const menu = document.findElement(kMenuTag);
    const Attribute* const url = menu ? menu->findAttribute(u"url") : nullptr;
    if (!url)
        return menu;
    const WString outer(url->value.empty() ? kDefaultMenu : url->value);
    return loadToolFile(menuDocument, outer) ? menuDocument.findElement(kMenuTag) : nullptr;
}

std::vector<MenuItem> LanguageManager::buildMenu()
{
    const Element* const menu = findMenu();
    if (!menu)
        return {};
    std::vector<MenuItem> items = readTopLevel(*menu);
    fillLanguages(items, languageItems(*this));
    return items;
}

std::vector<WString> LanguageManager::getLanguageFiles() const
{
    std::vector<WString> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(languageFolder(), error)) {
        const WString name = toWide(entry.path().filename());
        if (name.size() > 4 &&
            equalsIgnoringAsciiCase(WStringView(name).substr(name.size() - 4), u".xml"))
            files.push_back(WString(kFolder) + name);
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace varn

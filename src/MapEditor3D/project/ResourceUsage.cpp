#include "MapEditor3D/project/ResourceUsage.h"

#include "Game/Map/MapFile.h"
#include "Util/ProjectPath.h"
#include "Util/TextFile.h"

#include <algorithm>

namespace varn {

namespace fs = std::filesystem;

namespace {

constexpr WStringView kCatalogue = u"Data/ResourceManager.xml";
constexpr WStringView kEnemies = u"Data/Enemies.xml";

WString smallLetters(WStringView text)
{
    WString small(text);
    for (char16_t& unit : small)
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit + 32);
    return small;
}

/// Whether a name stands in a text by itself, not as the end of a longer one.
bool holdsName(WStringView text, WStringView name)
{
    constexpr WStringView kBefore = u"\"'/\\ =>\t\n;";
    for (auto at = text.find(name); at != WStringView::npos; at = text.find(name, at + 1))
        if (at == 0 || kBefore.find(text[at - 1]) != WStringView::npos)
            return true;
    return false;
}

} // namespace

ResourceUsage::ResourceUsage()
{
    read(u"Data");
    read(u"Dungeon");
    read(u"Scripts");
}

void ResourceUsage::read(WStringView folder)
{
    const fs::path root = resolveProjectPath(folder);
    std::error_code fault;
    for (auto at = fs::recursive_directory_iterator(root, fault);
         !fault && at != fs::recursive_directory_iterator(); at.increment(fault)) {
        const fs::path extension = at->path().extension();
        if (!at->is_regular_file(fault) || (extension != ".xml" && extension != ".txt"))
            continue;
        const WString name = WString(folder) + u"/" + toWide(at->path().lexically_relative(root));
        if (name == kCatalogue)
            continue;
        if (const auto file = readTextFile(at->path()))
            documents.push_back({name, smallLetters(file->text)});
    }
    std::ranges::sort(documents, {}, &Document::name);
}

std::vector<WString> ResourceUsage::find(ResourceCategory category, const ResourceItem& item) const
{
    const bool isEnemy = category == ResourceCategory::EnemyImage;
    const WString name = smallLetters(fileNameOf(item.path));
    const WString number = u"imageid=\"" + toDecimal(item.id) + u"\"";
    std::vector<WString> found;
    for (const Document& document : documents)
        if (holdsName(document.text, name) ||
            (isEnemy && document.name == kEnemies && document.text.find(number) != WString::npos))
            found.push_back(document.name);
    return found;
}

} // namespace varn

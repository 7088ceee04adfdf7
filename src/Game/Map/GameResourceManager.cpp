#include "Game/Map/GameResourceManager.h"

#include "Parser/XMLParser.h"
#include "Util/ProjectPath.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>

namespace varn {

namespace {

constexpr WStringView kRoot = u"ResourceManager";
constexpr WStringView kScale = u"scale";
constexpr WStringView kDocument = u"Data/ResourceManager.xml";

using enum ResourceCategory;

constexpr ResourceCategoryInfo kCategories[] = {
    {BackgroundMusic, u"BackgroundMusicList", u"BGM", u"Audio/BGM"},
    {BackgroundSound, u"BackgroundSoundList", u"BGS", u"Audio/BGS"},
    {SoundEffect, u"SoundEffectList", u"SE", u"Audio/SE"},
    {EnemyImage, u"EnemyImageList", u"EnemyImage", u"Graphics/Enemies"},
    {Background, u"BackgroundList", u"Background", u"Graphics/Backgrounds"},
    {Floor, u"FloorList", u"Texture", u"Graphics/Dungeon/Floors"},
    {Ceiling, u"CeilingList", u"Texture", u"Graphics/Dungeon/Ceilings"},
    {Wall, u"WallList", u"Texture", u"Graphics/Dungeon/Walls"},
    {Door, u"DoorList", u"Texture", u"Graphics/Dungeon/Doors"},
};

/// A new item for an element of that name.
std::unique_ptr<ResourceItem> makeItem(WStringView tag)
{
    if (tag == u"Background")
        return std::make_unique<ImageResourceItem>();
    if (tag == u"Texture")
        return std::make_unique<TextureResourceItem>();
    return std::make_unique<ResourceItem>();
}

/// "%.1f".
WString scaleText(float scale)
{
    char buffer[64];
    const auto [end, fault] =
        std::to_chars(std::begin(buffer), std::end(buffer), scale, std::chars_format::fixed, 1);
    return WString(std::begin(buffer), fault == std::errc() ? end : std::begin(buffer));
}

/// The number at the text's front; 0 where there is none.
float parseScale(WStringView text)
{
    std::string ascii;
    for (const char16_t unit : text)
        ascii.push_back(unit < 128 ? static_cast<char>(unit) : '?');
    const char* first = ascii.data();
    const char* last = first + ascii.size();
    while (first != last && (*first == ' ' || (*first >= 9 && *first <= 13)))
        ++first;
    if (first != last && *first == '+')
        ++first;
    float value = 0;
    std::from_chars(first, last, value);
    return value - value == 0 ? value : 0; // neither infinite nor not a number
}

} // namespace

std::span<const ResourceCategoryInfo> resourceCategories()
{
    return kCategories;
}

std::span<const WStringView> resourceFolders()
{
    static const std::vector<WStringView> folders = [] {
        std::vector<WStringView> list;
        for (const ResourceCategoryInfo& info : kCategories)
            list.push_back(info.folder);
        list.push_back(u"Graphics/Tile");
        return list;
    }();
    return folders;
}

Element* ResourceItem::toElement(NodeArena& arena, WStringView tag) const
{
    Element* element = arena.makeElement(tag);
    element->setInt(u"id", id);
    element->setString(u"path", path);
    return element;
}

void ResourceItem::fromElement(const Element& element)
{
    id = element.getInt(u"id");
    path = withForwardSlashes(element.getString(u"path"));
}

Element* ImageResourceItem::toElement(NodeArena& arena, WStringView tag) const
{
    Element* element = ResourceItem::toElement(arena, tag);
    element->setInt(u"movementType", movementType);
    element->setInt(u"scalingType", scalingType);
    return element;
}

void ImageResourceItem::fromElement(const Element& element)
{
    ResourceItem::fromElement(element);
    movementType = element.getInt(u"movementType");
    scalingType = element.getInt(u"scalingType");
}

GameResourceManager& GameResourceManager::instance()
{
    static GameResourceManager manager;
    return manager;
}

bool GameResourceManager::load(WStringView path)
{
    clear();
    XMLParser parser;
    if (!parser.load(path))
        return false;
    fromElement(*parser.getRootElement());
    return true;
}

bool GameResourceManager::loadDefault()
{
    return load(kDocument);
}

void GameResourceManager::fromElement(const Element& root)
{
    clear();
    for (const ResourceCategoryInfo& info : kCategories) {
        const Element* listElement = root.findChild(info.listElement);
        if (listElement == nullptr)
            continue;
        if (info.category == EnemyImage && listElement->hasAttribute(kScale))
            scale = parseScale(listElement->getString(kScale));
        for (const Element* child : listElement->getChildren()) {
            if (child->isTextNode() || child->isCData())
                continue;
            auto item = makeItem(child->getTagName());
            item->fromElement(*child);
            list(info.category).push_back(std::move(item));
        }
    }
}

WString GameResourceManager::toXml() const
{
    NodeArena arena;
    Element* root = arena.makeElement(kRoot);
    for (const ResourceCategoryInfo& info : kCategories) {
        if (items(info.category).empty())
            continue;
        Element* listElement = root->addElement(info.listElement);
        if (info.category == EnemyImage)
            listElement->setString(kScale, scaleText(scale));
        for (const auto& item : items(info.category))
            listElement->appendChild(item->toElement(arena, info.itemElement));
    }
    return root->toString();
}

WString GameResourceManager::toDocument() const
{
    return u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n" + toXml();
}

bool GameResourceManager::save() const
{
    return writeTextFile(resolveProjectPath(kDocument), toDocument(), Encoding::Unicode);
}

ResourceItemList& GameResourceManager::list(ResourceCategory category)
{
    return lists.at(static_cast<std::size_t>(category) - 1);
}

const ResourceItemList& GameResourceManager::items(ResourceCategory category) const
{
    return const_cast<GameResourceManager*>(this)->list(category);
}

const ResourceItem* GameResourceManager::findByPath(ResourceCategory category,
                                                    WStringView path) const
{
    const WString wanted = withForwardSlashes(path);
    for (const auto& item : items(category)) {
        if (equalsIgnoringAsciiCase(item->path, wanted))
            return item.get();
    }
    return nullptr;
}

const ResourceItem* GameResourceManager::findById(ResourceCategory category, std::int32_t id) const
{
    for (const auto& item : items(category)) {
        if (item->id == id)
            return item.get();
    }
    return nullptr;
}

std::vector<WString> GameResourceManager::usedFiles() const
{
    std::vector<WString> files;
    std::unordered_set<WStringView> seen; // of the items' own paths, which stay where they are
    for (const ResourceItemList& category : lists) {
        for (const auto& item : category) {
            if (!item->path.empty() && seen.insert(item->path).second)
                files.push_back(item->path);
        }
    }
    return files;
}

ResourceItem& GameResourceManager::add(ResourceCategory category, WStringView path)
{
    ResourceItemList& target = list(category);
    std::int32_t greatest = 0;
    for (const auto& item : target)
        greatest = std::max(greatest, item->id);

    auto item = makeItem(kCategories[static_cast<std::size_t>(category) - 1].itemElement);
    item->id = greatest + 1;
    item->path = withForwardSlashes(path);
    return *target.emplace_back(std::move(item));
}

void GameResourceManager::remove(ResourceCategory category, std::size_t index)
{
    ResourceItemList& target = list(category);
    target.at(index);
    target.erase(target.begin() + static_cast<std::ptrdiff_t>(index));
}

void GameResourceManager::clear()
{
    for (ResourceItemList& category : lists)
        category.clear();
}

} // namespace varn

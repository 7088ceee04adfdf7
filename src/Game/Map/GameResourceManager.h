#pragma once

#include "Parser/Element.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace varn {

/// The categories of the resource catalogue.
enum class ResourceCategory : int
{
    BackgroundMusic = 1,
    BackgroundSound = 2,
    SoundEffect = 3,
    EnemyImage = 4,
    Background = 5,
    Floor = 6,
    Ceiling = 7,
    Wall = 8,
    Door = 9,
};

/// What a category is called in the document and where its files lie.
struct ResourceCategoryInfo
{
    ResourceCategory category;
    WStringView listElement;
    WStringView itemElement;
    WStringView folder; ///< default folder under the project, without a last separator
};
/// The nine, in catalogue order.
std::span<const ResourceCategoryInfo> resourceCategories();
/// The folders that the tool shows: those of the categories, and "Graphics/Tile".
std::span<const WStringView> resourceFolders();

/// A file that the game may use.
class ResourceItem
{
  public:
    virtual ~ResourceItem() = default;

    WString path;        ///< relative to the project, with forward slashes
    std::int32_t id = 0; ///< what tables refer to

    /// The item's element, unlinked, made in `arena`.
    virtual Element* toElement(NodeArena& arena, WStringView tag) const;
    virtual void fromElement(const Element& element);
};

/// A background of the dungeon view.
class ImageResourceItem : public ResourceItem
{
  public:
    std::int32_t movementType = 0; ///< not 0: flipped when moving in a dungeon
    std::int32_t scalingType = 0;  ///< not 0: keeps its aspect ratio

    Element* toElement(NodeArena& arena, WStringView tag) const override;
    void fromElement(const Element& element) override;
};

/// A texture of floors, ceilings, walls and doors.
class TextureResourceItem : public ResourceItem
{};

using ResourceItemList = std::vector<std::unique_ptr<ResourceItem>>;

/// The catalogue of a project's sound and picture files: "Data/ResourceManager.xml".
class GameResourceManager
{
  public:
    /// The process-wide one.
    static GameResourceManager& instance();

    /// Reads the document. False: missing, empty or refused (the report was shown); the lists are
    /// empty.
    bool load(WStringView path);
    bool loadDefault();
    /// Replaces all lists by those under `root`. An item's own tag decides its class, not the list.
    void fromElement(const Element& root);

    /// The root element's text, as the export embeds it.
    WString toXml() const;
    /// The whole document, declaration and "\r\n" in front.
    WString toDocument() const;
    /// Replaces "Data/ResourceManager.xml". False: not writable.
    bool save() const;

    const ResourceItemList& items(ResourceCategory category) const;
    /// The item with that path, `\` taken for `/` and letters A to Z folded; or null.
    const ResourceItem* findByPath(ResourceCategory category, WStringView path) const;
    const ResourceItem* findById(ResourceCategory category, std::int32_t id) const;
    /// The paths of all items in catalogue order, each once: what an export packs.
    std::vector<WString> usedFiles() const;

    /// Adds an item of the class that goes with the category; its id is one more than the
    /// category's greatest, the first is 1.
    ResourceItem& add(ResourceCategory category, WStringView path);
    void remove(ResourceCategory category, std::size_t index);
    void clear();

    float scale = 1; ///< of the enemy images

  private:
    ResourceItemList& list(ResourceCategory category);

    std::array<ResourceItemList, 9> lists;
};

} // namespace varn

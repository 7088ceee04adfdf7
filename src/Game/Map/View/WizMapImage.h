#pragma once

#include "Game/Map/WizMap.h"
#include "Graphics/Image.h"

#include <map>
#include <memory>

namespace varn {

/// What a floor's pictures are wanted for: each use asks only for its own.
enum class MapPictures
{
    View, ///< the first-person view
    Plan  ///< the map from above
};

/// The pictures of a floor, loaded by the names that the map carries. A picture that cannot be
/// loaded is told in a message, once a name, and then missing: views and prints leave it out.
class WizMapImage
{
  public:
    explicit WizMapImage(MapPictures use) : use(use) {}

    /// Loads what the map names and this object does not hold yet. True: a picture changed.
    bool update(const WizMap& map);
    /// Forgets everything, so that the next update reads the files anew.
    void clear();

    /// A picture of this use, or null where the map has none.
    const Image* find(ImageType type) const;
    /// The texture of an event type by its path, loaded at the first call; null: none or missing.
    const Image* texture(WStringView path);

  private:
    /// Files by path, null where one is missing; shared by all kinds that name the same file.
    using Files = std::map<WString, std::unique_ptr<Image>, std::less<>>;

    const Image* file(WStringView path);
    /// The door as it is painted: the door's picture laid over the wall's.
    void composeDoor();

    MapPictures use;
    Files files;
    std::array<WString, kImageTypes> names;
    std::array<const Image*, kImageTypes> pictures{};
    std::unique_ptr<Image> doorOnWall;
};

} // namespace varn

#include "Game/Map/View/WizMapImage.h"

#include "Graphics/Blit.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <span>

namespace varn {

namespace {

constexpr WStringView kEventFloor = u"Graphics/System/eventFloor.png";

constexpr ImageType kViewTypes[] = {
    ImageType::Background,     ImageType::Floor,          ImageType::Ceiling,
    ImageType::Wall,           ImageType::Door,           ImageType::BackgroundNorth,
    ImageType::BackgroundEast, ImageType::BackgroundWest, ImageType::BackgroundSouth};
constexpr ImageType kPlanTypes[] = {ImageType::Background2D, ImageType::Floor2D, ImageType::Wall2D,
                                    ImageType::EventFloor};

std::span<const ImageType> typesOf(MapPictures use)
{
    return use == MapPictures::View ? std::span<const ImageType>(kViewTypes) : kPlanTypes;
}

std::size_t indexOf(ImageType type)
{
    return static_cast<std::size_t>(static_cast<int>(type) - kFirstImageType);
}

std::unique_ptr<Image> loadImage(const WString& path)
{
    auto image = std::make_unique<Image>();
    try {
        image->load(path);
    } catch (const Exception&) {
        image->unload();
    }
    if (!image->getBitmap().isEmpty())
        return image;
    host().showMessage(path + u"\nCouldn't load this image file.");
    return nullptr;
}

} // namespace

const Image* WizMapImage::file(WStringView path)
{
    const auto known = files.find(path);
    if (known != files.end())
        return known->second.get();
    return files.emplace(path, loadImage(WString(path))).first->second.get();
}

bool WizMapImage::update(const WizMap& map)
{
    bool changed = false;
    for (const ImageType type : typesOf(use)) {
        const std::size_t i = indexOf(type);
        const WString name =
            type == ImageType::EventFloor ? WString(kEventFloor) : map.getImageName(type);
        if (name == names[i])
            continue;
        names[i] = name;
        pictures[i] = name.empty() ? nullptr : file(name);
        changed = true;
    }
    if (changed)
        composeDoor();
    return changed;
}

void WizMapImage::composeDoor()
{
    doorOnWall.reset();
    const Image* const wall = pictures[indexOf(ImageType::Wall)];
    const Image* const door = pictures[indexOf(ImageType::Door)];
    if (!wall || !door)
        return;
    doorOnWall = std::make_unique<Image>(*wall);
    blitImage(doorOnWall->getBitmap(), *door, wall->getBounds(), door->getBounds());
}

void WizMapImage::clear()
{
    *this = WizMapImage(use);
}

const Image* WizMapImage::find(ImageType type) const
{
    if (type == ImageType::Door && doorOnWall)
        return doorOnWall.get();
    return pictures[indexOf(type)];
}

const Image* WizMapImage::texture(WStringView path)
{
    return path.empty() ? nullptr : file(path);
}

} // namespace varn

#include "MapEditor3D/frame/panes/MapProperties.h"

#include <algorithm>

namespace varn {

namespace {

constexpr char16_t kBetweenImages = u'|';

constexpr MapPictureField kPictures[] = {
    {ImageType::Background2D, u"Background from above:", u"Graphics/System"},
    {ImageType::Floor2D, u"Floor tiles from above:", u"Graphics/System"},
    {ImageType::Wall2D, u"Walls from above:", u"Graphics/Dungeon"},
    {ImageType::Background, u"&Background:", {}, ResourceCategory::Background},
    {ImageType::Floor, u"F&loor:", {}, ResourceCategory::Floor},
    {ImageType::Ceiling, u"&Ceiling:", {}, ResourceCategory::Ceiling},
    {ImageType::Wall, u"&Wall:", {}, ResourceCategory::Wall},
    {ImageType::Door, u"&Door:", {}, ResourceCategory::Door},
};

void takeImages(WizMap& map, WStringView joined)
{
    const std::vector<WStringView> names = split(joined, kBetweenImages);
    for (std::size_t place = 0; place < std::min(names.size(), std::size(kPictures)); ++place)
        map.setImageName(kPictures[place].type, WString(names[place]));
}

WString joinedImages(const WizMap& map)
{
    WString joined;
    for (const MapPictureField& field : kPictures) {
        if (&field != std::begin(kPictures))
            joined += kBetweenImages;
        joined += map.getImageName(field.type);
    }
    return joined;
}

} // namespace

std::span<const MapPictureField> mapPictureFields()
{
    return kPictures;
}

Element* mapPropertiesOf(const WizMap& map, WStringView name, NodeArena& arena)
{
    Element* const values = arena.makeElement(u"Map");
    values->setString(u"name", name);
    values->setInt(u"col", map.cols);
    values->setInt(u"row", map.rows);
    values->setString(u"imageNames", joinedImages(map));
    values->setNarrowString(u"displayName", map.names[0]);
    values->setNarrowString(u"displayName2", map.names[1]);
    values->setInt(u"visibleDistance", map.getStoredVisibleDistance());
    values->setInt(u"level", map.level);
    values->setInt(u"teleportable", map.teleportable ? 1 : 0);
    values->setInt(u"displayable", map.displayable ? 1 : 0);
    values->setInt(u"enemyTableID", map.enemyTableId);
    values->setInt(u"encounterSteps", map.encounterSteps);
    values->setString(u"bgm", map.bgm);
    values->setString(u"bgs", map.bgs);
    values->setString(u"footstep", map.footstep);
    values->setString(u"door", map.doorSe);
    return values;
}

void applyMapProperties(WizMap& map, const Element& values)
{
    map.cols = std::clamp(values.getInt(u"col", map.cols), 1, kMapStride);
    map.rows = std::clamp(values.getInt(u"row", map.rows), 1, kMapStride);
    if (values.hasAttribute(u"imageNames"))
        takeImages(map, values.getString(u"imageNames"));
    map.names[0] = values.getNarrowString(u"displayName", map.names[0]);
    map.names[1] = values.getNarrowString(u"displayName2", map.names[1]);
    map.setVisibleDistance(values.getInt(u"visibleDistance", map.getStoredVisibleDistance()));
    map.level = values.getInt(u"level", map.level);
    map.teleportable = values.getInt(u"teleportable", map.teleportable ? 1 : 0) != 0;
    map.displayable = values.getInt(u"displayable", map.displayable ? 1 : 0) != 0;
    map.enemyTableId = values.getInt(u"enemyTableID", map.enemyTableId);
    map.encounterSteps = values.getInt(u"encounterSteps", map.encounterSteps);
    map.bgm = values.getString(u"bgm", map.bgm);
    map.bgs = values.getString(u"bgs", map.bgs);
    map.footstep = values.getString(u"footstep", map.footstep);
    map.doorSe = values.getString(u"door", map.doorSe);
}

void applyMapProperties(WizMapEditor& editor, const Element& values, MapOrigin origin)
{
    if (origin == MapOrigin::New) {
        editor.getMap().clear();
        editor.resetHistory();
    }
    applyMapProperties(editor.getMap(), values);
    editor.propertiesEdited();
}

} // namespace varn

#include "Game/Map/AreaManager.h"

#include "Game/Map/WizMapData.h"

#include <algorithm>

namespace varn {

namespace {

// The attributes of an area, in the order of writing.
constexpr WStringView kName = u"name";
constexpr WStringView kNumber = u"number";
constexpr WStringView kRoom = u"room";
constexpr WStringView kEnemyTable = u"enemyTableID";
constexpr WStringView kTeleportIntrusionBlock = u"teleportIntrusionBlock";
constexpr WStringView kCoordinates = u"coordinates";

} // namespace

bool AreaModel::contains(std::int32_t x, std::int32_t y) const
{
    return std::binary_search(coordinates.begin(), coordinates.end(), Coodinate{x, y});
}

bool AreaModel::add(std::int32_t x, std::int32_t y)
{
    const Coodinate cell{x, y};
    const auto place = std::lower_bound(coordinates.begin(), coordinates.end(), cell);
    if (place != coordinates.end() && *place == cell)
        return false;
    coordinates.insert(place, cell);
    return true;
}

bool AreaModel::remove(std::int32_t x, std::int32_t y)
{
    const Coodinate cell{x, y};
    const auto place = std::lower_bound(coordinates.begin(), coordinates.end(), cell);
    if (place == coordinates.end() || *place != cell)
        return false;
    coordinates.erase(place);
    return true;
}

Element* AreaModel::toXml(NodeArena& arena) const
{
    WString pairs;
    for (const Coodinate& cell : coordinates) {
        if (!pairs.empty())
            pairs += u' ';
        pairs += toDecimal(cell.x);
        pairs += u',';
        pairs += toDecimal(cell.y);
    }

    Element* element = arena.makeElement(u"Area");
    element->setNarrowString(kName, name);
    element->setInt(kNumber, number);
    element->setInt(kRoom, type);
    element->setInt(kEnemyTable, enemyTableId);
    element->setInt(kTeleportIntrusionBlock, teleportIntrusionBlock ? 1 : 0);
    element->setString(kCoordinates, pairs);
    element->addText(text);
    return element;
}

void AreaModel::fromXml(const Element& element)
{
    name = element.getNarrowString(kName);
    if (const Attribute* pairs = element.findAttribute(kCoordinates))
        setCoordinates(pairs->value);
    else
        setRectangle(element);
    number = element.getInt(kNumber);
    enemyTableId = element.getInt(kEnemyTable);
    type = element.getInt(kRoom);
    teleportIntrusionBlock = element.getInt(kTeleportIntrusionBlock) != 0;
    text = element.collectText();
}

void AreaModel::setCoordinates(WStringView pairs)
{
    coordinates.clear();
    for (const WStringView piece : split(pairs, u' ')) {
        const std::vector<WStringView> numbers = split(piece, u',');
        if (numbers.size() == 2)
            coordinates.push_back({parseDecimal(numbers[0]), parseDecimal(numbers[1])});
    }
    // One sort for all: a file need not hold them in order, and putting each at its place would
    // cost the square of their number.
    if (!std::is_sorted(coordinates.begin(), coordinates.end()))
        std::sort(coordinates.begin(), coordinates.end());
    coordinates.erase(std::unique(coordinates.begin(), coordinates.end()), coordinates.end());
}

void AreaModel::setRectangle(const Element& element)
{
    // 64 bits: the four come from the file as they are, and their sums may pass 32.
    const std::int64_t left = element.getInt(u"x");
    const std::int64_t top = element.getInt(u"y");
    const std::int64_t right = left + element.getInt(u"width");
    const std::int64_t bottom = top + element.getInt(u"height");

    coordinates.clear();
    for (auto y = std::max<std::int64_t>(top, 0); y < std::min<std::int64_t>(bottom, kMapStride);
         ++y) {
        for (auto x = std::max<std::int64_t>(left, 0);
             x < std::min<std::int64_t>(right, kMapStride); ++x)
            coordinates.push_back({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)});
    }
}

bool AreaManager::paint(std::int32_t number, std::int32_t x, std::int32_t y)
{
    if (number != 0) {
        if (AreaModel* area = findByNumber(number))
            return area->add(x, y);
        AreaModel area;
        area.number = number;
        area.add(x, y);
        add(std::move(area));
        return true;
    }

    bool changed = false;
    for (auto area = areas.begin(); area != areas.end();) {
        const bool removed = area->remove(x, y);
        changed |= removed;
        area = removed && area->getCoordinates().empty() ? areas.erase(area) : area + 1;
    }
    return changed;
}

const AreaModel* AreaManager::areaAt(std::int32_t x, std::int32_t y) const
{
    const auto found = std::find_if(areas.rbegin(), areas.rend(),
                                    [&](const AreaModel& area) { return area.contains(x, y); });
    return found == areas.rend() ? nullptr : &*found;
}

AreaModel* AreaManager::findByNumber(std::int32_t number)
{
    const auto found = std::find_if(areas.begin(), areas.end(),
                                    [&](const AreaModel& area) { return area.number == number; });
    return found == areas.end() ? nullptr : &*found;
}

AreaModel& AreaManager::add(AreaModel area)
{
    const auto place = std::upper_bound(
        areas.begin(), areas.end(), area.number,
        [](std::int32_t number, const AreaModel& other) { return number < other.number; });
    return *areas.insert(place, std::move(area));
}

AreaModel& AreaManager::addFromXml(const Element& element)
{
    AreaModel area;
    area.fromXml(element);
    return add(std::move(area));
}

void AreaManager::remove(std::size_t index)
{
    areas.at(index);
    areas.erase(areas.begin() + static_cast<std::ptrdiff_t>(index));
}

} // namespace varn

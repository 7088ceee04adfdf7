#pragma once

#include "Parser/Element.h"

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

namespace varn {

/// A named set of cells of a floor.
class AreaModel
{
  public:
    struct Coodinate
    {
        std::int32_t x = 0, y = 0;

        /// By row, inside a row by column.
        friend constexpr std::strong_ordering operator<=>(const Coodinate& a, const Coodinate& b)
        {
            if (const auto order = a.y <=> b.y; order != 0)
                return order;
            return a.x <=> b.x;
        }
        friend constexpr bool operator==(const Coodinate&, const Coodinate&) = default;
    };

    std::string name;
    WString text;
    std::int32_t type = 0;         ///< 0 area, 1 room; the attribute "room"
    std::int32_t number = 0;       ///< what the editor paints with
    std::int32_t enemyTableId = 0; ///< an encounter table for this area
    bool teleportIntrusionBlock = false;

    const std::vector<Coodinate>& getCoordinates() const { return coordinates; }
    /// Puts a cell at its place; false: it is there already.
    bool add(std::int32_t x, std::int32_t y);
    /// False: it was not there.
    bool remove(std::int32_t x, std::int32_t y);
    bool contains(std::int32_t x, std::int32_t y) const;

    /// The "Area" element, unlinked, made in `arena`.
    Element* toXml(NodeArena& arena) const;
    /// Takes every attribute and the text. Without "coordinates" the rectangle of "x", "y",
    /// "width", "height" is filled, as far as it lies in the 100 by 100 cells of a floor.
    void fromXml(const Element& element);

    bool operator==(const AreaModel&) const = default;

  private:
    void setCoordinates(WStringView pairs);
    void setRectangle(const Element& element);

    std::vector<Coodinate> coordinates; // sorted, each once
};

/// The areas of one floor, in ascending `number`. A cell belongs to all areas that list it.
class AreaManager
{
  public:
    /// Number 0 takes the cell out of every area and deletes an area left without cells; any other
    /// number adds it to the area of that number, made if there is none. True: something changed.
    bool paint(std::int32_t number, std::int32_t x, std::int32_t y);
    /// The area shown at a cell: of those that list it, the one with the greatest number; or null.
    const AreaModel* areaAt(std::int32_t x, std::int32_t y) const;
    AreaModel* findByNumber(std::int32_t number);

    /// Puts an area behind those of its number or a smaller one.
    AreaModel& add(AreaModel area);
    AreaModel& addFromXml(const Element& element);
    void remove(std::size_t index);
    void clear() { areas.clear(); }

    std::size_t size() const { return areas.size(); }
    bool empty() const { return areas.empty(); }
    AreaModel& at(std::size_t index) { return areas.at(index); }
    const AreaModel& at(std::size_t index) const { return areas.at(index); }
    const std::vector<AreaModel>& list() const { return areas; }

    bool operator==(const AreaManager&) const = default;

  private:
    std::vector<AreaModel> areas;
};

} // namespace varn

#include "MapAsJson.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

bool isNumber(const MapAttribute& attribute)
{
    const std::size_t digits = attribute.value.starts_with(u'-') ? 1 : 0;
    return attribute.quote == u'\'' && attribute.value.size() > digits &&
           attribute.value.find_first_not_of(u"0123456789", digits) == WString::npos;
}

Json attributesAsJson(const WizMap& map)
{
    Json object = Json::object();
    for (const MapAttribute& attribute : map.attributes()) {
        Json& value = object[jsonText(attribute.key)];
        if (isNumber(attribute))
            value = parseDecimal(attribute.value);
        else
            value = jsonText(attribute.value);
    }
    return object;
}

Json eventAsJson(const GameEvent& event)
{
    Json object = {{"name", jsonText(event.names[0])},
                   {"name2", jsonText(event.names[1])},
                   {"x", event.x},
                   {"y", event.y},
                   {"direction", event.direction.getValue()},
                   {"type", event.type},
                   {"move", event.move},
                   {"trigger", event.trigger},
                   {"hitbox", event.hitbox},
                   {"priority", event.priority},
                   {"aliveFlag", event.aliveFlag},
                   {"conditions", event.conditions},
                   {"sprite", jsonText(event.sprite)},
                   {"script", jsonText(event.script)}};
    if (const auto* const box = dynamic_cast<const TreasureBoxEvent*>(&event))
        object["treasureboxID"] = box->treasureboxID;
    return object;
}

Json areaAsJson(const AreaModel& area)
{
    Json coordinates = Json::array();
    for (const AreaModel::Coodinate& cell : area.getCoordinates())
        coordinates.push_back({{"x", cell.x}, {"y", cell.y}});
    return {{"name", jsonText(std::string_view(area.name))},
            {"text", jsonText(area.text)},
            {"type", area.type},
            {"number", area.number},
            {"enemyTableId", area.enemyTableId},
            {"teleportIntrusionBlock", area.teleportIntrusionBlock},
            {"coordinates", std::move(coordinates)}};
}

} // namespace

Json mapAsJson(const WizMap& map)
{
    Json events = Json::array();
    for (const auto& event : map.events.list())
        events.push_back(eventAsJson(*event));
    Json areas = Json::array();
    for (const AreaModel& area : map.areas.list())
        areas.push_back(areaAsJson(area));
    return {{"cols", map.cols},
            {"rows", map.rows},
            {"attributes", attributesAsJson(map)},
            {"events", std::move(events)},
            {"areas", std::move(areas)}};
}

Json cellsAsJson(const WizMap& map)
{
    Json rows = Json::array();
    for (int y = 0; y < map.rows; ++y) {
        Json row = Json::array();
        for (int x = 0; x < map.cols; ++x) {
            const WizMapData& cell = map.cellAt(x, y);
            row.push_back({{"north", cell.north},
                           {"east", cell.east},
                           {"south", cell.south},
                           {"west", cell.west},
                           {"floor", cell.floor}});
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace varn::driver

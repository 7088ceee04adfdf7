#include "MapEditor3D/canvas/PointerInfo.h"

#include "Game/Database/Language.h"
#include "Game/Database/LanguageManager.h"
#include "Game/Database/WizFloor.h"

#include <initializer_list>

namespace varn {

namespace {

WString say(WStringView english)
{
    return LanguageManager::instance().getDisplayText(english);
}

/// The wording with "%1", "%2", ... filled in; languages put them in their own order.
WString say(WStringView english, std::initializer_list<WString> values)
{
    WString text = say(english);
    char16_t digit = u'1';
    for (const WString& value : values)
        text = replaceAll(text, WString{u'%', digit++}, value);
    return text;
}

WString twoDigits(int number)
{
    return number >= 0 && number < 10 ? u"0" + toDecimal(number) : toDecimal(number);
}

WString areaText(const PointerInfo& info)
{
    if (!info.areaNumber)
        return {};
    const WString number = toDecimal(*info.areaNumber);
    return info.areaName.empty() ? say(u"Area %1", {number})
                                 : say(u"Area %1 \"%2\"", {number, info.areaName});
}

WString eventText(const PointerInfo& info)
{
    if (!info.event)
        return {};
    if (info.eventKind.empty())
        return say(u"Event \"%1\"", {info.eventName});
    return say(u"Event \"%1\" (%2)", {info.eventName, info.eventKind});
}

WString placeText(const PointerInfo& info, CoordinateSystem first)
{
    const WString column = twoDigits(info.cell.x);
    const WString top = toDecimal(info.cell.y), bottom = toDecimal(info.shownRow);
    if (first == CoordinateSystem::Game)
        return say(u"X %1  Y %2 (map %3)",
                   {column, twoDigits(info.shownRow), toDecimal(info.cell.x) + u"," + top});
    return say(u"X %1  Y %2 (game %3)",
               {column, twoDigits(info.cell.y), toDecimal(info.cell.x) + u"," + bottom});
}

} // namespace

WString wallKindName(int kind)
{
    return say(wallKindText(kind));
}

WString edgeName(Direction edge)
{
    switch (edge.getValue()) {
    case Direction::North:
        return say(u"north edge");
    case Direction::East:
        return say(u"east edge");
    case Direction::South:
        return say(u"south edge");
    case Direction::West:
        return say(u"west edge");
    default:
        return {};
    }
}

std::optional<PointerInfo> lookUnder(const WizMapEditor& editor, const CanvasCell& place)
{
    const WizMap& map = editor.getMap();
    MapCell cell = place.cell;
    if (cell.x == map.cols)
        cell.x = 0;
    if (cell.y == map.rows)
        cell.y = 0;
    if (cell.x < 0 || cell.y < 0 || cell.x >= map.cols || cell.y >= map.rows)
        return std::nullopt;

    PointerInfo info;
    info.cell = cell;
    info.shownRow = map.rows - 1 - cell.y;
    info.edge = place.edge;
    info.data = map.cellAt(cell.x, cell.y);
    if (const AreaModel* const area = map.areas.areaAt(cell.x, cell.y)) {
        info.areaNumber = area->number;
        info.areaName = widen(area->name);
    }
    info.event = editor.findEvent(cell);
    if (info.event) {
        const GameEvent& event = map.events.at(*info.event);
        const bool second = language().isSecondActive() && !event.names[1].empty();
        info.eventName = event.names[second ? 1 : 0];
        const WizFloorList& kinds = WizFloorList::instance();
        if (event.type >= 0 && static_cast<std::size_t>(event.type) < kinds.size())
            info.eventKind = kinds.at(static_cast<std::size_t>(event.type)).getName();
    }
    info.isWalkerHere = editor.getCursor().cell == cell;
    return info;
}

PointerTexts describe(const PointerInfo& info, CoordinateSystem first)
{
    PointerTexts texts;
    texts.place = placeText(info, first);
    if (info.edge != Direction::None)
        texts.wall =
            say(u"Wall: %1, %2", {wallKindName(info.data.wall(info.edge)), edgeName(info.edge)});
    if (info.data.floor != 0)
        texts.floor = say(u"Floor tile %1", {toDecimal(info.data.floor)});
    texts.area = areaText(info);
    texts.event = eventText(info);
    return texts;
}

WString PointerTexts::line() const
{
    WString all;
    for (const WString* const text : {&place, &wall, &floor, &area, &event}) {
        if (text->empty())
            continue;
        if (!all.empty())
            all += u"    ";
        all += *text;
    }
    return all;
}

WString announce(const PointerInfo& info, CoordinateSystem first)
{
    PointerTexts texts = describe(info, first);
    texts.wall.clear();
    WString sentence = texts.place;
    const auto add = [&](const WString& more) {
        if (!more.empty())
            sentence += u", " + more;
    };
    for (const Direction side : kSides)
        if (const int kind = info.data.wall(side))
            add(say(u"%1: %2", {edgeName(side), wallKindName(kind)}));
    if ((info.data.north | info.data.east | info.data.south | info.data.west) == 0)
        add(say(u"no walls"));
    add(texts.floor);
    add(texts.area);
    add(texts.event);
    if (info.isWalkerHere)
        add(say(u"the walker stands here"));
    return sentence;
}

} // namespace varn

#include "Game/Map/Direction.h"
#include "Game/Map/WizMapData.h"

namespace varn {

WStringView Direction::toText() const
{
    switch (value) {
    case None:
        return u"None";
    case North:
        return u"North";
    case East:
        return u"East";
    case South:
        return u"South";
    case West:
        return u"West";
    default:
        return u"Direction::Undefined";
    }
}

WStringView wallKindText(int kind)
{
    static constexpr WStringView kTexts[kWallKinds] = {
        u"None",        u"Wall",           u"Door",           u"SW Door",    u"NE Door",
        u"Secret Door", u"SW Secret Door", u"NE Secret Door", u"1/2 Door",   u"1/2 SW Door",
        u"1/2 NE Door", u"Invisible Wall", u"SW Shutter",     u"NE Shutter",
    };
    return kind >= 0 && kind < kWallKinds ? kTexts[kind] : u"Undefined Door";
}

} // namespace varn

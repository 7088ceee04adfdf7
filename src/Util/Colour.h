#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <optional>

namespace varn {

/// A colour as the files and the drawing classes have it: 0x00BBGGRR.
using ColourRef = std::uint32_t;

constexpr ColourRef makeColour(unsigned red, unsigned green, unsigned blue)
{
    return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}
constexpr unsigned redOf(ColourRef colour)
{
    return colour & 0xFF;
}
constexpr unsigned greenOf(ColourRef colour)
{
    return colour >> 8 & 0xFF;
}
constexpr unsigned blueOf(ColourRef colour)
{
    return colour >> 16 & 0xFF;
}

/// "#rrggbb", small letters.
inline WString toColourText(ColourRef colour)
{
    WString text = u"#";
    for (const unsigned part : {redOf(colour), greenOf(colour), blueOf(colour)})
        text.append({u"0123456789abcdef"[part >> 4], u"0123456789abcdef"[part & 15]});
    return text;
}

/// Reads "#rrggbb" or "rrggbb", in letters of either size; nothing for any other text.
inline std::optional<ColourRef> parseColour(WStringView text)
{
    if (text.starts_with(u'#'))
        text.remove_prefix(1);
    if (text.size() != 6)
        return std::nullopt;
    unsigned value = 0;
    for (const char16_t unit : text) {
        const std::size_t digit = WStringView(u"0123456789abcdefABCDEF").find(unit);
        if (digit == WStringView::npos)
            return std::nullopt;
        value = value << 4 | static_cast<unsigned>(digit < 16 ? digit : digit - 6);
    }
    return makeColour(value >> 16, value >> 8, value);
}

} // namespace varn

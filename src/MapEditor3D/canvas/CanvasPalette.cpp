#include "MapEditor3D/canvas/CanvasPalette.h"

namespace varn {

namespace {

/// As style sheets write it: 0xRRGGBB.
constexpr ColourRef rgb(std::uint32_t value)
{
    return makeColour(value >> 16, value >> 8, value);
}

constexpr CanvasPalette kLight{
    .dark = false,
    .desk = rgb(0xDCDCD8),
    .paper = rgb(0xFCFBF7),
    .grid = rgb(0xD3E1E6),
    .gridStrong = rgb(0xA9C4CE),
    .border = rgb(0x7F9AA5),
    .ink = rgb(0x24282E),
    .inkSoft = rgb(0x6E7C88),
    .signal = rgb(0xB3261E),
    .halo = rgb(0xFFFFFF),
    .ruler = rgb(0xEDEDEA),
    .rulerText = rgb(0x565B61),
    .rulerMark = rgb(0x2F6FB5),
    .rulerMarkText = rgb(0xFFFFFF),
    .hover = rgb(0x2F7FD6),
    .erase = rgb(0xC8372D),
    .band = rgb(0x2F7FD6),
    .walker = rgb(0xE07A10),
    .walkerEdge = rgb(0xFFFFFF),
    .event = rgb(0x5B4B8A),
    .eventText = rgb(0xFFFFFF),
    .selection = rgb(0x7A3FC8),
    .areas = {rgb(0x8C6BB1), rgb(0x2E8B57), rgb(0xC77C11), rgb(0x2C7FB8), rgb(0xC0398A),
              rgb(0x6B8E23), rgb(0xB5452C), rgb(0x178F8F)},
    .tileDim = 0,
};

constexpr CanvasPalette kDark{
    .dark = true,
    .desk = rgb(0x17191C),
    .paper = rgb(0x24282D),
    .grid = rgb(0x353C43),
    .gridStrong = rgb(0x4D5963),
    .border = rgb(0x71808B),
    .ink = rgb(0xEDE8DC),
    .inkSoft = rgb(0x9AA7B2),
    .signal = rgb(0xFF8A75),
    .halo = rgb(0x16181B),
    .ruler = rgb(0x1E2125),
    .rulerText = rgb(0xA9B0B7),
    .rulerMark = rgb(0x3D7FC4),
    .rulerMarkText = rgb(0xFFFFFF),
    .hover = rgb(0x5AA6F2),
    .erase = rgb(0xFF6B5E),
    .band = rgb(0x5AA6F2),
    .walker = rgb(0xFFA23A),
    .walkerEdge = rgb(0x16181B),
    .event = rgb(0x8D7CC4),
    .eventText = rgb(0x16181B),
    .selection = rgb(0xB78CFF),
    .areas = {rgb(0xB497DA), rgb(0x5CC28A), rgb(0xF0AA45), rgb(0x5DAEE6), rgb(0xE877BB),
              rgb(0xA3C654), rgb(0xE8795F), rgb(0x4CC7C7)},
    .tileDim = 110,
};

} // namespace

const CanvasPalette& lightCanvasPalette()
{
    return kLight;
}

const CanvasPalette& darkCanvasPalette()
{
    return kDark;
}

} // namespace varn

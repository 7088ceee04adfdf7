#pragma once

#include <cstdint>

namespace varn {

/// The colours of self-painted widgets, as colour references, after the desktop's light or dark
/// palette.
struct Theme
{
    bool dark = false;
    std::uint32_t face = 0xF0F0F0;       ///< behind controls
    std::uint32_t faceText = 0x000000;   ///< on the face
    std::uint32_t field = 0xFFFFFF;      ///< behind lists and text
    std::uint32_t fieldText = 0x000000;  ///< on the field
    std::uint32_t dimText = 0x707070;    ///< hints and units
    std::uint32_t line = 0xC0C0C0;       ///< frames and grids
    std::uint32_t accent = 0xB06A1F;     ///< selection and focus
    std::uint32_t accentText = 0xFFFFFF; ///< on the accent
    std::uint32_t warning = 0x2020C0;    ///< what is wrong
};

/// Black or white, whichever can be read on a colour.
std::uint32_t readableOn(std::uint32_t colour);

/// The colours in force; light ones before a window toolkit runs.
const Theme& theme();

} // namespace varn

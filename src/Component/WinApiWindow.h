#pragma once

#include "Component/NativeHandle.h"
#include "Graphics/Raster.h"

#include <cstdint>

namespace varn {

/// The font that the desktop uses for controls; its height in pixels at scale 1.
FontSpec defaultGuiFont();

/// Root of everything with a native window.
class WinApiWindow
{
  public:
    WinApiWindow();
    virtual ~WinApiWindow();
    WinApiWindow(const WinApiWindow&) = delete;
    WinApiWindow& operator=(const WinApiWindow&) = delete;

    NativeHandle getHandle() const { return handle; }
    /// Colour references.
    std::uint32_t getBackColor() const { return backColor; }
    std::uint32_t getTextColor() const { return textColor; }
    const FontSpec& getFont() const { return font; }

    /// The toolkit destroyed the native window, with its parent perhaps.
    virtual void forgetHandle() { handle = nullptr; }

  protected:
    NativeHandle handle = nullptr;
    std::uint32_t backColor; ///< at first the system's button face
    std::uint32_t textColor = 0xFFFFFF;
    FontSpec font = defaultGuiFont();
};

} // namespace varn

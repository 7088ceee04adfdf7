#pragma once

#include "Graphics/Graphics.h"

#include <atomic>
#include <functional>
#include <span>

namespace varn {

class Script;

/// The screen that scripts show their drawings on. It holds nothing of theirs: the list of what is
/// shown is each script's own, and the picture is composed of them when somebody wants to see it.
class Stage
{
  public:
    static constexpr int kWidth = 640, kHeight = 480;

    /// From any thread.
    int getWidth() const { return width; }
    int getHeight() const { return height; }
    /// In pixels; each side from 1 to what a surface can have.
    void setSize(int newWidth, int newHeight);

    /// Asked when a script wants another size, on that script's thread; the stage's size changes
    /// only if it says so. Set before scripts run.
    using ResolutionHandler = std::function<void(int width, int height)>;
    void setResolutionHandler(ResolutionHandler handler) { resolution = std::move(handler); }
    void requestResolution(int wantedWidth, int wantedHeight) const;

    /// Draws what the scripts show, in the order in which they added it, on black: each picture at
    /// its place, in its scaled size and with its opacity. None of the scripts may run meanwhile:
    /// they are parked or have ended. The picture is the stage's, until the next call.
    const Image& compose(std::span<const Script* const> scripts);

  private:
    std::atomic<int> width = kWidth, height = kHeight;
    ResolutionHandler resolution;
    Graphics surface;
};

} // namespace varn

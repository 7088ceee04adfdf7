#pragma once

#include "Graphics/Quad.h"
#include "Util/Rect.h"

#include <array>
#include <optional>

namespace varn {

/// Which surface of a cell a quad shows.
enum class ViewPiece
{
    Floor = 0,
    Wall = 1,
    Ceiling = 2
};
/// Which wall of a cell, as the viewer stands: the one to the left, the one that faces, the one
/// right.
enum class ViewSide
{
    Left = -1,
    Front = 0,
    Right = 1
};

/// A cell as the viewer sees it: columns to the right (to the left negative) and steps ahead.
struct ViewPlace
{
    int lateral = 0;
    int distance = 0;
    bool operator==(const ViewPlace&) const = default;
};

/// The farthest column seen at each distance.
inline constexpr std::array<int, 6> kMaxLateral = {1, 1, 3, 6, 8, 8};
inline constexpr int kMaxDistance = 5;

/// The pseudo-perspective of the first-person view: every step of distance halves a wall, and the
/// near edge of a cell is the far edge of the cell before it. All corners are whole pixels, rounded
/// toward zero.
class ViewGeometry
{
  public:
    explicit ViewGeometry(const Rect& view, int eyeHeight = 128) : view(view), eyeHeight(eyeHeight)
    {}

    /// A wall of a cell; nothing where it cannot be seen: a right wall left of the viewer's column,
    /// a left wall right of it. Corners: top left, bottom left, bottom right, top right.
    std::optional<QuadCorners> wall(ViewPlace place, ViewSide side) const;
    /// The floor tile: far left, near left, near right, far right.
    QuadCorners floor(ViewPlace place) const;
    /// The ceiling tile: near left, far left, far right, near right. In the other order the
    /// mapping's root would draw nothing.
    QuadCorners ceiling(ViewPlace place) const;
    /// A picture lying on the floor (or hanging under the ceiling), set in from the edges of its
    /// tile.
    QuadCorners flatFloor(ViewPlace place) const;
    QuadCorners flatCeiling(ViewPlace place) const;
    /// A picture standing upright in the middle of the tile.
    QuadCorners upright(ViewPlace place) const;
    /// A picture hanging on a wall, in the middle of its quad.
    std::optional<QuadCorners> onWall(ViewPlace place, ViewSide side) const;

    const Rect& getView() const { return view; }

  private:
    struct Measures;
    Measures measure(ViewPlace place) const;
    QuadCorners trapezoid(ViewPlace place, double marginFar, double marginNear, double insetFar,
                          double insetNear) const;
    QuadCorners mirrored(const QuadCorners& floorQuad) const;

    Rect view;
    int eyeHeight;
};

} // namespace varn

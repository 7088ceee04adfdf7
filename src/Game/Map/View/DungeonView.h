#pragma once

#include "Game/Database/WizFloor.h"
#include "Game/Map/View/StockImage.h"
#include "Game/Map/View/ViewWalk.h"
#include "Game/Map/View/WizMapImage.h"
#include "Graphics/Graphics.h"

namespace varn {

enum class Mirror
{
    Off,
    On
};

/// The first-person view of a floor, painted cell by cell from far to near into a buffer of its
/// own. Warped walls, and floor and ceiling as a whole, are kept from picture to picture, so
/// walking repaints by copying.
class DungeonView
{
  public:
    /// A buffer side is at most this.
    static constexpr int kSideLimit = 4096;

    explicit DungeonView(const WizMap& map) : map(map) { resize(320, 240); }

    /// Sides from 1 to 4096; another size empties what is kept.
    void setBackBufferSize(int width, int height);
    /// Pictures changed on disk or in the map: reads them anew at the next drawing.
    void reloadImages();
    /// Empties what is kept of warped pieces; the next drawing makes them anew.
    void forgetPieces() { kept = {}; }

    /// Paints the view from a cell at (x, y) of the target. The buffer takes the given size.
    /// @param mirror  mirrors the whole picture left to right, the background only where its entry
    ///                in the resource catalogue says that it flips
    void drawView(Graphics& target, const Rect& place, const Viewpoint& viewer,
                  Mirror mirror = Mirror::Off);

  private:
    /// What one drawing holds fixed.
    struct Scene
    {
        Viewpoint viewer;
        int visibleDistance;
        Mirror mirror;
        CellEvents events;
    };

    void resize(int width, int height);

    void paint(const Scene& scene);
    void paintBackdrop(const Scene& scene);
    void paintFloorAndCeiling(int visibleDistance);
    void paintCell(const Scene& scene, const SeenCell& seen);
    void paintDark(const SeenCell& seen);
    void paintWall(const Scene& scene, const SeenCell& seen, ViewSide side);
    void paintPiece(const Image& picture, ViewPlace place, ViewSide side, const QuadCorners& quad);
    void paintEvents(const Scene& scene, const SeenCell& seen, DisplayPosition position);
    void paintTexture(const Image& texture, const Scene& scene, ViewPlace place,
                      DisplayPosition position, Direction facing);
    void fillQuad(const QuadCorners& quad, std::uint32_t colour);

    /// The fog on a piece: strengths at the near and the far edge of its distance; nothing without
    /// fog.
    struct FogEdges
    {
        std::uint8_t near, far;
    };
    std::optional<FogEdges> fogAt(int distance) const;
    std::optional<Gradation> fogOnWall(ViewPlace place, ViewSide side) const;
    ViewGeometry geometry() const;

    const WizMap& map;
    WizMapImage images{MapPictures::View};
    Graphics viewBuffer;
    Graphics floorCeilingBuffer; ///< with alpha: what no tile covers shows the background
    Graphics backdrop;           ///< all that lies behind the cells
    Bitmap* canvas = nullptr;    ///< what is painted on during a drawing
    StockImageContainer stock;

    /// What the kept pieces were made for.
    struct Kept
    {
        int visibleDistance = -1, fogStep = -1, eyeHeight = 0;
        std::uint32_t fogColor = 0;
        bool fogEnabled = false;
        bool operator==(const Kept&) const = default;
    };
    Kept kept;

    /// What the backdrop was made for, beside what the pieces were.
    struct Backdrop
    {
        bool made = false;
        const Image* background = nullptr;
        Rect source;
        bool mirrored = false;
        bool operator==(const Backdrop&) const = default;
    };
    Backdrop backdropKept;
};

} // namespace varn

#include "MapEditor3D/canvas/MapPainter.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace varn::test {

namespace {

/// A floor of the demo game with its pictures; nothing is saved.
class MapPainterTest : public ::testing::Test
{
  protected:
    MapPainterTest() : before(std::filesystem::current_path())
    {
        std::filesystem::current_path(std::filesystem::path(VARN_SOURCE_DIR) / "demo");
        editor.load(u"Dungeon/Cloister.map");
    }
    ~MapPainterTest() override { std::filesystem::current_path(before); }

    /// What the painter left on its surface is what a fresh one would paint.
    ::testing::AssertionResult isUpToDate(const MapPainter& painter, const Graphics& surface,
                                          std::optional<CanvasCell> hover)
    {
        MapPainter fresh(editor);
        fresh.setView(painter.getView());
        fresh.setPalette(painter.getPalette());
        fresh.setOptions(painter.getOptions());
        fresh.setHover(hover);
        Graphics wanted;
        fresh.paint(wanted);
        for (int y = 0; y < wanted.getHeight(); ++y)
            for (int x = 0; x < wanted.getWidth(); ++x)
                if (wanted.getBitmap().getPixelColor(x, y) !=
                    surface.getBitmap().getPixelColor(x, y))
                    return ::testing::AssertionFailure() << "differs at " << x << ", " << y;
        return ::testing::AssertionSuccess();
    }

    std::filesystem::path before;
    WizMapEditor editor;
};

} // namespace

/// Two hundred things that people do, in chance order; behind each only what changed is repainted.
TEST_F(MapPainterTest, RepaintingWhatChangedLeavesWhatPaintingAllWould)
{
    for (const double scale : {1.0, 1.5}) {
        MapPainter painter(editor);
        const CanvasView view{.width = 480, .height = 400, .scale = scale, .scrollX = 30};
        painter.setView(view);
        painter.setPalette(scale == 1.0 ? lightCanvasPalette() : darkCanvasPalette());
        Graphics surface;
        painter.paint(surface);
        std::mt19937 random(2026);
        std::optional<CanvasCell> hover;
        const auto chance = [&](int limit) {
            return static_cast<int>(random() % static_cast<unsigned>(limit));
        };
        for (int step = 0; step < 200; ++step) {
            const Point pointer{chance(view.width), chance(view.height)};
            const CanvasPoint point = aim(editor, view, pointer);
            const int what = chance(12);
            switch (what) {
            case 0:
            case 1:
                editor.press(chance(4) ? MouseButton::Left : MouseButton::Right, point);
                break;
            case 2:
            case 3:
            case 4:
                editor.move(point);
                hover = view.placeAt(pointer);
                painter.setHover(hover);
                break;
            case 5:
                editor.release(MouseButton::Left, point);
                editor.release(MouseButton::Right, point);
                break;
            case 6:
                editor.undo();
                break;
            case 7:
                editor.controllerKey(static_cast<ControllerKey>(chance(11)));
                break;
            case 8:
                editor.setSelectedTile(chance(16));
                break;
            case 9:
                editor.setTool(chance(2) ? EditorTool::Pen : EditorTool::Rectangle);
                editor.setLayer(static_cast<EditorLayer>(chance(5)));
                break;
            case 10:
                editor.cancelGesture();
                editor.redo();
                break;
            default:
                editor.setSelectedEvent(static_cast<std::size_t>(chance(40)));
            }
            painter.paint(surface);
            ASSERT_TRUE(isUpToDate(painter, surface, hover))
                << "step " << step << ", action " << what << ", scale " << scale;
        }
    }
}

TEST_F(MapPainterTest, APenMoveRepaintsLittleAndNothingNothing)
{
    MapPainter painter(editor);
    painter.setView({.width = 1600, .height = 1000, .tileSize = 60});
    Graphics surface;
    EXPECT_EQ(painter.paint(surface).size(), 1U);
    EXPECT_TRUE(painter.paint(surface).empty());
    editor.cellsEdited({5, 5, 6, 6});
    int pixels = 0;
    for (const Rect& part : painter.paint(surface))
        pixels += part.width * part.height;
    EXPECT_GT(pixels, 60 * 60);
    EXPECT_LT(pixels, 9 * 60 * 60);
}

/// Nobody should need colours to tell wall kinds apart, and none may look like another where there
/// are few pixels.
TEST(EdgeTiles, EveryKindHasAShapeOfItsOwnAtTheSmallestSize)
{
    CanvasPalette black = lightCanvasPalette();
    black.ink = black.inkSoft = black.signal = black.erase = 0;
    black.paper = 0xFFFFFF;
    EdgeTiles tiles;
    tiles.use(nullptr, 20, black);
    for (const EdgeRun run : {EdgeRun::Level, EdgeRun::Upright}) {
        std::map<std::string, int> seen;
        for (int kind = 0; kind <= kWallKinds; ++kind) {
            Graphics surface(60, 60);
            surface.fillRect({0, 0, 60, 60}, 0xFFFFFF, 255);
            tiles.draw(surface, kind, run, {30, 30});
            std::string shape;
            for (int y = 0; y < 60; ++y)
                for (int x = 0; x < 60; ++x)
                    shape += (surface.getBitmap().getPixelColor(x, y) & 0xFF) < 128 ? '#' : '.';
            const auto [same, isNew] = seen.emplace(shape, kind);
            EXPECT_TRUE(isNew) << "kind " << kind << " looks like " << same->second;
        }
    }
}

TEST(TileStrip, ScalingKeepsTheMeanAndLetsNoClearPixelBleed)
{
    Image source;
    source.create(16, 16);
    source.getBitmap().setAlphaChannel(true);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) // a red left half; the right half is clear, of a bright colour
            source.getBitmap().setPixelRgba(x, y, x < 8 ? 0xFFC80000 : 0x0000FF00);
    const Image scaled = scaledPart(source, {0, 0, 16, 16}, 5, 5);
    EXPECT_EQ(scaled.getBitmap().getPixelValue(0, 2), 0xFFC80000);
    EXPECT_EQ(scaled.getBitmap().getPixelValue(2, 2), 0x80C80000) << "half of it is clear";
    EXPECT_EQ(scaled.getBitmap().getPixelValue(4, 2) >> 24, 0U);
}

} // namespace varn::test

// The first-person view at distance 5 beside a memcpy of the view, 640 by 480 and as large as it
// gets.
#include "Game/Map/View/DungeonView.h"
#include "Pictures.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <unistd.h>

namespace varn::bench {
namespace {

/// A project of pictures, and a floor of pillars and doors around the viewer.
class Scene
{
  public:
    Scene(int width, int height) : before(std::filesystem::current_path())
    {
        folder =
            std::filesystem::temp_directory_path() / ("varn-view-" + std::to_string(::getpid()));
        std::filesystem::create_directory(folder);
        std::filesystem::current_path(folder);
        for (const auto& [type, name] : {std::pair(ImageType::Wall, u"wall.png"),
                                         {ImageType::Door, u"door.png"},
                                         {ImageType::Floor, u"floor.png"},
                                         {ImageType::Ceiling, u"ceiling.png"}}) {
            Image picture = makeSprite(256, 256, true);
            for (std::size_t at = 3; at < picture.getBitmap().byteCount(); at += 4)
                picture.getBitmap().getBits()[at] = 255;
            picture.saveAs(name);
            map.setImageName(type, name);
        }
        map.cols = map.rows = 40;
        map.fogColor = 0x301808;
        map.setVisibleDistance(5);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x) {
                if ((x + y) % 3 == 0)
                    map.setWall((x * y) % 5 == 0 ? 2 : 1, Direction::North, x, y);
                if ((x * 7 + y) % 4 == 0)
                    map.setWall(1, Direction::East, x, y);
            }
        }
        surface.setSize(width, height);
    }
    ~Scene()
    {
        std::filesystem::current_path(before);
        std::filesystem::remove_all(folder);
    }

    void draw() { view.drawView(surface, surface.getBounds(), {20, 20, Direction::North}); }

    WizMap map;
    DungeonView view{map};
    Graphics surface;

  private:
    std::filesystem::path before, folder;
};

void cached(benchmark::State& state, int width, int height)
{
    Scene scene(width, height);
    scene.draw();
    for (auto _ : state)
        scene.draw();
}
BENCHMARK_CAPTURE(cached, small, kWidth, kHeight)->Name("view/cached");
BENCHMARK_CAPTURE(cached, large, 4096, 3072)->Name("view/cached, 4096 by 3072");

void afterPictureChange(benchmark::State& state, int width, int height)
{
    Scene scene(width, height);
    scene.draw();
    for (auto _ : state) {
        scene.view.forgetPieces();
        scene.draw();
    }
}
BENCHMARK_CAPTURE(afterPictureChange, small, kWidth, kHeight)->Name("view/after a picture changed");
BENCHMARK_CAPTURE(afterPictureChange, large, 4096, 3072)
    ->Name("view/after a picture changed, 4096 by 3072");

void copyBytes(benchmark::State& state, int width, int height)
{
    Image source = makeSprite(width, height, true), target = makeSprite(width, height, false);
    for (auto _ : state) {
        std::memcpy(target.getBitmap().getBits(), source.getBitmap().getBits(),
                    source.getBitmap().byteCount());
        benchmark::ClobberMemory();
    }
}
BENCHMARK_CAPTURE(copyBytes, small, kWidth, kHeight)->Name("view/memcpy");
BENCHMARK_CAPTURE(copyBytes, large, 4096, 3072)->Name("view/memcpy, 4096 by 3072");

} // namespace
} // namespace varn::bench

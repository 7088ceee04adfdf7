// From the event of a pen to canvas and first-person view painted: 1,000 moves of one stroke over a
// map of 100 by 100 cells, in the frame, without a display. Prints the median and the slowest, in
// milliseconds, beside a frame of 60 Hz.
//
//   PenMoveBench PROJECT   (is worked on in a copy)

#include "Component/Application.h"
#include "Component/native/Robot.h"
#include "MapEditor3D/frame/AppFrame.h"
#include "MapEditor3D/frame/Texts.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace varn;

namespace {

constexpr int kMoves = 1000;
constexpr double kFrameMs = 1000.0 / 60;

std::vector<double> drawStroke(AppFrame& frame)
{
    using Clock = std::chrono::steady_clock;
    const NativeHandle canvas = frame.getCanvas().getHandle();
    const int width = frame.getCanvas().getWidth() - 40;
    const int height = frame.getCanvas().getHeight() - 40;
    std::vector<double> times;
    robot::press(canvas, 30, 30);
    for (int i = 0; i < kMoves; ++i) {
        const auto start = Clock::now();
        robot::move(canvas, 30 + i * 7 % width, 30 + i * 3 % height, kHeldLeft);
        Application::processMessages();
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    robot::release(canvas, 30, 30);
    Application::processMessages();
    std::ranges::sort(times);
    return times;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    namespace fs = std::filesystem;
    const fs::path copy = fs::temp_directory_path() / "varn-pen-move";
    fs::remove_all(copy);
    fs::copy(argv[1], copy, fs::copy_options::recursive);
    fs::current_path(copy);

    Application application(argc, argv);
    useLanguageTexts();
    {
        ProjectSession session(copy / "bench.ini", ProjectSession::Presence::Headless);
        session.openProject();
        session.loadTexts();
        loadStartupTables();
        AppFrame frame(session, {});
        frame.open();
        frame.setSize(1600, 1000);
        WizMapEditor& editor = frame.getMapEditor();
        editor.getMap().cols = editor.getMap().rows = 100;
        editor.propertiesEdited();
        editor.setLayer(EditorLayer::Wall);
        editor.setSelectedTile(1);
        editor.placeWalker({10, 10}, Direction::East);
        Application::processMessages();
        drawStroke(frame); // warms pictures and letters
        editor.setSelectedTile(2);
        const std::vector<double> times = drawStroke(frame);
        std::printf(
            "pen move: median %.2f ms, slowest of %d %.2f ms; a frame of 60 Hz is %.1f ms\n",
            times[times.size() / 2], kMoves, times.back(), kFrameMs);
    }
    fs::current_path("/");
    fs::remove_all(copy);
    return 0;
}

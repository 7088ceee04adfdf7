#include "Audio/AudioManager.h"
#include "Audio/SoundOutput.h"
#include "Game/Database/StringTable.h"
#include "ScriptRun.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

/// A script before a small stage, on a thread of its own, frame by frame.
class Engine : public testing::Test
{
  protected:
    static constexpr int kWidth = 40, kHeight = 20;

    Engine()
    {
        registerEngineClasses();
        stage.setSize(kWidth, kHeight);
        script.setServices({.input = &input, .stage = &stage});
        script.setTraceListener([this](WStringView text) { traced += toUtf8(text) + " "; });
    }
    ~Engine() override { script.stop(); }

    /// Until it waits for the first time, or has ended.
    void start(std::string_view source)
    {
        try {
            script.compile(u"test", fromUtf8(source));
        } catch (const std::string& errors) {
            FAIL() << errors;
        }
        script.start();
        script.waitUntilIdle();
    }
    void frame()
    {
        host.nowMs += 16;
        input.beginFrame();
        script.resume();
        script.waitUntilIdle();
    }
    /// The colours on the stage, of a column each, as far as they differ: "black 8, red 4, ...".
    std::string row(int y)
    {
        const Script* const scripts[] = {&script};
        const Bitmap& shown = stage.compose(scripts).getBitmap();
        std::string text;
        for (int x = 0, start = 0; x < kWidth; ++x) {
            const std::uint32_t colour = shown.getPixelValue(x, y) & 0xFFFFFF;
            if (x + 1 < kWidth && (shown.getPixelValue(x + 1, y) & 0xFFFFFF) == colour)
                continue;
            char run[32];
            std::snprintf(run, sizeof run, "%s%06X*%d", start ? " " : "", colour, x + 1 - start);
            text += run;
            start = x + 1;
        }
        return text;
    }

    RecordingHost host;
    InputState input;
    Stage stage;
    Script script;
    std::string traced;
};

TEST_F(Engine, DrawsWhatAScriptTellsItTo)
{
    const struct
    {
        const char* name;
        const char* source;
        int y;
        const char* row;
    } cases[] = {
        {"fill, in script colours", "g.setFillColor(0xFF8000); g.fillRect(2, 0, 3, 1);", 0,
         "000000*2 FF8000*3 000000*35"},
        {"top byte is opacity", "g.setFillColor(0x80FF0000); g.fillRect(0, 0, 1, 1);", 0,
         "800000*1 000000*39"},
        {"clear", "g.setFillColor(255); g.fillRect(0, 0, 40, 20); g.clear();", 3, "000000*40"},
        {"whole picture at the origin", "g.drawImage(p);", 1, "00FF00*4 0000FF*4 000000*32"},
        {"at a place", "g.drawImage(p, 3, 1);", 1, "000000*3 00FF00*4 0000FF*4 000000*29"},
        {"into a rectangle", "g.drawImage(p, new Rectangle(1, 0, 4, 8));", 7,
         "000000*1 00FF00*2 0000FF*2 000000*35"},
        {"from a rectangle to one",
         "g.drawImage(p, new Rectangle(1, 0, 6, 1), new Rectangle(3, 0, 2, 1));", 0,
         "000000*1 00FF00*3 0000FF*3 000000*33"},
        {"a part at a place", "g.drawImage(p, 9, 0, new Rectangle(3, 0, 2, 1));", 0,
         "000000*9 00FF00*1 0000FF*1 000000*29"},
        {"from one corner to another", "g.drawImage(p, 9, 0, 3, 0);", 0,
         "000000*9 00FF00*1 0000FF*4 000000*26"},
        {"by nine numbers", "g.drawImage(p, 0, 0, 2, 1, 3, 0, 2, 1);", 0,
         "00FF00*1 0000FF*1 000000*38"},
        {"without the key",
         "p.setColorKey(0x0000FF); g.setFillColor(0x777777); g.fillRect(0, 0, 10, 1);"
         "g.drawImage(p);",
         0, "00FF00*4 777777*6 000000*30"},
        {"with the key",
         "var i: Image = p.getImage(); i.setColorKey(0x00FF00); i.setColorKeyEnabled(0);"
         "g.drawImage(i);",
         0, "00FF00*4 0000FF*4 000000*32"},
        {"a plain frame, without the project's skin", "g.drawFrame(0, 0, 40, 20);", 1, "FFFFFF*40"},
    };
    for (const auto& c : cases) {
        start(std::string("var g = new Graphics(40, 20); var p: Graphics = new Graphics(8, 8);"
                          "p.setFillColor(0x00FF00); p.fillRect(0, 0, 4, 8);"
                          "p.setFillColor(0x0000FF); p.fillRect(4, 0, 4, 8); addChild(g);") +
              c.source);
        EXPECT_EQ(row(c.y), c.row) << c.name;
    }
    EXPECT_TRUE(host.messages.empty()) << toUtf8(host.messages.front());
}

TEST_F(Engine, AlignsTexts)
{
    const struct
    {
        const char* draw;
        int first, last; ///< columns that letters may touch, and reach at both sides within 2
    } cases[] = {
        {"g.drawString(\"HHH\", 10, 0);", 10, 25},
        {"g.drawString(\"HHH\", 30, 0, TextAlign.RIGHT);", 14, 29},
        {"g.drawString(\"HHH\", 20, 0, TextAlign.CENTER);", 12, 27},
        {"g.drawString(\"HHH\", 10, 0, 5);", 10, 25},
        {"g.setTextAlign(2); g.drawString(\"HHH\", 30, 0);", 14, 29},
        {"g.setTextAlign(2); g.drawString(\"HHH\", 10, 0, TextAlign.LEFT);", 10, 25},
        {"g.setTextAlign(6); g.drawBorderString(\"HHH\", 20, 1, 0xFFFFFF, 0xFF);", 11, 28},
    };
    for (const auto& c : cases) {
        start(std::string("var g = new Graphics(40, 20); addChild(g);") + c.draw);
        const Script* const scripts[] = {&script};
        const Bitmap& shown = stage.compose(scripts).getBitmap();
        int first = kWidth, last = -1;
        for (int x = 0; x < kWidth; ++x) {
            for (int y = 0; y < kHeight; ++y) {
                if ((shown.getPixelValue(x, y) & 0xFFFFFF) == 0)
                    continue;
                first = std::min(first, x);
                last = x;
            }
        }
        EXPECT_NEAR(first, c.first, 2) << c.draw;
        EXPECT_NEAR(last, c.last, 2) << c.draw;
    }
}

TEST_F(Engine, ShowsObjectsInTheirOrderAtTheirPlaces)
{
    start("var a = new Graphics(4, 4); a.setFillColor(0xFF0000); a.fillRect(0, 0, 4, 4);"
          "var b = new Graphics(4, 4); b.setFillColor(0xFF); b.fillRect(0, 0, 4, 4);"
          "var i: Image = b.getImage(); i.setX(2); i.setY(1);"
          "addChild(a); addChild(b); waitOne();"
          "i.setBounds(30, 1, 8, 4); i.setOpacity(0.5); waitOne();"
          "i.setOpacity(0 - 1); removeChild(a); waitOne();"
          "function waitOne() { System.waitFrame(0); }");
    EXPECT_EQ(row(0), "FF0000*4 000000*36");
    EXPECT_EQ(row(1), "FF0000*2 0000FF*4 000000*34");
    frame();
    EXPECT_EQ(row(1), "FF0000*4 000000*26 00007F*8 000000*2");
    frame();
    EXPECT_EQ(row(1), "000000*40");
}

TEST_F(Engine, AsksForAnotherResolution)
{
    stage.setResolutionHandler([this](int width, int height) { stage.setSize(width, height); });
    start("GameSettings.setResolution(320, 9999); trace(GameSettings.getResolution());"
          "GameSettings.setResolution(0, 200); trace(Renderer.getWidth() + Renderer.getHeight());");
    EXPECT_EQ(traced, "320x4096 201 ");
}

TEST_F(Engine, SurfacesThatNobodyReachesGiveTheirMemoryBack)
{
    start("var g; for (var i = 0; i < 600; ++i) g = new Graphics(1000, 1000);"
          "trace(g.getWidth());");
    EXPECT_EQ(traced, "1000 ");
    EXPECT_TRUE(host.messages.empty());
    start("var all = new Array(); while (true) all.push(new Graphics(4096, 4096));");
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_NE(host.messages[0].find(u"memory"), WString::npos) << toUtf8(host.messages[0]);
}

TEST_F(Engine, SeesKeysAndPointerFrameByFrame)
{
    start("while (true) { System.waitFrame(0, 0); trace((Key.isDown(65) ? \"d\" : \"-\") +"
          "(Key.isTyped(65) ? \"t\" : \"-\") + (Key.isRepeat(65) ? \"r\" : \"-\") +"
          "(Key.isOkKeyTyped() ? \"o\" : \"-\") + (Key.isCancelKeyTyped() ? \"c\" : \"-\") +"
          "(Mouse.isClick(Mouse.RIGHT) ? \"\" + Mouse.x() + Mouse.y() : \"\")); }");
    frame();
    input.press(65);
    frame();
    frame();
    input.release(65);
    input.press(key::kEnter);
    frame();
    input.movePointer(7, 8);
    input.press(key::kMouseRight);
    input.setPad({.buttons = 1});
    frame();
    EXPECT_EQ(traced, "----- dtr-- d---- ---o- ----c78 ");
    input.assign(key::kButtonA, 65);
    input.setPad({.buttons = 2});
    traced.clear();
    frame();
    EXPECT_EQ(traced, "dtro- ");
}

TEST_F(Engine, TextsComeWhenTheyAreAskedFor)
{
    StringTable table;
    int asked = 0;
    script.setServices({.texts = [&]() -> StringTable& {
        ++asked;
        return table;
    }});
    start("var a = 1;");
    EXPECT_EQ(asked, 0);
    start("StringTable.set(\"Inn\", \"Gasthaus\"); trace(StringTable.get(\"Inn\") +"
          "StringTable.get(\"Shop\"));");
    EXPECT_EQ(traced, "GasthausShop ");
    EXPECT_EQ(table.getStrings().size(), 2U);
}

/// With a sound in the project and a device that cannot be opened: only the clock runs.
TEST_F(Engine, PlaysThroughTheChannelsOfTheGame)
{
    const TemporaryProject project;
    project.write("Audio/BGM/drip.wav", readSource("demo/Audio/BGS/drip.wav"));
    project.write("Audio/SE/bell.wav", readSource("demo/Audio/SE/bell.wav"));
    SoundOutput output(
        []() -> std::unique_ptr<SoundDevice> { throw Exception(u"there is no device"); });
    AudioManager audio(output);
    script.setServices({.audio = [&audio]() -> AudioManager& { return audio; }});
    start("Audio.playMusic(\"drip.wav\"); trace(Audio.getMusicPath());"
          "trace(Audio.isMusicPlaying()); trace(\"was \" + Audio.playMusic(\"none.wav\"));"
          "Audio.playMusic(\"drip.wav\", 0); Audio.setMusicCurrentPosition(500);"
          "trace(Audio.getMusicCurrentPosition() >= 500); Audio.setMusicEnabled(0);"
          "trace(Audio.getMusicCurrentPosition()); Audio.playSound(\"bell.wav\", 1);"
          "trace(\"rings\");");
    EXPECT_EQ(traced, "Audio/BGM/drip.wav 1 was Audio/BGM/drip.wav true 0 rings ");
    EXPECT_FALSE(audio.isMusicPlaying());

    // A stop does not wait for the sound to end.
    script.compile(u"test", u"Audio.playSound(\"bell\");");
    script.start();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const auto before = std::chrono::steady_clock::now();
    script.stop();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500));
    EXPECT_TRUE(host.messages.empty());
}

using Events = Engine;

TEST_F(Events, ReachListenersWhileTheScriptWaits)
{
    start(
        "var frames = 0; function onKey(e: Event) { trace(e.type + e.keyCode); }"
        "function onClick(e) { trace(e.type + e.x + \",\" + e.y + \",\" + e.button); }"
        "function onFrame() { ++frames; if (frames == 2) removeEventListener(\"click\", onClick); }"
        "System.addEventListener(KeyboardEvent.KEY_DOWN, onKey);"
        "addEventListener(MouseEvent.CLICK, onClick);"
        "addEventListener(Event.ENTER_FRAME, onFrame);"
        "System.waitFrame(2, 0); trace(\"frames \" + frames);");
    input.press(key::kLeft);
    input.movePointer(3, 4);
    input.press(key::kMouseLeft);
    input.press(key::kUp);
    frame();
    EXPECT_EQ(traced, "keyDown37 click3,4,1 keyDown38 ");
    traced.clear();
    input.release(key::kMouseLeft);
    frame();
    input.press(key::kMouseLeft);
    frame();
    EXPECT_EQ(traced, "frames 3 ");
    EXPECT_FALSE(script.isRunning());
}

TEST_F(Events, ListenersMayDoWhatAnyFunctionMay)
{
    const struct
    {
        const char* name;
        const char* listener;
        const char* traced;
        const char* message;
    } cases[] = {
        {"recurse deeply", "function f() { trace(deep(20000)); }", "20000 20000 20000 x3 ", ""},
        {"wait; nobody else is called meanwhile",
         "function f() { System.waitFrame(1, 0); trace(\"waited\"); }", "waited waited waited x3 ",
         ""},
        {"end the run", "function f() { trace(\"end\"); exit(); }", "end ", ""},
        {"end the run from further in",
         "function g() { exit(); } function f() { deep(10); g(); trace(\"not here\"); }", "", ""},
        {"be refused", "function f() { Math.acos(2); trace(\"on\"); }", "on on on x3 ",
         "The range of x must be [-1, 1]."},
        {"fail", "function f() { var zero = 0; 1 / zero; }", "", "(1): division by zero"},
        {"remove themselves",
         "function f() { trace(\"once\"); removeEventListener(\"enterFrame\", f); }", "once x3 ",
         ""},
        {"make values",
         "function f() { var a = new Array(); for (var i = 0; i < 3000; ++i)"
         " a.push(new Rectangle(i, 0, 0, 0)); var last: Rectangle = a[2999];"
         " trace(last.getX()); removeEventListener(\"enterFrame\", f); }",
         "2999 x3 ", ""},
    };
    for (const auto& c : cases) {
        traced.clear();
        host.messages.clear();
        start(std::string("var kept = [3];") + c.listener +
              "function deep(n) { return n == 0 ? 0 : 1 + deep(n - 1); }"
              "function waitHere(text) { System.waitFrame(2, 0); trace(text + kept); }"
              "addEventListener(\"enterFrame\", f); waitHere(\"x\");");
        for (int i = 0; i < 10 && script.isRunning(); ++i)
            frame();
        EXPECT_FALSE(script.isRunning()) << c.name;
        EXPECT_EQ(traced, c.traced) << c.name;
        if (*c.message == 0) {
            EXPECT_TRUE(host.messages.empty()) << c.name;
        } else {
            ASSERT_FALSE(host.messages.empty()) << c.name;
            EXPECT_NE(toUtf8(host.messages[0]).find(c.message), std::string::npos)
                << toUtf8(host.messages[0]);
        }
    }
}

TEST_F(Events, AStopEndsAListenerThatNeverReturns)
{
    start("function f() { while (true) ; } addEventListener(\"enterFrame\", f);"
          "System.waitFrame(9); trace(\"not here\");");
    script.resume();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    script.stop();
    EXPECT_EQ(script.runResult(), Interpreter::RunResult::Stopped);
    EXPECT_EQ(traced, "");
}

} // namespace
} // namespace varn::test

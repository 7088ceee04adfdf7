#include "Input/InputState.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>
#include <string>

namespace varn::test {
namespace {

class InputStates : public testing::Test
{
  protected:
    /// A frame later: is the key down, typed, repeated?
    std::string frame(int key, std::uint64_t milliseconds = 10)
    {
        host.nowMs += milliseconds;
        input.beginFrame();
        return std::string(input.isDown(key) ? "d" : "-") + (input.isTyped(key) ? "t" : "-") +
               (input.isRepeated(key) ? "r" : "-");
    }

    RecordingHost host;
    InputState input;
};

TEST_F(InputStates, APressIsTypedForOneFrame)
{
    EXPECT_EQ(frame('A'), "---");
    input.press('A');
    input.press('A'); // the system repeats what is held
    EXPECT_EQ(frame('A'), "dtr");
    EXPECT_EQ(input.getEvents().size(), 1U);
    input.press('A');
    EXPECT_EQ(frame('A'), "d--");
    input.release('A');
    EXPECT_EQ(frame('A'), "---");
    input.press('A');
    input.release('A'); // within a frame: not lost
    EXPECT_EQ(frame('A'), "-tr");
    input.press('A');
    input.releaseAll();
    frame('A');
    EXPECT_EQ(frame('A'), "---");
    for (const int none : {0, -1, 256, 1 << 30}) {
        input.press(none);
        EXPECT_EQ(frame(none), "---");
    }
}

TEST_F(InputStates, HeldKeysRepeat)
{
    input.setRepeatDelay(100);
    input.setRepeatTimer(30);
    input.press('A');
    std::string repeats;
    for (int ms = 0; ms < 200; ms += 10)
        repeats += frame('A')[2];
    EXPECT_EQ(repeats, "r---------r--r--r--r");
    input.setRepeatTimer(-5); // every frame
    frame('A', 30);
    EXPECT_EQ(frame('A'), "d-r");
    input.press('B');
    EXPECT_EQ(frame('B'), "dtr");
    EXPECT_EQ(frame('B'), "d--");
}

TEST_F(InputStates, PadsAreKeys)
{
    const PadState pad = {.buttons = 1U << key::kButtonA | 1U << 31, .left = true, .down = true};
    input.setPad(pad);
    input.setPad(pad);
    EXPECT_EQ(frame(key::kLeft), "dtr");
    EXPECT_EQ(frame(key::kDown), "d--");
    EXPECT_TRUE(input.isDown(key::kFirstButton + key::kButtonA));
    EXPECT_FALSE(input.isDown(key::kUp));

    // A button that stands for a key is that key, together with the keyboard's.
    input.assign(key::kButtonA, 'Z');
    EXPECT_EQ(input.keyOfButton(key::kButtonA), 'Z');
    input.press('Z');
    input.setPad({});
    input.setPad(pad);
    EXPECT_EQ(frame('Z'), "dtr");
    EXPECT_EQ(input.getEvents().size(), 3U); // Z once, left and down again
    EXPECT_TRUE(input.isOkKeyTyped());
    input.release('Z');
    EXPECT_EQ(frame('Z'), "d--");
    input.assign(key::kButtonA, 0);
    EXPECT_EQ(input.keyOfButton(key::kButtonA), 194);
    input.assign(-1, 'Z');
    EXPECT_EQ(input.keyOfButton(-1), 192);
}

TEST_F(InputStates, TellsTheKeysThatMeanYesAndNo)
{
    const struct
    {
        int key;
        bool ok, cancel, any;
    } cases[] = {
        {key::kEnter, true, false, true},
        {key::kEscape, false, true, true},
        {key::kFirstButton, false, true, true},
        {key::kFirstButton + 1, true, false, true},
        {'Q', false, false, true},
        {key::kMouseLeft, false, false, false},
    };
    for (const auto& c : cases) {
        input.press(c.key);
        frame(c.key);
        EXPECT_EQ(input.isOkKeyTyped(), c.ok) << c.key;
        EXPECT_EQ(input.isCancelKeyTyped(), c.cancel) << c.key;
        EXPECT_EQ(input.takeAnyKey(), c.any) << c.key;
        EXPECT_FALSE(input.takeAnyKey()) << c.key;
        input.release(c.key);
    }
}

TEST_F(InputStates, ClicksKnowWhereThePointerWas)
{
    input.movePointer(3, 4);
    input.press(key::kMouseRight);
    input.movePointer(50, 60);
    frame(key::kMouseRight);
    const std::vector<InputEvent> events = input.getEvents();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_TRUE(events[0].isClick());
    EXPECT_EQ(events[0].x * 100 + events[0].y, 304);
    EXPECT_EQ(input.getPointerX() * 100 + input.getPointerY(), 5060);
}

} // namespace
} // namespace varn::test

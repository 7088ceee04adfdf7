#include "Component/Button.h"
#include "Component/GroupComponent.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Robot.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace varn {
namespace {

/// Writes down what it is told.
class Journal final : public ActionListener
{
  public:
    std::vector<int> heard;
    void handleEvent(const EventObject& event) override { heard.push_back(event.id); }
};

class Probe : public Component
{
  public:
    std::vector<WString> calls;
    std::vector<std::filesystem::path> dropped;
    std::uint32_t refused = 0; ///< a message that the probe finishes before the kit sees it

    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override
    {
        return message == refused ? 1 : Component::windowProc(window, message, wParam, lParam);
    }
    bool onLeftDown(const MouseEvent& event) override
    {
        calls.push_back(u"down " + toDecimal(event.x) + u' ' + toDecimal(event.y));
        return false;
    }
    bool onRightUp(const MouseEvent&) override { return note(u"right up"); }
    bool onMouseWheel(const MouseEvent&, int delta) override
    {
        return note(u"wheel " + toDecimal(delta));
    }
    bool onKeyDown(int key, std::uint32_t flags) override
    {
        note(u"key " + toDecimal(key) + u' ' + toDecimal(flags));
        return Component::onKeyDown(key, flags);
    }
    bool onChar(int unit, std::uint32_t) override { return note(u"char " + toDecimal(unit)); }
    void onDropFiles(const std::vector<std::filesystem::path>& names) override { dropped = names; }

  private:
    bool note(WString call)
    {
        calls.push_back(std::move(call));
        return true;
    }
};

class Parent : public GroupComponent
{
  public:
    std::vector<std::pair<int, int>> notices;
    bool onNotify(int controlId, int code) override
    {
        notices.emplace_back(controlId, code);
        return true;
    }
};

class EventTest : public ::testing::Test
{
  protected:
    EventTest()
    {
        parent.createTopLevel();
        parent.setBounds(0, 0, 200, 100);
        probe.createChild(&parent, 10, 20, 60, 40);
        probe.setId(7);
        parent.setVisible(true);
    }

    Parent parent;
    Probe probe;
};

TEST_F(EventTest, MessagesReachTheirHandlersThroughTheWindowProcedure)
{
    robot::press(probe.getHandle(), 3, 4);
    robot::release(probe.getHandle(), 3, 4, robot::Button::Right);
    robot::wheel(probe.getHandle(), 3, 4, -1);
    robot::key(probe.getHandle(), 'Q', kHeldControl);
    robot::type(probe.getHandle(), u"\u3042");
    EXPECT_EQ(probe.calls, (std::vector<WString>{u"down 3 4", u"right up", u"wheel -120",
                                                 u"key 81 8", u"char 12354"}));
    probe.calls.clear();
    probe.refused = kLeftDownMessage;
    robot::press(probe.getHandle(), 3, 4);
    EXPECT_TRUE(probe.calls.empty());
}

TEST_F(EventTest, MouseListenersHearBeforeTheHandlerAndDisabledOnesNothing)
{
    Journal journal;
    probe.addMouseListener(&journal);
    probe.on(kMouseListener, [&](const EventObject& event) {
        EXPECT_EQ(probe.calls.size(), 0U);
        EXPECT_EQ(static_cast<const MouseEvent&>(event).x, 5);
    });
    robot::press(probe.getHandle(), 5, 6);
    EXPECT_EQ(journal.heard, (std::vector<int>{kLeftDownMessage}));
    EXPECT_EQ(probe.calls.size(), 1U);

    probe.setEnabled(false);
    robot::press(probe.getHandle(), 5, 6);
    EXPECT_EQ(journal.heard.size(), 1U);
    EXPECT_EQ(probe.calls.size(), 1U);
}

TEST_F(EventTest, AListenerIsListedOnceAndInOrder)
{
    ListenerList list;
    Journal first, second;
    EXPECT_FALSE(list.fire(kEventListener, EventObject(nullptr, 2)));
    list.addListener(kEventListener, &first);
    list.addListener(kEventListener, &second);
    list.addListener(kEventListener, &first);
    EXPECT_TRUE(list.fire(kEventListener, EventObject(nullptr, 2)));
    EXPECT_EQ(first.heard.size(), 1U);
    list.removeListener(kEventListener, &first);
    list.removeListener(kEventListener, &second);
    EXPECT_FALSE(list.fire(kEventListener, EventObject(nullptr, 2)));
}

TEST_F(EventTest, NoticesGoToTheParentWhereNobodyElseHears)
{
    probe.fireEvent(5);
    EXPECT_EQ(parent.notices, (std::vector<std::pair<int, int>>{{7, 5}}));
    Journal journal;
    probe.addEventListener(&journal);
    probe.fireEvent(6);
    EXPECT_EQ(parent.notices.size(), 1U);
    probe.fireEvent(1); // never asks the listeners
    EXPECT_EQ(parent.notices.back(), (std::pair<int, int>{7, 1}));
    EXPECT_EQ(journal.heard, (std::vector<int>{6}));
}

TEST_F(EventTest, DestroyingClearsListenersAndCreatingKeepsThoseOfBefore)
{
    Journal journal;
    Probe later;
    later.addEventListener(&journal);
    later.create(&parent);
    later.fireEvent(3);
    EXPECT_EQ(journal.heard.size(), 1U);
    later.destroy();
    later.create(&parent);
    later.fireEvent(3);
    EXPECT_EQ(journal.heard.size(), 1U);
    EXPECT_TRUE(later.close());
    EXPECT_EQ(later.getHandle(), nullptr);
}

TEST_F(EventTest, AListenerMayEndTheComponentThatCallsIt)
{
    auto doomed = std::make_unique<Probe>();
    bool afterwards = false;
    doomed->create(&parent);
    doomed->on(kMouseListener, [&](const EventObject&) {
        doomed.reset();
        afterwards = true; // the call itself lives on
    });
    doomed->on(kMouseListener, [&](const EventObject&) { FAIL() << "of a dead component"; });
    robot::press(doomed->getHandle(), 1, 1);
    EXPECT_TRUE(afterwards);

    auto button = std::make_unique<Button>(u"Close");
    button->create(&parent);
    button->onAction([&] { button.reset(); });
    robot::click(button->getHandle(), 3, 3);
    EXPECT_EQ(button, nullptr);
}

TEST_F(EventTest, ParentsDeathIsToldToTheChild)
{
    Probe child;
    {
        GroupComponent box;
        box.create(&parent);
        child.create(&box);
        EXPECT_NE(child.getHandle(), nullptr);
    }
    EXPECT_EQ(child.getHandle(), nullptr);
    child.repaint(); // nothing to do, and no harm
    EXPECT_EQ(child.getWidth(), 0);
}

TEST_F(EventTest, FilesThatAreDroppedArriveAsPaths)
{
    native::setAcceptsDrops(probe.getHandle(), true);
    robot::dropFile(probe.getHandle(), u"/maps/\u5730\u4E0B.map");
    ASSERT_EQ(probe.dropped.size(), 1U);
    EXPECT_EQ(probe.dropped.front(), std::filesystem::path(u"/maps/\u5730\u4E0B.map"));
}

TEST_F(EventTest, DumpsNameEveryField)
{
    probe.setText(u"Sheet");
    probe.setTextColor(0x000102);
    probe.setBackColor(0x0000FF);
    EXPECT_EQ(probe.toXml(),
              u"<Component Class=\"Component\" X=\"10\" Y=\"20\" Width=\"60\" "
              u"Height=\"40\" TextColor=\"258\" BackColor=\"255\" Text=\"Sheet\" />");
    EXPECT_EQ(probe.toString(), u"Component, 10, 20, 60, 40, 258, 255, 0, Sheet");
}

TEST_F(EventTest, ButtonsHaveTheirGreyAndTheCaptionFaceOnlyWhereItIs)
{
    const Button button(u"OK");
    EXPECT_EQ(button.getBackColor(), 0xE6E6E6U);
    if (native::hasFontFamily(u"Comic Sans MS")) {
        EXPECT_EQ(button.getFont().family, u"Comic Sans MS");
        EXPECT_EQ(button.getFont().height, 15);
    } else {
        EXPECT_EQ(button.getFont(), defaultGuiFont());
    }
}

} // namespace
} // namespace varn

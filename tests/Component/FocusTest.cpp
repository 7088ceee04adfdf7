#include "Component/Application.h"
#include "Component/Button.h"
#include "Component/ComboBox.h"
#include "Component/GroupComponent.h"
#include "Component/Label.h"
#include "Component/TabbedPane.h"
#include "Component/TextArea.h"
#include "Component/UpDownTextField.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Robot.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

/// first | box [ inner, hidden, disabled ] | label | last
class FocusTest : public ::testing::Test
{
  protected:
    FocusTest()
    {
        top.createTopLevel();
        last.create(&top); // made first, yet no sibling before it has the focus order of its own
        last.destroy();
        first.create(&top);
        box.create(&top);
        inner.create(&box);
        hidden.create(&box);
        disabled.create(&box);
        label.create(&top);
        last.create(&top);
        hidden.setVisible(false);
        disabled.setEnabled(false);
        top.setVisible(true);
        Application::processMessages();
    }

    WString focusedText() const
    {
        const BaseWindow* const window = native::windowOf(robot::focused());
        return window ? window->getText() : WString();
    }

    GroupComponent top, box;
    TextField first;
    Button inner{u"inner"}, hidden{u"hidden"}, disabled{u"disabled"};
    Label label{u"label"};
    Button last{u"last"};
};

TEST_F(FocusTest, TabGoesThroughPanesPastWhatTakesNoFocusAndWraps)
{
    first.setText(u"first");
    first.setFocus();
    std::vector<WString> way;
    for (int step = 0; step < 4; ++step) {
        way.push_back(focusedText());
        robot::key(robot::focused(), kKeyTab);
    }
    EXPECT_EQ(way, (std::vector<WString>{u"first", u"inner", u"last", u"first"}));
    way.clear();
    first.setFocus();
    for (int step = 0; step < 4; ++step) {
        way.push_back(focusedText());
        robot::key(robot::focused(), kKeyTab, kHeldShift);
    }
    EXPECT_EQ(way, (std::vector<WString>{u"first", u"last", u"inner", u"first"}));
}

TEST_F(FocusTest, WithoutAnotherCandidateTheFocusStays)
{
    first.setVisible(false);
    last.setEnabled(false);
    inner.setFocus();
    EXPECT_FALSE(inner.moveFocus(true));
    EXPECT_TRUE(inner.hasFocus());
    inner.requestFocus(true);
    EXPECT_TRUE(inner.hasFocus());
}

TEST_F(FocusTest, ATabStripIsReadBeforeItsPage)
{
    TabbedPane tabs;
    tabs.create(&top);
    Button onPage{u"on page"}, onOther{u"on other"};
    GroupComponent& page = tabs.addPage(u"One");
    onPage.create(&page);
    onOther.create(&tabs.addPage(u"Two"));
    tabs.setVisible(true);
    last.setFocus();
    ASSERT_TRUE(last.moveFocus(true));
    EXPECT_EQ(native::windowOf(robot::focused()), nullptr); // the toolkit's strip
    onPage.setFocus();
    EXPECT_TRUE(onPage.moveFocus(true));
    EXPECT_TRUE(first.hasFocus()); // not the page that is hidden
}

TEST_F(FocusTest, AWheelChangesOnlyTheNumberWithTheFocus)
{
    UpDownTextField number(0, 9);
    number.create(&top);
    number.setVisible(true);
    number.setValue(5);
    first.setFocus();
    robot::wheel(number.getHandle(), 2, 2, 1);
    EXPECT_EQ(number.getValue(), 5);
    number.setFocus();
    robot::wheel(number.getHandle(), 2, 2, 1);
    EXPECT_EQ(number.getValue(), 6);
}

TEST_F(FocusTest, AComboBoxSettlesOnTheEntryThatWasTyped)
{
    ComboBox box2;
    box2.create(&top);
    box2.setItems({u"000: Knife", u"001: Long Sword", u"002: Axe"});
    box2.setVisible(true);
    box2.setSelectedIndex(2);
    int chosen = 0;
    box2.onAction([&] { ++chosen; });
    const auto leaveWith = [&](WStringView text) {
        box2.setFocus();
        box2.setText(text);
        first.setFocus();
    };
    leaveWith(u"sword");
    EXPECT_EQ(box2.getSelectedIndex(), 1);
    EXPECT_EQ(box2.getText(), u"001: Long Sword");
    EXPECT_EQ(chosen, 1);
    leaveWith(u"no such thing");
    EXPECT_EQ(box2.getText(), u"001: Long Sword");
    leaveWith(u"");
    EXPECT_EQ(box2.getSelectedIndex(), 1);
    EXPECT_EQ(chosen, 1);
}

} // namespace
} // namespace varn

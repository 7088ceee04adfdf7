#include "Component/Application.h"
#include "Component/Caption.h"
#include "Component/GroupComponent.h"
#include "Component/native/Robot.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

/// Fills the left of what is dirty.
class Sheet : public Component
{
  public:
    std::vector<Rect> painted;
    int share = 1; ///< of the width that is left free: 1 of 2, 0 for none

  protected:
    void paint(Graphics& graphics, const Rect& dirty) override
    {
        painted.push_back(dirty);
        graphics.setFillColor(0x0000FF);
        graphics.fillRect(dirty.x, dirty.y, dirty.width / (1 + share), dirty.height);
    }
};

std::uint32_t pixel(const Bitmap& bitmap, int x, int y)
{
    return bitmap.getPixelColor(x, y);
}

TEST(PaintTest, OnlyTheDirtyPartIsPaintedAndTheRestStays)
{
    Sheet sheet;
    sheet.createTopLevel();
    sheet.setBounds(0, 0, 80, 40);
    sheet.setBackColor(0xFFFFFF);
    sheet.setVisible(true);
    Application::processMessages();
    ASSERT_FALSE(sheet.painted.empty());
    EXPECT_EQ(sheet.painted.front(), Rect(0, 0, 80, 40));

    sheet.painted.clear();
    sheet.repaint(Rect(20, 10, 8, 4));
    EXPECT_TRUE(sheet.painted.empty()); // not before the messages that wait
    sheet.update();
    EXPECT_EQ(sheet.painted, (std::vector<Rect>{Rect(20, 10, 8, 4)}));

    sheet.painted.clear();
    sheet.update(); // nothing was asked for
    EXPECT_TRUE(sheet.painted.empty());
}

TEST(PaintTest, TheDirtyPartHoldsTheBackground)
{
    Sheet sheet;
    sheet.share = 0;
    sheet.createTopLevel();
    sheet.setBounds(0, 0, 80, 40);
    sheet.setBackColor(0xFFFFFF);
    sheet.setVisible(true);
    Bitmap shown;
    robot::grab(sheet.getHandle(), shown);
    EXPECT_EQ(pixel(shown, 78, 2), 0x0000FFU);
    sheet.share = 1;
    robot::grab(sheet.getHandle(), shown);
    EXPECT_EQ(pixel(shown, 38, 2), 0x0000FFU);
    EXPECT_EQ(pixel(shown, 78, 2), 0xFFFFFFU); // what stood there is gone
}

TEST(PaintTest, ACaptionShowsItsTitleAndItsButtonCloses)
{
    GroupComponent top;
    top.createTopLevel();
    Caption caption(u"Layers");
    caption.createChild(&top, 0, 0, 160, Caption::kHeight);
    top.setVisible(true);
    EXPECT_EQ(caption.getText(), u"Layers");
    int closed = 0, pressed = 0;
    caption.onAction([&] { ++pressed; });
    caption.getCloseButton().onAction([&] { ++closed; });
    robot::click(caption.getCloseButton().getHandle(), 5, 5);
    robot::press(caption.getHandle(), 5, 5);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(caption.getCloseButton().getX(), 160 - Caption::kHeight);
}

} // namespace
} // namespace varn

#include "Component/IconPaths.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace varn::test {

/// A stroke that leaves the box is cut off on a button, and one with a point too few is not drawn.
TEST(IconPaths, StayInTheirBoxAndAreWholeAndDifferent)
{
    std::set<std::string> names, drawings;
    EXPECT_GT(iconPaths().size(), 40U);
    for (const IconPath& icon : iconPaths()) {
        std::string drawing;
        EXPECT_TRUE(names.emplace(icon.name).second) << icon.name;
        EXPECT_FALSE(icon.strokes.empty()) << icon.name;
        for (const IconStroke& stroke : icon.strokes) {
            using Kind = IconStroke::Kind;
            const bool isRound = stroke.kind == Kind::Circle || stroke.kind == Kind::Disc;
            const bool isFilled = stroke.kind == Kind::Filled || stroke.kind == Kind::Disc;
            const std::size_t count = stroke.points.size();
            if (isRound)
                ASSERT_EQ(count, 2U) << icon.name;
            else if (stroke.kind == Kind::Curve)
                ASSERT_TRUE(count >= 4 && count % 3 == 1) << icon.name << ' ' << count;
            else
                ASSERT_GE(count, stroke.kind == Kind::Line ? 2U : 3U) << icon.name;
            const float reach = (isFilled ? 0 : kIconStroke / 2) +
                                (isRound ? stroke.points[1].x - stroke.points[0].x : 0);
            for (const IconPoint& point : stroke.points.first(isRound ? 1 : count)) {
                for (const float at : {point.x, point.y}) {
                    EXPECT_GE(at - reach, 1) << icon.name;
                    EXPECT_LE(at + reach, kIconBox - 1) << icon.name;
                    drawing += std::to_string(at) + " ";
                }
            }
        }
        EXPECT_TRUE(drawings.insert(drawing).second) << icon.name;
        EXPECT_EQ(findIcon(icon.name), &icon);
    }
    EXPECT_EQ(findIcon("nothing"), nullptr);
}

} // namespace varn::test

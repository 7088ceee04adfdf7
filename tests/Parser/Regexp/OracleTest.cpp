#include "BothWays.h"
#include "RandomPattern.h"

#include <gtest/gtest.h>

namespace varn::test {

TEST(RegexpOracle, engineAgreesOnRandomPatterns)
{
    RandomPattern source(20240607);
    int compared = 0;
    int matched = 0;
    for (int round = 0; round < 30000; ++round) {
        const WString pattern = source.pattern();
        const int flags = source.upTo(0x3F);
        std::optional<BothWays> both;
        try {
            both.emplace(pattern, flags);
        } catch (const regexp::PatternException&) {
            continue;
        }
        for (int subject = 0; subject < 4; ++subject) {
            const WString text = source.text(12);
            const auto expected = both->expected(text);
            if (!expected)
                continue;
            ++compared;
            matched += expected->empty() ? 0 : 1;
            for (const int patience : {1 << 20, 0})
                ASSERT_EQ(both->actual(text, patience), expected)
                    << toUtf8(pattern) << " on \"" << toUtf8(text) << "\", flags " << flags
                    << ", patience " << patience;
        }
    }
    EXPECT_GT(compared, 50000);
    EXPECT_GT(matched, compared / 2);
}

} // namespace varn::test

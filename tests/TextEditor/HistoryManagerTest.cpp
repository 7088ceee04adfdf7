#include "TextEditor/HistoryManager.h"

#include <gtest/gtest.h>
#include <random>

namespace varn {
namespace {

class HistoryTest : public testing::Test
{
  protected:
    void type(WStringView text, std::int32_t at, std::int32_t removed = 0)
    {
        history.replaceRange({at, at + removed}, text, at);
    }

    TextDocument document;
    HistoryManager history{document};
};

TEST_F(HistoryTest, TakesBackAndRepeatsStepByStep)
{
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(history.undo(), HistoryManager::kNothing);
    type(u"ab", 0);
    history.replaceRange({1, 2}, u"XYZ", 7);
    EXPECT_EQ(document.getText(), u"aXYZ");
    EXPECT_EQ(history.undo(), 7) << "the caret before the edit";
    EXPECT_EQ(document.getText(), u"ab");
    EXPECT_EQ(history.undo(), 0);
    EXPECT_EQ(document.getText(), u"");
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(history.redo(), 2) << "behind the inserted text";
    EXPECT_EQ(history.redo(), 4);
    EXPECT_EQ(history.redo(), HistoryManager::kNothing);
    EXPECT_EQ(document.getText(), u"aXYZ");
    history.undo();
    type(u"!", 0);
    EXPECT_FALSE(history.canRedo()) << "a new edit ends what could be redone";
    EXPECT_EQ(document.getText(), u"!ab");
}

TEST_F(HistoryTest, ClampsRangesTowardTheWholeText)
{
    const struct
    {
        TextRange range, replaced;
    } cases[] = {
        {{-1, 2}, {0, 2}}, {{9, 9}, {0, 4}}, {{1, 9}, {1, 4}}, {{2, 1}, {2, 4}}, {{4, 4}, {4, 4}}};
    for (const auto& c : cases) {
        document.setText(u"abcd");
        EXPECT_EQ(history.replaceRange(c.range, u"", 0), c.replaced)
            << c.range.start << ' ' << c.range.end;
    }
}

TEST_F(HistoryTest, KnowsWhenTheSavedTextIsBack)
{
    type(u"a", 0);
    type(u"b", 1);
    history.markSaved();
    EXPECT_FALSE(history.isModified());
    history.undo();
    EXPECT_TRUE(history.isModified());
    history.redo();
    EXPECT_FALSE(history.isModified());
    history.undo();
    type(u"c", 1); // the saved text lies in the tail that this drops
    EXPECT_TRUE(history.isModified());
    history.undo();
    history.undo();
    EXPECT_TRUE(history.isModified());
    history.markSaved();
    EXPECT_FALSE(history.isModified());
    history.reset();
    EXPECT_FALSE(history.isModified() || history.canUndo() || history.canRedo());
}

TEST_F(HistoryTest, AccountsForItsMemory)
{
    EXPECT_EQ(history.getMemoryUse(), 0);
    type(u"some text", 0);
    const std::int64_t one = history.getMemoryUse();
    EXPECT_GT(one, 18);
    type(u"more", 0, 4);
    history.undo();
    EXPECT_GT(history.getMemoryUse(), one);
    type(u"some text", 0); // the tail goes, a step of the first's size comes
    EXPECT_EQ(history.getMemoryUse(), 2 * one);
}

TEST_F(HistoryTest, LeadsBackThroughEveryText)
{
    std::mt19937 random(1);
    const WStringView alphabet = u"\r\nabc";
    std::vector<WString> texts = {u""};
    for (int i = 0; i < 500; ++i) {
        const auto length = static_cast<std::int32_t>(document.getLength());
        const auto at = static_cast<std::int32_t>(random() % static_cast<unsigned>(length + 1));
        WString text;
        for (unsigned count = random() % 5; count-- > 0;)
            text += alphabet[random() % alphabet.size()];
        type(text, at,
             std::min<std::int32_t>(static_cast<std::int32_t>(random() % 4), length - at));
        texts.push_back(document.getText());
    }
    for (auto text = texts.rbegin() + 1; text != texts.rend(); ++text) {
        history.undo();
        ASSERT_EQ(document.getText(), *text);
    }
    for (std::size_t i = 1; i < texts.size(); ++i) {
        history.redo();
        ASSERT_EQ(document.getText(), texts[i]);
    }
}

} // namespace
} // namespace varn

#include "TextEditor/HistoryManager.h"

#include <cstdlib>

// Edits of four bytes each: what to do, where, how much goes, what comes. After each the line index
// equals one made anew; in the end undo leads back to the empty text and redo to the last one.
static void checkLines(const varn::TextDocument& document)
{
    varn::LineIndex fresh;
    fresh.rebuild(document.getText());
    const auto &is = document.getLines().getRecords(), &should = fresh.getRecords();
    if (is.size() != should.size())
        std::abort();
    for (std::size_t i = 0; i < is.size(); ++i) {
        if (is[i].textOffset != should[i].textOffset)
            std::abort();
    }
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    constexpr WStringView kTexts[] = {u"",  u"\r",   u"\n",     u"\r\n",
                                      u"a", u"\n\r", u"a\nb\r", u"abc\r\ndef"};
    TextDocument document;
    HistoryManager history(document);
    for (; size >= 4; data += 4, size -= 4) {
        if (data[0] % 8 == 0)
            history.undo();
        else if (data[0] % 8 == 1)
            history.redo();
        else
            history.replaceRange({data[1] - 2, data[1] - 2 + data[2] % 16}, kTexts[data[3] % 8],
                                 data[1]);
        checkLines(document);
    }
    while (history.redo() != HistoryManager::kNothing)
        checkLines(document);
    const WString last = document.getText();
    while (history.undo() != HistoryManager::kNothing)
        checkLines(document);
    if (!document.getText().empty())
        std::abort();
    while (history.redo() != HistoryManager::kNothing) {
    }
    if (document.getText() != last)
        std::abort();
    return 0;
}

#include "TextEditor/HistoryManager.h"

namespace varn {

static std::int32_t lengthOf(const WString& text)
{
    return static_cast<std::int32_t>(text.size());
}

/// Cuts a range to a text of this length as editors do: toward the whole text.
static TextRange clampRange(TextRange range, std::int32_t length)
{
    const std::int32_t start = range.start < 0 || range.start > length ? 0 : range.start;
    const std::int32_t end = range.end > length || range.end < start ? length : range.end;
    return {start, end};
}

std::int64_t EditEvent::size() const
{
    return static_cast<std::int64_t>(sizeof(EditEvent) +
                                     (insertedText.size() + removedText.size()) * sizeof(char16_t));
}

void HistoryManager::setDocument(ITextDocument& next)
{
    document = &next;
    reset();
}

void HistoryManager::reset()
{
    events.assign(1, EditEvent());
    current = 0;
    savedIndex = 0;
    memoryUse = 0;
}

TextRange HistoryManager::replaceRange(TextRange range, WStringView text, std::int32_t caret)
{
    range = clampRange(range, static_cast<std::int32_t>(document->getLength()));
    record({
        .kind = range.isEmpty() ? EditEvent::Insertion : EditEvent::Replacement,
        .offset = range.start,
        .caret = caret,
        .insertedText = WString(text),
        .removedText = document->getRangeText(range),
    });
    document->replaceRange(range, text);
    return range;
}

void HistoryManager::record(EditEvent event)
{
    if (current < savedIndex)
        savedIndex = -1; // what was saved lies among the steps that are dropped now
    while (canRedo()) {
        memoryUse -= events.back().size();
        events.pop_back();
    }
    memoryUse += event.size();
    events.push_back(std::move(event));
    ++current;
}

std::int32_t HistoryManager::undo()
{
    if (!canUndo())
        return kNothing;
    const EditEvent& event = events[static_cast<std::size_t>(current--)];
    document->replaceRange({event.offset, event.offset + lengthOf(event.insertedText)},
                           event.removedText);
    return event.caret;
}

std::int32_t HistoryManager::redo()
{
    if (!canRedo())
        return kNothing;
    const EditEvent& event = events[static_cast<std::size_t>(++current)];
    document->replaceRange({event.offset, event.offset + lengthOf(event.removedText)},
                           event.insertedText);
    return event.offset + lengthOf(event.insertedText);
}

} // namespace varn

#pragma once

#include "TextEditor/TextDocument.h"

#include <vector>

namespace varn {

/// One step of undo: a run of text that stood at an offset, and the one that came in its place.
struct EditEvent
{
    enum Kind : std::int32_t
    {
        Insertion = 0,
        Replacement = 1
    };

    Kind kind = Insertion;
    std::int32_t offset = 0;
    std::int32_t caret = 0; ///< where the caret was before the edit
    WString insertedText, removedText;

    /// Bytes it takes up.
    std::int64_t size() const;
};

/// Undo and redo for one document. Every edit is a step: one typed character, one pasted text, one
/// indented block. Nothing limits their number.
class HistoryManager
{
  public:
    /// What `undo` and `redo` give when there is nothing to do.
    static constexpr std::int32_t kNothing = -1;

    /// @param document  borrowed; what undo and redo change
    explicit HistoryManager(ITextDocument& document) : document(&document) { reset(); }

    /// Works on another document from now on, with an empty history.
    void setDocument(ITextDocument& next);

    /// Forgets all steps; what is there counts as saved.
    void reset();

    /// Edits the document and records the step. A start outside the document becomes 0; an end
    /// behind it, or before the start, becomes its length. Gives the range that was replaced.
    TextRange replaceRange(TextRange range, WStringView text, std::int32_t caret);

    /// Appends a step that was taken; steps that could be redone are gone.
    void record(EditEvent event);

    /// Takes back the last step; gives the caret's offset before it, or `kNothing`.
    std::int32_t undo();
    /// Takes the step again; gives the offset behind the inserted text, or `kNothing`.
    std::int32_t redo();
    bool canUndo() const { return current != 0; }
    bool canRedo() const { return static_cast<std::int32_t>(events.size()) - 1 != current; }

    void markSaved() { savedIndex = current; }
    /// The document differs from what was saved, as far as the steps tell.
    bool isModified() const { return current != savedIndex; }

    /// Bytes that all steps take up.
    std::int64_t getMemoryUse() const { return memoryUse; }

  private:
    ITextDocument* document;
    std::vector<EditEvent> events; // the first is empty, so that `current` always names one
    std::int32_t current = 0;      // the last step that is applied
    std::int32_t savedIndex = 0;   // -1: no undo or redo leads back to what was saved
    std::int64_t memoryUse = 0;
};

} // namespace varn

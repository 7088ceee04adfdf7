#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <vector>

namespace varn {

/// A run of text in 16-bit units, `end` exclusive. Signed, since editors ask for -1 and the like.
struct TextRange
{
    std::int32_t start = 0, end = 0;

    std::int32_t length() const { return end - start; }
    bool isEmpty() const { return start == end; }
    bool operator==(const TextRange&) const = default;
};

/// One logical line. The index keeps `textOffset`; the other fields belong to the view that lays
/// the lines out, and stay with their line through edits.
struct WrapInfo
{
    std::uint32_t textOffset = 0;          ///< where the line starts in the text
    std::uint32_t firstViewRow = 0;        ///< its first display row
    std::uint32_t rowCount = 0;            ///< display rows; 0 until a view has laid it out
    std::vector<std::int32_t> wrapOffsets; ///< the end of each display row, from `textOffset`
};

enum LineEnding : std::uint32_t
{
    kCr = 1,
    kLf = 2,
    kCrLf = 4
};

/// Where the lines of a text start. CR, LF and CRLF each end a line. There is one record a line and
/// behind them a sentinel at the text's length, so an empty text has two records.
///
/// An edit moves the records behind it and looks only at the new text and the units that touch it.
/// The result is that of a rebuild also where an edit joins a CR to an LF or parts them. The two
/// facts about line endings are those of the last rebuild: emptying a file does not forget what it
/// used.
class LineIndex
{
  public:
    LineIndex() { rebuild({}); }

    /// Makes all records anew. The view's fields start over.
    void rebuild(WStringView text);

    /// Follows an edit: `removed` units at `offset` gave way to `inserted` ones. `text` is the text
    /// after it; the length of the text before it was the sentinel's offset.
    void adjust(WStringView text, std::size_t offset, std::size_t removed, std::size_t inserted);

    /// The line that holds a text offset (the last one for offsets at or behind the end), or the
    /// line that holds a display row (the sentinel for rows behind the end).
    std::size_t findLine(std::uint32_t position, bool byRow = false) const;

    /// All records, the sentinel last.
    const std::vector<WrapInfo>& getRecords() const { return records; }
    WrapInfo& getRecord(std::size_t line) { return records[line]; }
    std::size_t getLineCount() const { return records.size() - 1; }

    /// Which endings occurred: `LineEnding` bits.
    std::uint32_t getLineEndingMask() const { return mask; }
    /// The one that outnumbers both others; CRLF where none does.
    LineEnding getLineEnding() const { return dominant; }
    /// For the status line: "CR", "LF" or "CRLF", or those that occur joined by "_".
    WString getLineEndingText() const;

  private:
    std::vector<WrapInfo> records;
    std::uint32_t mask = 0;
    LineEnding dominant = kCrLf;
};

} // namespace varn

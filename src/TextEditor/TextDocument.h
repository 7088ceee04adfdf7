#pragma once

#include "TextEditor/LineIndex.h"
#include "Util/TextFile.h"

#include <span>

namespace varn {

/// The text behind an editor: UTF-16 units with the line endings as they came, an index of its
/// lines, and the file it belongs to. Offsets count units. Belongs to one thread.
class ITextDocument
{
  public:
    virtual ~ITextDocument() = default;

    /// Reads a text file: decodes it, keeps the encoding found, the path and the lines. False: the
    /// file cannot be read or has more than 2^31 - 1 units, and nothing changes.
    /// @param requested  an encoding to read it in unless a mark says otherwise; Undefine: detect
    /// it
    virtual bool load(WStringView path, Encoding requested = Encoding::Undefine) = 0;
    virtual void clear() = 0;
    /// Writes the text in the document's encoding and keeps the path. False: the path cannot be
    /// written, or the encoding is Binary and there is text; the file stays as it was.
    virtual bool save(WStringView path) = 0;
    virtual void setText(WString text) = 0;

    /// Puts `text` in place of a range, which is cut to the document. Then `removeLinesOf` and
    /// `insertLinesOf` bring the lines up to date, in that order.
    virtual void replaceRange(TextRange range, WStringView text) = 0;
    virtual void removeLinesOf(TextRange range) = 0;
    virtual void insertLinesOf(std::int32_t offset, WStringView text) = 0;

    virtual const WString& getText() const = 0;
    /// A copy; empty when the range starts behind the end.
    virtual WString getRangeText(TextRange range) const = 0;
    virtual std::uint32_t getLength() const = 0;
    /// One unit, for reading and for changes that make or take no line ending. The offset may be
    /// the length: a zero stands there.
    virtual char16_t& getChar(std::uint32_t offset) = 0;
    /// A line with its ending; empty for lines out of range.
    virtual WString getLineText(std::size_t line) const = 0;
    /// The same as narrow text with a terminator, cut to the buffer; gives the bytes before the
    /// terminator. The buffer holds at least one byte.
    virtual std::size_t getLineText(std::size_t line, std::span<char> buffer) const = 0;
    /// As LineIndex::findLine.
    virtual std::size_t findLine(std::uint32_t position, bool byRow = false) const = 0;
};

class TextDocument : public ITextDocument
{
  public:
    bool load(WStringView path, Encoding requested = Encoding::Undefine) override;
    void clear() override;
    bool save(WStringView path) override;
    void setText(WString text) override;
    void replaceRange(TextRange range, WStringView text) override;
    void removeLinesOf(TextRange range) override;
    void insertLinesOf(std::int32_t offset, WStringView text) override;
    const WString& getText() const override { return text; }
    WString getRangeText(TextRange range) const override;
    std::uint32_t getLength() const override { return static_cast<std::uint32_t>(text.size()); }
    char16_t& getChar(std::uint32_t offset) override;
    WString getLineText(std::size_t line) const override;
    std::size_t getLineText(std::size_t line, std::span<char> buffer) const override;
    std::size_t findLine(std::uint32_t position, bool byRow = false) const override;

    const LineIndex& getLines() const { return lines; }
    LineIndex& getLines() { return lines; }

    Encoding getEncoding() const { return encoding; }
    void setEncoding(Encoding value) { encoding = value; }
    /// "Untitled.txt" until a file is loaded or saved.
    const WString& getPath() const { return path; }

  private:
    /// The range within the document, with its start not behind its end.
    TextRange cut(TextRange range) const;

    LineIndex lines;
    Encoding encoding = Encoding::Ansi;
    WString path = u"Untitled.txt";
    WString text;
};

/// The test before saving: false when the encoding would lose characters of the text. It compares
/// the number of question marks before and after, so in ISO-2022-JP, where that byte is also half
/// of some characters, it refuses more than it must.
bool canSaveLossless(WStringView text, Encoding encoding);

/// What an editor tells the person when `canSaveLossless` refuses.
WStringView lossWarning(bool isJapaneseUser);

} // namespace varn

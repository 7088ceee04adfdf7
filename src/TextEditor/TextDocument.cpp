#include "TextEditor/TextDocument.h"

#include "Util/ProjectPath.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace varn {

bool TextDocument::load(WStringView newPath, Encoding requested)
{
    auto content = readTextFile(resolveProjectPath(newPath), requested);
    if (!content || content->text.size() > std::numeric_limits<std::int32_t>::max())
        return false;
    path = newPath;
    encoding = content->encoding;
    setText(std::move(content->text));
    return true;
}

void TextDocument::clear()
{
    setText({});
}

bool TextDocument::save(WStringView newPath)
{
    if (!writeTextFile(resolveProjectPath(newPath), text, encoding))
        return false;
    path = newPath;
    return true;
}

void TextDocument::setText(WString newText)
{
    text = std::move(newText);
    lines.rebuild(text);
}

void TextDocument::replaceRange(TextRange range, WStringView newText)
{
    range = cut(range);
    text.replace(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length()),
                 newText);
    removeLinesOf(range);
    insertLinesOf(range.start, newText);
}

void TextDocument::removeLinesOf(TextRange range)
{
    if (!range.isEmpty())
        lines.adjust(text, static_cast<std::size_t>(range.start),
                     static_cast<std::size_t>(range.length()), 0);
}

void TextDocument::insertLinesOf(std::int32_t offset, WStringView newText)
{
    if (!newText.empty())
        lines.adjust(text, static_cast<std::size_t>(offset), 0, newText.size());
}

WString TextDocument::getRangeText(TextRange range) const
{
    range = cut(range);
    return text.substr(static_cast<std::size_t>(range.start),
                       static_cast<std::size_t>(range.length()));
}

char16_t& TextDocument::getChar(std::uint32_t offset)
{
    assert(offset <= text.size());
    return text[offset];
}

WString TextDocument::getLineText(std::size_t line) const
{
    if (line >= lines.getLineCount())
        return {};
    const std::uint32_t start = lines.getRecords()[line].textOffset;
    return text.substr(start, lines.getRecords()[line + 1].textOffset - start);
}

std::size_t TextDocument::getLineText(std::size_t line, std::span<char> buffer) const
{
    assert(!buffer.empty());
    const std::string bytes = cutToField(narrow(getLineText(line)), buffer.size());
    *std::copy(bytes.begin(), bytes.end(), buffer.begin()) = '\0';
    return bytes.size();
}

std::size_t TextDocument::findLine(std::uint32_t position, bool byRow) const
{
    return lines.findLine(position, byRow);
}

TextRange TextDocument::cut(TextRange range) const
{
    const auto length = static_cast<std::int32_t>(text.size());
    const std::int32_t start = std::clamp(range.start, 0, length);
    return {start, std::clamp(range.end, start, length)};
}

bool canSaveLossless(WStringView text, Encoding encoding)
{
    switch (encoding) {
    case Encoding::Undefine:
    case Encoding::Unicode:
    case Encoding::Utf16Be:
    case Encoding::Utf8:
    case Encoding::Utf8Bom:
        return true;
    case Encoding::Binary:
        encoding = Encoding::Ansi;
        break; // it has the process code page too
    default:
        break;
    }
    const auto bytes = encodeText(text, encoding);
    return bytes && std::count(bytes->begin(), bytes->end(), '?') ==
                        std::count(text.begin(), text.end(), u'?');
}

WStringView lossWarning(bool isJapaneseUser)
{
    return isJapaneseUser
               ? u"選択したエンコーディングで保存すると文字情報が失われます。\nユニコード形式で保存"
                 u"してください。"
               : u"Character information will be lost when you save in the selected encoding.\n"
                 u"Plese save the file in Unicode format.";
}

} // namespace varn

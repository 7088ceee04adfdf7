#include "Util/SettingsText.h"

#include <algorithm>

namespace varn {

namespace {

constexpr WStringView kLineEnds = u"\r\n";

WStringView trimmed(WStringView text)
{
    const std::size_t first = text.find_first_not_of(u" \t");
    if (first == WStringView::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

bool isQuoted(WStringView value)
{
    return value.size() >= 2 && value.front() == value.back() &&
           (value.front() == u'"' || value.front() == u'\'');
}

/// The name in a line of the form [name], without outer blanks; nothing for other lines.
std::optional<WStringView> sectionOf(WStringView line)
{
    line = trimmed(line);
    if (!line.starts_with(u'['))
        return std::nullopt;
    return trimmed(line.substr(1, line.find(u']') - 1));
}

struct Entry
{
    WStringView key, value;
};

/// The parts of a line of the form key=value, without outer blanks; nothing for other lines.
std::optional<Entry> entryOf(WStringView line)
{
    const std::size_t equals = line.find(u'=');
    const WStringView key = trimmed(line.substr(0, equals));
    if (equals == WStringView::npos || key.starts_with(u';'))
        return std::nullopt;
    return Entry{key, trimmed(line.substr(equals + 1))};
}

/// Goes through a text line by line; knows where each starts and ends in it.
class LineCursor
{
  public:
    explicit LineCursor(WStringView text) : text(text) {}

    bool next()
    {
        if (behind == text.size())
            return false;
        start = behind;
        end = std::min(text.find_first_of(kLineEnds, start), text.size());
        behind = end;
        if (behind < text.size())
            behind += text.substr(behind).starts_with(kLineEnds) ? 2 : 1;
        return true;
    }
    WStringView line() const { return text.substr(start, end - start); }

    std::size_t start = 0, end = 0;
    std::size_t behind = 0; ///< where the next line starts

  private:
    WStringView text;
};

/// Where a key stands in a settings text, or where its line would go.
struct Place
{
    bool hasSection = false;
    std::optional<WStringView> value;
    std::size_t valueStart = 0; ///< behind "=" and blanks
    std::size_t lineEnd = 0;    ///< of the key's line
    std::size_t sectionEnd = 0; ///< behind the section's last line that is not blank
};

/// The first section of the name counts, and in it the first key of the name.
Place find(WStringView text, WStringView section, WStringView key)
{
    Place place;
    LineCursor cursor(text);
    while (cursor.next()) {
        if (const auto name = sectionOf(cursor.line())) {
            if (place.hasSection)
                break;
            place.hasSection = equalsIgnoringCase(*name, section);
            place.sectionEnd = cursor.behind;
            continue;
        }
        if (!place.hasSection)
            continue;
        if (!trimmed(cursor.line()).empty())
            place.sectionEnd = cursor.behind;
        const auto entry = entryOf(cursor.line());
        if (entry && equalsIgnoringCase(entry->key, key)) {
            place.value = entry->value;
            place.lineEnd = cursor.end;
            place.valueStart = entry->value.empty()
                                   ? cursor.end
                                   : static_cast<std::size_t>(entry->value.data() - text.data());
            break;
        }
    }
    return place;
}

/// The line end that the text's first line has; "\r\n" where no line has one.
WStringView lineEndOf(WStringView text)
{
    const std::size_t at = text.find_first_of(kLineEnds);
    if (at == WStringView::npos)
        return kLineEnds;
    return text.substr(at, text.substr(at).starts_with(kLineEnds) ? 2 : 1);
}

/// A value that reading would strip of something is written in quotes, which reading strips
/// instead.
WString composeValue(WStringView value)
{
    const bool needsQuotes = trimmed(value) != value || isQuoted(value);
    const WStringView quote = needsQuotes ? u"\"" : u"";
    return WString(quote).append(value).append(quote);
}

void insertEntry(WString& text, const Place& place, WStringView section, const WString& line)
{
    const WString lineEnd(lineEndOf(text));
    WString added = line + lineEnd;
    std::size_t at = place.sectionEnd;
    if (!place.hasSection) {
        at = text.size();
        added = (text.empty() ? u"[" : lineEnd + u"[") + WString(section) + u"]" + lineEnd + added;
    }
    const bool endsLine = at == 0 || kLineEnds.find(text[at - 1]) != WStringView::npos;
    text.insert(at, endsLine ? added : lineEnd + added);
}

bool holdsLineEnd(WStringView text)
{
    return text.find_first_of(kLineEnds) != WStringView::npos;
}

/// True when a line made of these is found again under the same names.
bool canBeWritten(WStringView section, WStringView key, WStringView value)
{
    if (holdsLineEnd(section) || holdsLineEnd(key) || holdsLineEnd(value))
        return false;
    return section.find(u']') == WStringView::npos && key.find(u'=') == WStringView::npos &&
           trimmed(section) == section && trimmed(key) == key && !key.starts_with(u';') &&
           !key.starts_with(u'[');
}

} // namespace

std::optional<WString> findSetting(WStringView text, WStringView section, WStringView key)
{
    const Place place = find(text, section, key);
    if (!place.value)
        return std::nullopt;
    const bool quoted = isQuoted(*place.value);
    return WString(quoted ? place.value->substr(1, place.value->size() - 2) : *place.value);
}

std::optional<WString> withSetting(WStringView text, WStringView section, WStringView key,
                                   WStringView value)
{
    if (!canBeWritten(section, key, value))
        return std::nullopt;
    const Place place = find(text, section, key);
    WString changed(text);
    if (place.value)
        changed.replace(place.valueStart, place.lineEnd - place.valueStart, composeValue(value));
    else
        insertEntry(changed, place, section, WString(key) + u"=" + composeValue(value));
    return changed;
}

WString withoutSetting(WStringView text, WStringView section, WStringView key)
{
    WString kept;
    bool inside = false, isOver = false;
    std::size_t from = 0;
    LineCursor cursor(text);
    while (cursor.next()) {
        if (const auto name = sectionOf(cursor.line())) {
            isOver |= inside;
            inside = !isOver && equalsIgnoringCase(*name, section);
        }
        const auto entry = inside ? entryOf(cursor.line()) : std::nullopt;
        if (!entry || !equalsIgnoringCase(entry->key, key))
            continue;
        kept += text.substr(from, cursor.start - from);
        from = cursor.behind;
    }
    return kept.append(text.substr(from));
}

WString withoutSection(WStringView text, WStringView section)
{
    WString kept;
    bool inside = false;
    LineCursor cursor(text);
    while (cursor.next()) {
        if (const auto name = sectionOf(cursor.line()))
            inside = equalsIgnoringCase(*name, section);
        if (!inside)
            kept += text.substr(cursor.start, cursor.behind - cursor.start);
    }
    return kept;
}

} // namespace varn

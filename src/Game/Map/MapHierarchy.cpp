#include "Game/Map/MapHierarchy.h"

#include "Game/GameResourceFile.h"
#include "Game/Map/MapFile.h"
#include "Util/File.h"
#include "Util/Host.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

namespace varn {

namespace {

// Deeper than any tree; keeps sums of depths from a file in range.
constexpr std::int32_t kMaxDepth = 100000;

/// The lines of the file's text, without their ends: split on CR LF where it holds any, else on LF.
class Lines
{
  public:
    explicit Lines(WStringView text)
        : rest(text), separator(text.find(u"\r\n") != WStringView::npos ? u"\r\n" : u"\n")
    {}

    /// Nothing behind the last line.
    std::optional<WStringView> next()
    {
        if (atEnd)
            return std::nullopt;
        const std::size_t end = rest.find(separator);
        atEnd = end == WStringView::npos;
        const WStringView line = rest.substr(0, end);
        rest.remove_prefix(atEnd ? rest.size() : end + separator.size());
        return line;
    }
    /// Anything but blanks and line ends is left.
    bool hasMore() const { return rest.find_first_not_of(u" \t\r\n") != WStringView::npos; }

  private:
    WStringView rest;
    WStringView separator;
    bool atEnd = false;
};

/// Takes the word at the front, blanks before it and the one behind it. Nothing: no blank is there.
std::optional<WStringView> takeWord(WStringView& line)
{
    line.remove_prefix(std::min(line.find_first_not_of(u' '), line.size()));
    const std::size_t end = line.find(u' ');
    if (end == WStringView::npos)
        return std::nullopt;
    const WStringView word = line.substr(0, end);
    line.remove_prefix(end + 1);
    return word;
}

/// "%d %d %s": the name is all behind the blank of the second number. Nothing: the line is too
/// short.
std::optional<MapHierarchy::Entry> parseLine(WStringView line)
{
    const auto depth = takeWord(line);
    const auto id = depth ? takeWord(line) : std::nullopt;
    if (!id)
        return std::nullopt;
    return MapHierarchy::Entry{std::clamp(parseDecimal(*depth), 0, kMaxDepth), parseDecimal(*id),
                               WString(line)};
}

} // namespace

void MapHierarchy::clear()
{
    entries.clear();
    encoding = Encoding::ShiftJis;
    isCutShort = false;
}

bool MapHierarchy::load(WStringView path)
{
    clear();
    const auto file = readTextFile(resolveProjectPath(path));
    if (!file)
        return false;
    if (!file->text.empty())
        encoding = file->encoding;
    if (const auto line = parse(file->text)) {
        isCutShort = true;
        host().showMessage(WString(path) + u"\r\nLine " +
                           toDecimal(static_cast<std::int64_t>(*line)) +
                           u" is too short. The lines from there on were not read.");
    }
    return true;
}

std::optional<std::size_t> MapHierarchy::parse(WStringView text)
{
    entries.clear();
    Lines lines(text);
    while (const auto line = lines.next()) {
        auto entry = parseLine(*line);
        if (!entry) {
            const bool nothingLost = line->empty() && !lines.hasMore();
            return nothingLost ? std::nullopt : std::optional(entries.size() + 1);
        }
        entries.push_back(std::move(*entry));
    }
    return std::nullopt;
}

bool MapHierarchy::save(WStringView path)
{
    const WString text = toText();
    const auto bytes = encodeText(text, encoding);
    const bool survives =
        bytes && decodeBytes(asBytes(std::string(byteOrderMark(encoding)) + *bytes)).text == text;
    const std::filesystem::path file = resolveProjectPath(path);
    if (std::exchange(isCutShort, false))
        keepCopy(file);
    return writeTextFile(file, text, survives ? encoding : Encoding::Utf8Bom);
}

WString MapHierarchy::toText() const
{
    WString text;
    for (const Entry& entry : entries)
        text += toDecimal(entry.depth) + u' ' + toDecimal(entry.id) + u' ' + entry.name + u'\n';
    return text;
}

std::optional<std::size_t> MapHierarchy::findMap(WStringView name) const
{
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
        return !entry.isFolder() && equalsIgnoringAsciiCase(entry.name, name);
    });
    if (found == entries.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - entries.begin());
}

std::optional<std::size_t> MapHierarchy::findById(std::int32_t id) const
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& entry) { return entry.id == id; });
    if (found == entries.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - entries.begin());
}

std::optional<std::size_t> MapHierarchy::parentOf(std::size_t index) const
{
    const std::int32_t depth = entries.at(index).depth;
    while (index-- > 0) {
        if (entries[index].depth < depth)
            return index;
    }
    return std::nullopt;
}

std::size_t MapHierarchy::endOf(std::size_t index) const
{
    const std::int32_t depth = entries.at(index).depth;
    std::size_t end = index + 1;
    while (end < entries.size() && entries[end].depth > depth)
        ++end;
    return end;
}

std::vector<std::size_t> MapHierarchy::childrenOf(std::optional<std::size_t> parent) const
{
    std::vector<std::size_t> children;
    const std::size_t end = parent ? endOf(*parent) : entries.size();
    for (std::size_t i = parent ? *parent + 1 : 0; i < end; i = endOf(i))
        children.push_back(i);
    return children;
}

std::int32_t MapHierarchy::childDepth(std::optional<std::size_t> parent) const
{
    const std::vector<std::size_t> siblings = childrenOf(parent);
    if (!siblings.empty())
        return entries[siblings.back()].depth;
    return parent ? entries.at(*parent).depth + 1 : Entry().depth;
}

std::size_t MapHierarchy::insertUnder(std::optional<std::size_t> parent, Entry entry)
{
    if (parent && !entries.at(*parent).isFolder())
        parent = parentOf(*parent);
    entry.depth = childDepth(parent);
    const std::size_t place = parent ? endOf(*parent) : entries.size();
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(place), std::move(entry));
    return place;
}

std::int32_t MapHierarchy::newId(std::int32_t first, std::int32_t end) const
{
    std::vector<std::int32_t> taken;
    for (const Entry& entry : entries) {
        if (entry.id >= first && entry.id < end)
            taken.push_back(entry.id);
    }
    if (taken.empty())
        return first;
    std::sort(taken.begin(), taken.end());
    if (taken.back() + 1 < end)
        return taken.back() + 1;

    std::int32_t free = first;
    for (const std::int32_t id : taken)
        free += id == free ? 1 : 0;
    if (free == end)
        throw Exception(u"The project holds as many maps as it can number.");
    return free;
}

std::size_t MapHierarchy::addMap(std::optional<std::size_t> parent, WString name)
{
    return insertUnder(parent, {0, newId(1, kFirstFolderId), std::move(name)});
}

std::size_t MapHierarchy::addFolder(std::optional<std::size_t> parent, WString name)
{
    const std::int32_t id = newId(kFirstFolderId, std::numeric_limits<std::int32_t>::max());
    return insertUnder(parent, {0, id, std::move(name)});
}

void MapHierarchy::rename(std::size_t index, WString name)
{
    assert(name.find_first_of(u"\r\n") == WString::npos);
    entries.at(index).name = std::move(name);
}

bool MapHierarchy::move(std::size_t index, std::optional<std::size_t> parent,
                        std::optional<std::size_t> before)
{
    const std::size_t end = endOf(index);
    const auto inside = [&](std::size_t place) { return place >= index && place < end; };
    if (parent && (inside(*parent) || !entries.at(*parent).isFolder()))
        return false;
    if (before && (inside(*before) || parentOf(*before) != parent))
        return false;

    const std::size_t place = before ? *before : parent ? endOf(*parent) : entries.size();
    const std::int32_t deeper =
        (before ? entries[*before].depth : childDepth(parent)) - entries[index].depth;
    const auto first = entries.begin() + static_cast<std::ptrdiff_t>(index);
    const auto last = entries.begin() + static_cast<std::ptrdiff_t>(end);
    const auto target = entries.begin() + static_cast<std::ptrdiff_t>(place);
    for (auto entry = first; entry != last; ++entry)
        entry->depth += deeper;
    if (target < first)
        std::rotate(target, first, last);
    else
        std::rotate(first, last, std::max(last, target));
    return true;
}

void MapHierarchy::remove(std::size_t index)
{
    const std::int32_t depth = entries.at(index).depth;
    for (const std::size_t child : childrenOf(index)) {
        const std::int32_t up = entries[child].depth - depth;
        const std::size_t end = endOf(child);
        for (std::size_t i = child; i < end; ++i)
            entries[i].depth -= up;
    }
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(index));
}

bool MapDatabase::load()
{
    maps.clear();
    const WString name(kMapHierarchyFile);
    const auto text = readTextOrResource(mapFolder() + name, WString(kDungeonFolder) + name);
    if (text)
        parse(*text);
    return text.has_value();
}

void MapDatabase::parse(WStringView text)
{
    maps.clear();
    Lines lines(text);
    for (std::int32_t index = 0;; ++index) {
        const auto line = lines.next();
        const auto entry = line ? parseLine(*line) : std::nullopt;
        if (!entry)
            return;
        if (!entry->isFolder())
            maps.push_back({index, entry->depth, entry->id, entry->name});
    }
}

} // namespace varn

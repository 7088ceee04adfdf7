#include "TextEditor/LineIndex.h"

#include <algorithm>

namespace varn {

namespace {

constexpr char16_t kCarriageReturn = u'\r', kLineFeed = u'\n';

/// The first CR or LF at or behind `from`, or the size. Most units are neither, so sixteen at a
/// time are passed over in a form that compilers turn into vector compares.
std::size_t findLineEnd(WStringView text, std::size_t from)
{
    constexpr std::size_t kBlock = 16;
    const char16_t* units = text.data();
    for (; from + kBlock <= text.size(); from += kBlock) {
        unsigned low = 0;
        for (std::size_t i = 0; i < kBlock; ++i)
            low |= units[from + i] <= kCarriageReturn ? 1u : 0u;
        if (low == 0)
            continue;
        for (std::size_t i = from; i < from + kBlock; ++i) {
            if (units[i] == kCarriageReturn || units[i] == kLineFeed)
                return i;
        }
    }
    while (from < text.size() && units[from] != kCarriageReturn && units[from] != kLineFeed)
        ++from;
    return from;
}

/// The ending at a CR or LF.
LineEnding endingAt(WStringView text, std::size_t at)
{
    if (text[at] == kLineFeed)
        return kLf;
    return at + 1 < text.size() && text[at + 1] == kLineFeed ? kCrLf : kCr;
}

/// True when a line starts at this offset, which is 1 or more.
bool startsLine(WStringView text, std::size_t offset)
{
    const char16_t before = text[offset - 1];
    if (before == kCarriageReturn)
        return offset == text.size() || text[offset] != kLineFeed;
    return before == kLineFeed;
}

WrapInfo recordAt(std::size_t offset)
{
    WrapInfo record;
    record.textOffset = static_cast<std::uint32_t>(offset);
    return record;
}

bool isBefore(const WrapInfo& record, std::uint32_t offset)
{
    return record.textOffset < offset;
}

} // namespace

void LineIndex::rebuild(WStringView text)
{
    constexpr std::size_t kUsualLine = 100;
    records.clear();
    records.reserve(text.size() / kUsualLine + 2);
    std::size_t crs = 0, lfs = 0, crLfs = 0, start = 0;
    for (;;) {
        records.push_back(recordAt(start));
        const std::size_t end = findLineEnd(text, start);
        if (end == text.size())
            break;
        const LineEnding ending = endingAt(text, end);
        ++(ending == kCr ? crs : ending == kLf ? lfs : crLfs);
        start = end + (ending == kCrLf ? 2 : 1);
    }
    records.push_back(recordAt(text.size()));
    const auto bit = [](std::size_t count, std::uint32_t ending) { return count > 0 ? ending : 0; };
    mask = bit(crs, kCr) | bit(lfs, kLf) | bit(crLfs, kCrLf);
    dominant = kCrLf;
    if (crs > lfs && crs > crLfs)
        dominant = kCr;
    if (lfs > crs && lfs > crLfs)
        dominant = kLf;
}

void LineIndex::adjust(WStringView text, std::size_t offset, std::size_t removed,
                       std::size_t inserted)
{
    // Whether a line starts somewhere depends on the units on both sides of it. So records before
    // the edit stay, records behind it move, and those from its first offset to its last are made
    // anew.
    const std::size_t firstMade = std::max<std::size_t>(offset, 1);
    const auto sentinel = records.end() - 1;
    const auto staleBegin = std::lower_bound(records.begin(), sentinel,
                                             static_cast<std::uint32_t>(firstMade), isBefore);
    const auto staleEnd = std::lower_bound(
        staleBegin, sentinel, static_cast<std::uint32_t>(offset + removed + 1), isBefore);
    for (auto moved = staleEnd; moved != records.end(); ++moved)
        moved->textOffset += static_cast<std::uint32_t>(inserted - removed);
    std::vector<WrapInfo> made;
    for (std::size_t at = firstMade; at <= std::min(offset + inserted, text.size()); ++at) {
        if (startsLine(text, at))
            made.push_back(recordAt(at));
    }
    const auto kept = std::min(made.size(), static_cast<std::size_t>(staleEnd - staleBegin));
    const auto behind =
        std::move(made.begin(), made.begin() + static_cast<std::ptrdiff_t>(kept), staleBegin);
    if (kept == made.size())
        records.erase(behind, staleEnd);
    else
        records.insert(behind,
                       std::make_move_iterator(made.begin() + static_cast<std::ptrdiff_t>(kept)),
                       std::make_move_iterator(made.end()));
}

std::size_t LineIndex::findLine(std::uint32_t position, bool byRow) const
{
    const auto key = [byRow](const WrapInfo& record) {
        return byRow ? record.firstViewRow : record.textOffset;
    };
    const auto found = std::lower_bound(
        records.begin(), records.end(), position,
        [&](const WrapInfo& record, std::uint32_t value) { return key(record) < value; });
    auto line = static_cast<std::size_t>(found - records.begin());
    if (line == records.size() || key(records[line]) != position)
        --line; // the first record has key 0, so there is one before
    return !byRow && line == getLineCount() ? line - 1 : line;
}

WString LineIndex::getLineEndingText() const
{
    struct Name
    {
        LineEnding ending;
        WStringView text;
    };
    WString joined;
    for (const auto& [ending, text] :
         {Name{kCr, u"_CR"}, Name{kLf, u"_LF"}, Name{kCrLf, u"_CRLF"}}) {
        if (mask & ending)
            joined += text;
    }
    return joined.empty() ? u"CRLF" : joined.substr(1);
}

} // namespace varn

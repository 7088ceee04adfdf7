#pragma once

#include <vector>

namespace varn {

/// The outcome of one match: whether there was one, and where it and its groups lie. Positions are
/// UTF-16 units from the start of the text; a start is never behind its end, whatever the
/// direction.
class MatchResultT
{
  public:
    bool isMatched() const { return values[kMatched] != 0; }
    /// Capture groups of the pattern, named ones included; the match itself, group 0, is not
    /// counted.
    int getGroupCount() const { return values[kGroupCount]; }

    int getStart() const { return getGroupStart(0); }
    int getEnd() const { return getGroupEnd(0); }
    /// -1 for a group that took no part, that does not exist, or when nothing matched.
    int getGroupStart(int group) const { return at(group, 0); }
    int getGroupEnd(int group) const { return at(group, 1); }

    /// Nothing matched; room for `groups` groups.
    void clear(int groups)
    {
        values.assign(kFirst + 2 * (static_cast<std::size_t>(groups) + 1), -1);
        values[kMatched] = 0;
        values[kGroupCount] = groups;
    }
    void setMatched() { values[kMatched] = 1; }
    void setGroup(int group, int start, int end)
    {
        values[kFirst + 2 * static_cast<std::size_t>(group)] = start;
        values[kFirst + 2 * static_cast<std::size_t>(group) + 1] = end;
    }

  private:
    enum : std::size_t
    {
        kMatched,
        kGroupCount,
        kFirst
    };

    int at(int group, std::size_t side) const
    {
        const std::size_t place = kFirst + 2 * static_cast<std::size_t>(group) + side;
        return group >= 0 && place < values.size() ? values[place] : -1;
    }

    /// The matched flag, the group count, then start and end of group 0, 1, ...
    std::vector<int> values{0, 0};
};

} // namespace varn

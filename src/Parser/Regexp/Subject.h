#pragma once

#include "Parser/Regexp/Facts.h"
#include "Util/Text.h"

namespace varn::regexp {

/// A to Z, a to z, 0 to 9 and `_`, as `wordUnits` has them.
inline bool isWord(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'0' && unit <= u'9') || unit == u'_';
}

/// The text that is matched, seen from a position: units from its beginning, 0 to length. `kWay` is
/// the direction in which the next unit lies.
class Subject
{
  public:
    explicit Subject(WStringView units) : text(units.data()), length(static_cast<int>(units.size()))
    {}

    int getLength() const { return length; }
    const char16_t* at(int pos) const { return text + pos; }
    const char16_t* end() const { return text + length; }

    template <Direction kWay>
    bool hasNext(int pos) const
    {
        return kWay == Direction::Forward ? pos < length : pos > 0;
    }
    template <Direction kWay>
    char16_t next(int pos) const
    {
        return kWay == Direction::Forward ? text[pos] : text[pos - 1];
    }
    template <Direction kWay>
    static int moved(int pos, int units)
    {
        return kWay == Direction::Forward ? pos + units : pos - units;
    }
    template <Direction kWay>
    static int distance(int from, int to)
    {
        return kWay == Direction::Forward ? to - from : from - to;
    }
    /// The farthest position within so many units.
    template <Direction kWay>
    int farthest(int pos, int units) const
    {
        if constexpr (kWay == Direction::Forward)
            return units < length - pos ? pos + units : length;
        return units < pos ? pos - units : 0;
    }
    /// Where the next units begin in the text; null when there are not so many.
    template <Direction kWay>
    const char16_t* ahead(int pos, int units) const
    {
        if constexpr (kWay == Direction::Forward)
            return units <= length - pos ? text + pos : nullptr;
        return units <= pos ? text + (pos - units) : nullptr;
    }

    /// CR LF is one line end: nothing begins or ends between the two.
    bool isLineBegin(int pos) const
    {
        if (pos == 0 || text[pos - 1] == u'\n')
            return true;
        return text[pos - 1] == u'\r' && !(pos < length && text[pos] == u'\n');
    }
    bool isLineEnd(int pos) const
    {
        if (pos == length || text[pos] == u'\r')
            return true;
        return text[pos] == u'\n' && !(pos > 0 && text[pos - 1] == u'\r');
    }
    /// The text's end, or before a line end that ends it.
    bool isLastLineEnd(int pos) const
    {
        const int left = length - pos;
        return isLineEnd(pos) &&
               (left <= 1 || (left == 2 && text[pos] == u'\r' && text[pos + 1] == u'\n'));
    }
    bool isWordBoundary(int pos) const
    {
        const bool before = pos > 0 && isWord(text[pos - 1]);
        const bool behind = pos < length && isWord(text[pos]);
        return before != behind;
    }

  private:
    const char16_t* text;
    int length;
};

} // namespace varn::regexp

#pragma once

#include "Parser/Regexp/MatchResultT.h"
#include "Util/Text.h"

#include <map>
#include <vector>

namespace varn::regexp {

inline constexpr std::size_t kLongestResult = std::size_t{1} << 26; // units

/// A replacement text, read once and put in for each match. CRegexpT::replace tells its forms.
class Replacement
{
  public:
    /// @param groupNumbers  of the named groups
    Replacement(WStringView text, int groupCount, const std::map<WString, int>& groupNumbers);

    /// Appends what stands for a match of the text. False, and nothing is appended, when the result
    /// would pass kLongestResult.
    bool appendTo(WString& result, WStringView text, const MatchResultT& match) const;

  private:
    enum class Form
    {
        Literal,
        Group,
        HighestGroup,
        Before,
        Behind,
        WholeText
    };
    struct Piece
    {
        Form form;
        int group = 0;
        WString literal = {};
    };

    static WStringView textOf(const Piece& piece, WStringView text, const MatchResultT& match);
    void addLiteral(WStringView text);
    std::size_t addForm(WStringView rest);
    std::size_t addNumber(WStringView rest);
    std::size_t addName(WStringView rest);

    int groupCount;
    const std::map<WString, int>& groupNumbers; // only while reading
    std::vector<Piece> pieces;
};

} // namespace varn::regexp

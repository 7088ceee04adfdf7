#pragma once

#include "Parser/Regexp/CContext.h"
#include "Parser/Regexp/MatchResultT.h"
#include "Util/Text.h"

#include <memory>

namespace varn {

namespace regexp {
struct Program;
class Replacement;
} // namespace regexp

/// A regular expression over UTF-16 units, compiled once and matched by backtracking.
/// docs/regexp.md tells the syntax.
///
/// A compiled object does not change: threads may share it, each with a context of its own. No
/// pattern and no text makes it fail otherwise than by "does not compile" or "no match": the depth
/// of a pattern, the size of its program, the steps and the memory of a match are bounded.
class CRegexpT
{
  public:
    /// What `flags` is made of.
    enum Flag : int
    {
        kSingleLine = 1, ///< `.` also matches a line end
        kMultiLine = 2,  ///< `^` and `$` also match at line ends
        kGlobal = 4,     ///< `\G` matches only where the search began; without this it is nothing
        kIgnoreCase = 8, ///< by simple case folding
        kRightToLeft = 0x10, ///< matching walks from the end of the text to its beginning
        kExtended = 0x20,    ///< white space and `#` comments in the pattern are skipped
    };

    /// Empty: matches nothing, and replaces every text by nothing.
    CRegexpT() = default;
    explicit CRegexpT(WStringView pattern, int flags = 0) { compile(pattern, flags); }

    /// False, and the object is empty, when the pattern is not well formed or too big: 65535 units,
    /// 250 groups in one another.
    bool compile(WStringView pattern, int flags = 0);
    bool isEmpty() const { return program == nullptr; }
    /// Why the last pattern did not compile, and at which unit; empty when it did.
    const WString& getFault() const { return fault; }

    /// Capture groups, named ones included, numbered by their opening parentheses from 1.
    int getGroupCount() const;
    /// The number of a named group, or -1.
    int namedGroupNumber(WStringView name) const;

    /// A context for the matches of a text, one after the other. @param start  see
    /// CContext::setText
    CContext prepareMatch(WStringView text, int start = -1) const;

    /// The next match of the context's text: from where the last one ended, or one unit further
    /// when that was empty. False at the end, and when a budget of the context is used up.
    bool match(CContext& context, MatchResultT& result) const;
    /// The first match of a text, in the direction of matching.
    MatchResultT match(WStringView text) const;

    /// The text with matches replaced.
    ///
    /// @param replacement  literal but for these: `$$` a dollar sign, `$&` the match, `` $` `` the
    /// text
    ///                     before it, `$'` behind it, `$_` the whole text, `$+` the highest group
    ///                     that took part (the match, if none did), `$n` group n of up to three
    ///                     digits, `${name}` a group by name or number. A group that took no part
    ///                     inserts nothing. Too big a number loses digits from its end until it is
    ///                     a group; what names no group stands as written.
    /// @param startIndex   where the first search begins, see CContext::setText
    /// @param times        how many matches are replaced, in the order found; -1: all
    /// @return an empty text when the object is empty. When a budget is used up, or the result
    ///         passes 2^26 units, the rest stays as it is.
    WString replace(WStringView text, WStringView replacement, int startIndex = -1,
                    int times = -1) const;
    /// The same over the text of a context, from its index on: for a budget of one's own.
    WString replace(CContext& context, WStringView replacement, int times = -1) const;

  private:
    WString replaceForward(CContext& context, const regexp::Replacement& inserted, int times) const;
    WString replaceBackward(CContext& context, const regexp::Replacement& inserted,
                            int times) const;

    std::shared_ptr<const regexp::Program> program; // a copy of the object shares it
    WString fault;
};

} // namespace varn

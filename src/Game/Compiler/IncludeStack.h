#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace varn {

/// The sources of one compilation: the main text and what it includes, each read once. The file
/// being read is the innermost that is not finished.
class IncludeStack
{
  public:
    struct IncludedScript
    {
        WString path;   ///< the name as it was written
        WString source; ///< where it was found: a full path, or the name of an archive entry
        WString text;
        std::uint32_t savedLine = 1; ///< where reading goes on behind an `#include`
        std::size_t savedPosition = 0;
        bool finished = false;
    };

    /// Makes a text the innermost source.
    void push(WString name, WString text);
    /// The action of `#include`: finds the file and makes it the innermost source; one that was
    /// included before counts as empty. False: no place holds it.
    bool includeFile(WStringView name);
    /// The innermost source is read to its end. False: there is no other.
    bool finishCurrent();

    IncludedScript& current() { return scripts[index]; }
    std::uint32_t currentIndex() const { return static_cast<std::uint32_t>(index); }
    /// Names by index, for messages.
    const std::vector<WString>& names() const { return paths; }

  private:
    struct Found
    {
        WString source;
        WString text;
    };
    bool find(WStringView name, Found& found) const;

    std::deque<IncludedScript> scripts; // stable, as the lexer reads the texts in place
    std::vector<WString> paths;
    std::size_t index = 0;
};

} // namespace varn

#pragma once

#include "MapEditor3D/Menu.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace varn {

/// A command that a search found.
struct FoundCommand
{
    int command = 0, argument = 0;
    WString title;                    ///< in the tool's language
    WString path;                     ///< the menus above it: "Map > Shift"
    WString shortcut;                 ///< "Ctrl+S"; empty for none
    std::vector<std::size_t> matched; ///< places of `title` that the search took; empty where it
                                      ///< matched the path or another language
    int score = 0;                    ///< the greater, the better
};

/// Finds commands by some letters of their names: the letters in order, not necessarily side by
/// side, letters of either size. Letters at the beginning of words and in a row count more. Names
/// in other languages of the tool find a command too, so that a word of the manual does.
class CommandFinder
{
  public:
    /// @param menu   of the language in force, as `buildMenu` gives it
    /// @param others the same menu in other languages
    explicit CommandFinder(std::span<const MenuEntry> menu,
                           std::span<const std::vector<MenuEntry>> others = {});

    /// A command that stands in no menu.
    void add(int command, WString title, WString shortcut = {});
    /// The best first; an empty query gives all in the menu's order.
    std::vector<FoundCommand> find(WStringView query, std::size_t limit = 50) const;
    std::size_t size() const { return commands.size(); }

  private:
    struct Known
    {
        FoundCommand shown;
        std::vector<WString> otherNames;
    };

    void collect(std::span<const MenuEntry> entries, const WString& path);
    void collectOther(std::span<const MenuEntry> entries);

    std::vector<Known> commands;
};

/// How well a text matches the letters of a query; nothing: not at all.
struct FuzzyMatch
{
    int score = 0;
    std::vector<std::size_t> places; ///< of the text, ascending
};
std::optional<FuzzyMatch> fuzzyMatch(WStringView query, WStringView text);

} // namespace varn

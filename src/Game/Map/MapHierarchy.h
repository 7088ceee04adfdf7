#pragma once

#include "Util/Bytes.h"
#include "Util/Exception.h"
#include "Util/TextFile.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace varn {

inline constexpr WStringView kMapHierarchyFile = u"MapHierarchy.ini";
/// The root of the shown tree; it is no entry and cannot be renamed or deleted.
inline constexpr WStringView kMapTreeRoot = u"Project";
/// What a new folder is called.
inline constexpr WStringView kNewFolderName = u"New folder";
/// Ids from here on are folders, smaller ones maps.
inline constexpr std::int32_t kFirstFolderId = 8192;

/// The tree of folders and maps of a project: its entries from top to bottom, each with its depth.
/// An entry is a child of the nearest entry above it of smaller depth, or of the root.
///
/// Entries are named by their position, 0 for the first. This is the tree alone; what happens to
/// the files of the maps is in MapTree.h.
class MapHierarchy
{
  public:
    struct Entry
    {
        std::int32_t depth = 1; ///< 1 below the root in a new tree; of a file, as it has it
        std::int32_t id = 0;
        WString name; ///< a map's file name without folder and extension, or the folder's text

        bool isFolder() const { return id >= kFirstFolderId; }
        bool operator==(const Entry&) const = default;
    };

    std::size_t size() const { return entries.size(); }
    bool empty() const { return entries.empty(); }
    const Entry& at(std::size_t index) const { return entries.at(index); }
    const std::vector<Entry>& list() const { return entries; }
    void clear();

    /// Reads the file; a missing one leaves the tree empty. A line that is too short ends the list,
    /// and where more lines stand behind it that is told in a message. False: there is no such
    /// file.
    bool load(WStringView path);
    /// The same off the file's text; gives the number of the line that ended the list early,
    /// from 1.
    std::optional<std::size_t> parse(WStringView text);
    /// Replaces the file, in the encoding it was read in where that holds every name, else in UTF-8
    /// with a mark. A new file is Shift_JIS. A file of which a load left lines unread is kept
    /// beside the new one, with ".bak" behind its name. False: not writable.
    bool save(WStringView path);
    /// The file's text: a line "%d %d %s\n" an entry.
    WString toText() const;

    /// The map of that name, letters A to Z folded; folders are passed over.
    std::optional<std::size_t> findMap(WStringView name) const;
    std::optional<std::size_t> findById(std::int32_t id) const;
    /// The entry above it in the tree; nothing for a child of the root.
    std::optional<std::size_t> parentOf(std::size_t index) const;
    /// Behind the last entry below this one.
    std::size_t endOf(std::size_t index) const;
    std::vector<std::size_t> childrenOf(std::optional<std::size_t> parent) const;

    /// Adds an entry behind the last child of `parent` (nothing: the root; a map: its own parent),
    /// with a new id: one more than the greatest of its kind, the first map 1, the first folder
    /// 8192; when the numbers of maps are used up, the smallest free one. Gives its position.
    /// @throws Exception  all 8,192 ids of maps are taken
    std::size_t addMap(std::optional<std::size_t> parent, WString name);
    std::size_t addFolder(std::optional<std::size_t> parent,
                          WString name = WString(kNewFolderName));
    void rename(std::size_t index, WString name);
    /// Moves an entry, with all below it, behind the last child of `parent`, or before entry
    /// `before` (a child of `parent`). False: `parent` is a map, or lies in what is moved.
    bool move(std::size_t index, std::optional<std::size_t> parent,
              std::optional<std::size_t> before = {});
    /// Removes an entry; what stands below it takes its place, one level up.
    void remove(std::size_t index);

    bool operator==(const MapHierarchy& other) const { return entries == other.entries; }

  private:
    std::size_t insertUnder(std::optional<std::size_t> parent, Entry entry);
    std::int32_t childDepth(std::optional<std::size_t> parent) const;
    std::int32_t newId(std::int32_t first, std::int32_t end) const;

    std::vector<Entry> entries;
    Encoding encoding = Encoding::ShiftJis;
    bool linesUnread = false; // of the file as it stands: a save must not lose them
};

/// The list of maps as the game reads it: the hierarchy's maps, folders left out.
class MapDatabase
{
  public:
    struct TreeItem
    {
        std::int32_t index; ///< the line's position in the file, from 0
        std::int32_t depth;
        std::int32_t id;
        WString name;
    };

    /// Reads the hierarchy of `mapFolder()`, or the archive's entry "Dungeon/MapHierarchy.ini".
    /// False: there is neither.
    bool load();
    /// The same off the file's text; an empty line ends the list.
    void parse(WStringView text);
    const std::vector<TreeItem>& items() const { return maps; }

  private:
    std::vector<TreeItem> maps;
};

} // namespace varn

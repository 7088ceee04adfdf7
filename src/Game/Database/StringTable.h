#pragma once

#include "Parser/XMLParser.h"

#include <map>
#include <string>

namespace varn {

/// How many fixed texts the game has; they are numbered from 0.
inline constexpr int kDefaultTextCount = 107;

/// The English text of a number; "???" for 64, 100 and numbers outside the range.
std::string_view getDefaultText(int id);

/// A dictionary of the game's fixed texts, keyed by the English text itself.
class StringTable
{
  public:
    StringTable() = default;

    /// The table in force, made at the first use.
    static StringTable& instance();

    /// The text of a key. A key that is missing is entered with itself as its text, so a table
    /// saved later holds every key that was ever asked for. The reference stands until `clear`.
    const WString& get(WStringView key);
    void set(WStringView key, WStringView text);
    /// The default text of a number, looked up as a key; in the process code page.
    std::string getText(int id);

    /// Reads a document over the table: from the project, or, where it has none, from beside the
    /// program. A missing one is silent, a refused one is shown; the table then stays as it was.
    /// False: nothing was read.
    bool load(WStringView fileName);
    /// Reads the `StringTable` element below `root`, or `root` itself, over the table; nothing
    /// where it is null or has none.
    void loadFromElement(const Element* root);
    /// Replaces the file. False: not writable.
    bool save(WStringView fileName) const;
    /// The `StringTable` element as text, one `string` a line in key order, without a last line
    /// end.
    WString toXml() const;
    /// The document as saving composes it.
    WString compose() const;

    const std::map<WString, WString, std::less<>>& getStrings() const { return strings; }
    void remove(WStringView key);
    void clear() { strings.clear(); }
    /// The document of the last load; at first "Resources/StringTable.xml".
    const WString& getFileName() const { return fileName; }

  private:
    void fill(Element& table) const;

    WString fileName = u"Resources/StringTable.xml";
    std::map<WString, WString, std::less<>> strings;
};

/// Fills the table in force: the tool's texts, those of the loaded language document, the project's
/// ("Data/StringTable.xml"); in English, the second tables of tool and project over them.
void loadStringTables();

} // namespace varn

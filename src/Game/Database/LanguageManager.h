#pragma once

#include "Parser/XMLParser.h"

#include <map>
#include <vector>

namespace varn {

/// A line of the menu as the language document words it.
struct MenuItem
{
    WString title;    ///< stored text, decoded
    WString hotkey;   ///< "S"; empty for none
    WString shortcut; ///< "Ctrl+S"; empty for none
    WString id;       ///< name of a command; empty for a submenu
    bool checked = false;
    std::vector<MenuItem> children;

    /// Title, " (hotkey)", tab and shortcut: what the menu shows.
    WString getText() const;
    bool operator==(const MenuItem&) const = default;
};

/// The name of the item whose submenu lists the languages.
inline constexpr WStringView kLanguageMenuId = u"language";

/// The tool's own texts: the language document with the menu and the display texts of the editors.
/// Language documents lie in the project's "Languages/" or, failing that, beside the program.
class LanguageManager
{
  public:
    static LanguageManager& instance();

    /// Takes a language document into force. False: missing (silent) or refused (shown); the
    /// language before stays.
    bool load(WStringView fileName);
    /// The document that the settings name, else the one of the user's language ("Languages/
    /// Japanese.xml" or "Languages/English.xml"). False: neither; the language before stays.
    bool loadChosen(WStringView fileName);

    /// The document in force as it was named: "Languages/English.xml"; empty before the first load.
    const WString& getFileName() const { return fileName; }
    bool isEnglish() const { return fileName.find(u"English.xml") != WString::npos; }
    /// A text of the editors by its English wording, which is also what an unlisted one gives.
    WString getDisplayText(WStringView defaultText) const;
    const std::map<WString, WString, std::less<>>& getDisplayTexts() const { return displayTexts; }
    /// The document's own string table; null for none.
    const Element* getStringTable() const;

    /// The menu of the language: top-level items with what hangs below them, the list of languages
    /// under `kLanguageMenuId`. Empty where the document names none or its menu document does not
    /// load.
    std::vector<MenuItem> buildMenu();
    /// "Languages/English.xml", ...: the documents a person can choose from, by name.
    std::vector<WString> getLanguageFiles() const;

  private:
    const Element* findMenu();

    XMLParser document;
    XMLParser menuDocument;
    WString fileName;
    std::map<WString, WString, std::less<>> displayTexts;
};

} // namespace varn

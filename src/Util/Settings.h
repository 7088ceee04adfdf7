#pragma once

#include "Util/Text.h"

#include <filesystem>

namespace varn {

struct DecodedText;

/// The settings file: sections and `key=value` lines, read and written key by key. Section and key
/// names compare ignoring case; a missing file or key gives the default; a value in one pair of
/// quotes loses them; values are cut at 1,023 units. Each write replaces the file as a whole and
/// touches only its own line: comments, order, unknown lines and the encoding found stay, unless
/// that encoding lacks a character. A new file is UTF-8, with a mark where it would be mistaken
/// without.
class Settings
{
  public:
    explicit Settings(std::filesystem::path file) : file(std::move(file)) {}

    WString getSettingString(WStringView section, WStringView key, WStringView fallback) const;
    /// The decimal at the value's front; a value without digits gives 0, a missing one the
    /// fallback.
    int getSettingInt(WStringView section, WStringView key, int fallback) const;
    /// Folders of the path that are missing are made. False: the file cannot be written, or
    /// section, key or value hold something that would not be found again (a line end; `]` or `=`
    /// in the names).
    bool setSettingString(WStringView section, WStringView key, WStringView value);
    bool setSettingInt(WStringView section, WStringView key, int value);
    /// Removes a key's line; a section with all that stands in it. What is not there is removed
    /// already. False: the file cannot be read or written.
    bool eraseKey(WStringView section, WStringView key);
    bool eraseSection(WStringView section);

    const std::filesystem::path& path() const { return file; }

  private:
    bool write(WStringView text, const DecodedText& old);
    template <class Edit>
    bool erase(const Edit& edit);

    std::filesystem::path file;
};

/// Where the settings of this program lie: `mapeditor.ini` beside it, or, where that folder cannot
/// be written and has no such file, in the user's configuration folder.
std::filesystem::path defaultSettingsPath();

} // namespace varn

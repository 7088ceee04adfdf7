#include "Util/Settings.h"

#include "Util/File.h"
#include "Util/SettingsText.h"
#include "Util/TextFile.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>

namespace varn {

namespace {

constexpr std::size_t kLongestValue = 1023;

bool isAscii(WStringView text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

/// The encoding in which the file is to be written: the one it has, if the text survives in that. A
/// file of ASCII alone has none to speak of and is UTF-8; a mark is added where the text would be
/// taken for something else without it.
Encoding encodingFor(WStringView text, const DecodedText& old)
{
    const Encoding found =
        isAscii(old.text) && old.encoding == Encoding::ShiftJis ? Encoding::Utf8 : old.encoding;
    for (const Encoding encoding : {found, Encoding::Utf8}) {
        const auto bytes = encodeText(text, encoding);
        if (!bytes)
            continue;
        if (decodeBytes(asBytes(std::string(byteOrderMark(encoding)) + *bytes)).text == text)
            return encoding;
    }
    return Encoding::Utf8Bom;
}

/// By the XDG Base Directory Specification.
std::filesystem::path userConfigFolder()
{
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    if (configured != nullptr && *configured == '/')
        return configured;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home != nullptr ? home : ".") / ".config";
}

} // namespace

WString Settings::getSettingString(WStringView section, WStringView key, WStringView fallback) const
{
    const auto content = readTextFile(file);
    const auto value = content ? findSetting(content->text, section, key) : std::nullopt;
    return value.value_or(WString(fallback)).substr(0, kLongestValue);
}

int Settings::getSettingInt(WStringView section, WStringView key, int fallback) const
{
    return parseDecimal(getSettingString(section, key, toDecimal(fallback)));
}

bool Settings::setSettingString(WStringView section, WStringView key, WStringView value)
{
    std::error_code fault;
    const auto content = readTextFile(file);
    if (!content && std::filesystem::exists(file, fault))
        return false; // what cannot be read must not be replaced
    const DecodedText old = content.value_or(DecodedText{{}, Encoding::Utf8});
    const auto text = withSetting(old.text, section, key, value);
    return text && write(*text, old);
}

bool Settings::write(WStringView text, const DecodedText& old)
{
    if (file.has_parent_path())
        createDirectories(file.parent_path());
    return writeTextFile(file, text, encodingFor(text, old));
}

bool Settings::setSettingInt(WStringView section, WStringView key, int value)
{
    return setSettingString(section, key, toDecimal(value));
}

template <class Edit>
bool Settings::erase(const Edit& edit)
{
    const auto content = readTextFile(file);
    std::error_code fault;
    if (!content)
        return !std::filesystem::exists(file, fault);
    const WString text = edit(content->text);
    return text == content->text || write(text, *content);
}

bool Settings::eraseKey(WStringView section, WStringView key)
{
    return erase([&](WStringView text) { return withoutSetting(text, section, key); });
}

bool Settings::eraseSection(WStringView section)
{
    return erase([&](WStringView text) { return withoutSection(text, section); });
}

std::filesystem::path defaultSettingsPath()
{
    namespace fs = std::filesystem;
    const fs::path folder = programFolder(), name = "mapeditor.ini";
    std::error_code fault;
    if (fs::exists(folder / name, fault) || ::access(folder.c_str(), W_OK) == 0)
        return folder / name;
    return userConfigFolder() / "mapeditor" / name;
}

} // namespace varn

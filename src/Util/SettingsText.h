#pragma once

#include "Util/Text.h"

#include <optional>

namespace varn {

/// The text of a settings file: sections `[name]`, lines `key=value`, comments behind `;`. The
/// first section of a name counts, and in it the first key of a name; names compare ignoring case.
/// The rules of `Settings`, which puts them on a file.

/// The value without outer blanks and without one pair of quotes around it.
std::optional<WString> findSetting(WStringView text, WStringView section, WStringView key);

/// The text with one value changed, or with a line for it at the end of its section; all else
/// stays. Nothing where section, key or value could not be found again as they are.
std::optional<WString> withSetting(WStringView text, WStringView section, WStringView key,
                                   WStringView value);

/// The text without the lines of a key in the section that counts.
WString withoutSetting(WStringView text, WStringView section, WStringView key);
/// The text without any section of the name.
WString withoutSection(WStringView text, WStringView section);

} // namespace varn

#pragma once

#include "Util/Text.h"

#include <optional>
#include <utility>

namespace varn {

/// The unit that an entity stands for, by its name without `&` and `;`: `#` with two or more
/// characters behind it is a decimal or (`#x`, `#X`) hexadecimal number cut to 16 bits; else the
/// HTML 4 names (https://www.w3.org/TR/html4/sgml/entities.html) with this system's own
/// differences. Nothing: unknown.
std::optional<char16_t> lookUpEntity(WStringView name);

} // namespace varn

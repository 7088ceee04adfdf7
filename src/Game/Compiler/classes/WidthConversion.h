#pragma once

#include "Util/Text.h"

namespace varn {

/// Blank, digits, letters and the marks !"#$%&'()*+,-./:;<=>?_ in the two widths of Japanese text;
/// everything else stays. The double quote and the apostrophe go with the curly quotes U+201D and
/// U+2019.
WString toFullWidth(WStringView text);
WString toHalfWidth(WStringView text);

} // namespace varn

#pragma once

#include "Component/Translation.h"

namespace varn {

/// From here on the kit words its texts by the language document in force.
void useLanguageTexts();

} // namespace varn

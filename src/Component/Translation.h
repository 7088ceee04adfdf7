#pragma once

#include "Util/Text.h"

namespace varn {

/// Gives the text of the language in force for its English wording.
using Translator = WString (*)(WStringView english);

/// Before a translator is set, texts stay English.
void setTranslator(Translator translator);
WString translate(WStringView english);

} // namespace varn

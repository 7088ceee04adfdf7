#pragma once

#include "Util/Text.h"

#include <initializer_list>

namespace varn {

/// Gives the text of the language in force for its English wording.
using Translator = WString (*)(WStringView english);

/// Before a translator is set, texts stay English.
void setTranslator(Translator translator);
WString translate(WStringView english);
/// The same with "%1", "%2" ... of the text replaced by the values.
WString translateWith(WStringView english, std::initializer_list<WString> values);

} // namespace varn

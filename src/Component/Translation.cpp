#include "Component/Translation.h"

namespace varn {

static Translator inForce = nullptr;

void setTranslator(Translator translator)
{
    inForce = translator;
}

WString translate(WStringView english)
{
    return inForce ? inForce(english) : WString(english);
}

} // namespace varn

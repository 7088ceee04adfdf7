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

WString translateWith(WStringView english, std::initializer_list<WString> values)
{
    const WString pattern = translate(english);
    WString text;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const bool isPlace = pattern[at] == u'%' && at + 1 < pattern.size() &&
                             pattern[at + 1] >= u'1' &&
                             pattern[at + 1] < static_cast<char16_t>(u'1' + values.size());
        if (isPlace)
            text += values.begin()[pattern[++at] - u'1'];
        else
            text += pattern[at];
    }
    return text;
}

} // namespace varn

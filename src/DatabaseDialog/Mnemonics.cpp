#include "DatabaseDialog/Mnemonics.h"

namespace varn {

namespace {

bool isPlainLetter(char16_t unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

} // namespace

WString Mnemonics::mark(WStringView text)
{
    WString marked = replaceAll(text, u"&", u"&&");
    bool hasLetters = false;
    for (std::size_t place = 0; place < marked.size(); ++place) {
        if (!isPlainLetter(marked[place]))
            continue;
        hasLetters = true;
        if (taken.insert(toCapitalLetter(marked[place])).second)
            return marked.insert(place, 1, u'&');
    }
    if (hasLetters)
        return marked; // its letters are taken; a foreign one would only confuse
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        if (taken.insert(letter).second)
            return marked + u"(&" + letter + u')';
    return marked;
}

} // namespace varn

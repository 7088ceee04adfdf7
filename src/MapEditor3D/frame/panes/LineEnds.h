#pragma once

#include "Util/Text.h"

namespace varn {

/// A text of a field as it is to be kept. Fields end lines by LF: a text that was not changed in
/// one stays as it was, a changed one gets the line ends of the text before.
inline WString withLineEndsOf(WStringView before, WString edited)
{
    if (replaceAll(before, u"\r\n", u"\n") == edited)
        return WString(before);
    if (before.find(u"\r\n") == WStringView::npos)
        return edited;
    return replaceAll(edited, u"\n", u"\r\n");
}

} // namespace varn

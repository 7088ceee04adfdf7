#pragma once

#include "Util/Text.h"

namespace varn {

enum class LineBreaks
{
    Drop,
    Keep
};

/// Decodes text as the tables, string tables and menus store it: entities (twice for `&amp;lt;`),
/// backslash escapes, and raw line breaks kept as "\r\n" or dropped.
WString decodeText(WStringView text, LineBreaks lineBreaks);

} // namespace varn

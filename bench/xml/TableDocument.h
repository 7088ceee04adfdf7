#pragma once

#include "Util/Text.h"

namespace varn::bench {

/// A document like those of large projects, about `bytes` long in UTF-16: three fifths a table of
/// messages, each with two CDATA texts, the rest a table of items with thirteen attributes. The
/// same for each call. `messages` and `items`, where given, receive the numbers of rows.
WString makeTableDocument(std::size_t bytes, std::size_t* messages = nullptr,
                          std::size_t* items = nullptr);

} // namespace varn::bench

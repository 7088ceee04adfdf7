#pragma once

#include "Parser/Element.h"

namespace varn {

/// Appends `element` and what is below it as a saved document holds them, `depth` tabs deep; the
/// last line gets no break. The second form appends little-endian UTF-16 bytes.
void writeTree(WString& out, const Element& element, std::size_t depth);
void writeTree(std::string& out, const Element& element, std::size_t depth);

} // namespace varn

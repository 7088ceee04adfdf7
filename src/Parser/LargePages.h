#pragma once

#include <cstddef>

namespace varn {

/// Asks the system to back memory that is about to be filled with large pages, as far as it spans
/// any. Where each small page must be fetched by a fault, that costs more than reading a document
/// does. Only a hint: nothing else changes.
void preferLargePages(void* memory, std::size_t bytes);

} // namespace varn

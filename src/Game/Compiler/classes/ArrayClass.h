#pragma once

namespace varn {

/// "Array" of scripts.
void registerArray();

} // namespace varn

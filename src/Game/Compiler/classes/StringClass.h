#pragma once

namespace varn {

/// "String" of scripts.
void registerString();

} // namespace varn

#pragma once

#include "Util/Text.h"

namespace varn::bench {

/// Text as a project holds it, the same at each call: script source, English and Japanese dialogue,
/// and marked-up messages in turn, with LF line ends.
/// @param units  least length
/// @param xRuns  also a run of 8 to 16 x, mostly with no y behind it, every thousand units or so
WString makeGameText(std::size_t units, bool xRuns);

} // namespace varn::bench

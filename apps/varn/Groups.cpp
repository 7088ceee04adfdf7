#include "Command.h"

namespace varn::driver {

std::span<const Group> commandGroups()
{
#define X(function, heading) {heading, function},
    static constexpr Group kGroups[] = {VARN_COMMAND_GROUPS(X)};
#undef X
    return kGroups;
}

} // namespace varn::driver

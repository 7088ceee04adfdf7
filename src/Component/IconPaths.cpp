#include "Component/IconPaths.h"

namespace varn {

std::span<const IconPath> iconPaths()
{
    return {};
}

const IconPath* findIcon(std::string_view)
{
    return nullptr;
}

} // namespace varn

#pragma once

#include "Util/Text.h"

#include <QIcon>

namespace varn::native {

/// The shape of the icon table with this name, in the palette's colours and at every scale; an
/// empty icon for an unknown name.
QIcon makeIcon(WStringView name);

} // namespace varn::native

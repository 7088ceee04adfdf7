#include "Component/native/Icons.h"

namespace varn::native {

QIcon makeIcon(WStringView)
{
    return {};
}

} // namespace varn::native

#include "Game/Database/Language.h"

namespace varn {

Language& language()
{
    static Language state;
    return state;
}

} // namespace varn

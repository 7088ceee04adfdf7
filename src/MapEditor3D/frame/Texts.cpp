#include "MapEditor3D/frame/Texts.h"

#include "Game/Database/LanguageManager.h"

namespace varn {

void useLanguageTexts()
{
    setTranslator(
        [](WStringView english) { return LanguageManager::instance().getDisplayText(english); });
}

} // namespace varn

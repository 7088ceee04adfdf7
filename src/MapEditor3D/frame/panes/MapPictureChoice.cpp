#include "MapEditor3D/frame/panes/MapPictureChoice.h"

#include "Util/ProjectPath.h"

#include <algorithm>
#include <filesystem>

namespace varn {

std::vector<WString> picturesIn(WStringView folder)
{
    static constexpr WStringView kExtensions[] = {u".png", u".bmp", u".gif", u".jpg", u".jpeg"};
    std::vector<WString> paths;
    std::error_code fault;
    for (const auto& file :
         std::filesystem::directory_iterator(resolveProjectPath(folder), fault)) {
        const WString extension = toWide(file.path().extension());
        if (std::ranges::any_of(kExtensions, [&](WStringView known) {
                return equalsIgnoringAsciiCase(known, extension);
            }))
            paths.push_back(WString(folder) + u"/" + toWide(file.path().filename()));
    }
    std::ranges::sort(paths);
    return paths;
}

std::unique_ptr<ResourceChoice> makePictureChoice(const MapPictureField& field)
{
    if (field.category)
        return std::make_unique<ResourceChoice>(*field.category);
    return std::make_unique<ResourceChoice>(std::vector<ResourceCategory>{},
                                            picturesIn(field.folder));
}

} // namespace varn

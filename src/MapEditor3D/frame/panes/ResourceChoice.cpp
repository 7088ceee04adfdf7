#include "MapEditor3D/frame/panes/ResourceChoice.h"

#include "Component/Layout.h"
#include "Component/Translation.h"
#include "Graphics/Graphics.h"
#include "MapEditor3D/canvas/TileStrip.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

constexpr int kPictureSide = 40, kLeastWidth = 96;

bool isPicture(ResourceCategory category)
{
    return category >= ResourceCategory::EnemyImage;
}

} // namespace

void ResourceChoice::onCreate()
{
    BoxLayout row(*this, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    row.add(list, 1);
    list.setMinimumSize(kLeastWidth, 0);
    if (categories.empty() || isPicture(categories.front())) {
        row.add(picture);
        picture.setFixedSize(kPictureSide, kPictureSide);
    }
    list.onAction([this] {
        showPicture();
        fireAction();
    });
    fill();
}

void ResourceChoice::applyTexts()
{
    GroupComponent::applyTexts();
    refresh();
}

void ResourceChoice::refresh()
{
    if (!list.getHandle())
        return;
    const WString name = getName();
    fill();
    setName(name);
}

void ResourceChoice::fill()
{
    names = {WString()};
    const auto add = [this](WStringView path) {
        WString name(naming == Naming::Path ? path : fileNameOf(path));
        if (std::ranges::find(names, name) == names.end())
            names.push_back(std::move(name));
    };
    for (const ResourceCategory category : categories)
        for (const auto& item : GameResourceManager::instance().items(category))
            add(item->path);
    for (const WString& path : more)
        add(path);

    showNames();
}

void ResourceChoice::showNames()
{
    std::vector<WString> texts{translate(u"(none)")};
    for (std::size_t place = 1; place < names.size(); ++place) {
        const WStringView shown = fileNameOf(names[place]);
        const auto isSame = [shown](WStringView name) { return fileNameOf(name) == shown; };
        texts.emplace_back(std::ranges::count_if(names, isSame) > 1 ? WStringView(names[place])
                                                                    : shown);
    }
    list.setItems(texts);
}

WString ResourceChoice::getName() const
{
    const int index = list.getSelectedIndex();
    return index < 0 || index >= static_cast<int>(names.size())
               ? WString()
               : names[static_cast<std::size_t>(index)];
}

WString ResourceChoice::getPath() const
{
    const WString name = getName();
    if (name.empty() || naming == Naming::Path || name.find(u'/') != WString::npos)
        return name;
    for (const ResourceCategoryInfo& info : resourceCategories())
        if (info.category == categories.front())
            return WString(info.folder) + u'/' + name;
    return name;
}

void ResourceChoice::setName(WStringView name)
{
    auto found = std::ranges::find_if(
        names, [&](const WString& known) { return equalsIgnoringAsciiCase(known, name); });
    if (found == names.end()) {
        names.emplace_back(name);
        showNames();
        found = names.end() - 1;
    }
    list.setSelectedIndex(static_cast<int>(found - names.begin()));
    showPicture();
}

void ResourceChoice::showPicture()
{
    if (!picture.getHandle())
        return;
    const WString name = getName();
    Bitmap shown;
    Image image;
    try {
        if (!name.empty() && image.load(name)) {
            const int side = std::max(image.getWidth(), image.getHeight());
            const Image small = scaledPart(image, image.getBounds(),
                                           std::max(1, image.getWidth() * kPictureSide / side),
                                           std::max(1, image.getHeight() * kPictureSide / side));
            shown.copyFrom(small.getBitmap());
            shown.setAlphaChannel(small.getBitmap().hasAlphaChannel());
        }
    } catch (const Exception&) {
        // A picture that cannot be read has no preview; the map tells when it is loaded.
    }
    picture.setTooltip(name);
    if (shown.isEmpty())
        picture.setText(name.empty() ? u"" : u"\u26A0");
    else
        picture.setPicture(shown);
}

} // namespace varn

#include "MapEditor3D/frame/dialogs/ResourceManagerDialog.h"

#include "Component/Translation.h"
#include "Component/native/NativeWindow.h"
#include "Util/Exception.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace fs = std::filesystem;

namespace {

/// A category as people see it.
struct CategoryText
{
    ResourceCategory category;
    WStringView name;
    WStringView chooser; ///< title and filter of the file chooser
    bool isSound;
};

// clang-format off
constexpr CategoryText kCategories[] = {
    {ResourceCategory::BackgroundMusic, u"BGM",            u"BGM File",   true},
    {ResourceCategory::BackgroundSound, u"BGS",            u"BGS File",   true},
    {ResourceCategory::SoundEffect,     u"Sound Effect",   u"Sound File", true},
    {ResourceCategory::EnemyImage,      u"Enemy Pictures", u"Image File", false},
    {ResourceCategory::Background,      u"Backgrounds",    u"Image File", false},
    {ResourceCategory::Floor,           u"Floors",         u"Image File", false},
    {ResourceCategory::Ceiling,         u"Ceilings",       u"Image File", false},
    {ResourceCategory::Wall,            u"Walls",          u"Image File", false},
    {ResourceCategory::Door,            u"Doors",          u"Image File", false},
};
// clang-format on

const CategoryText& textOf(ResourceCategory category)
{
    return *std::ranges::find(kCategories, category, &CategoryText::category);
}

WStringView folderOf(ResourceCategory category)
{
    return std::ranges::find(resourceCategories(), category, &ResourceCategoryInfo::category)
        ->folder;
}

std::vector<WString> extensionsOf(const CategoryText& text)
{
    if (text.isSound)
        return {u"ogg", u"mp3", u"wav", u"mid", u"midi"};
    return {u"png", u"jpg", u"jpeg", u"bmp", u"gif"};
}

bool isOfKind(const fs::path& file, const CategoryText& text)
{
    const WString extension = toWide(file.extension());
    const auto known = extensionsOf(text);
    return extension.size() > 1 && std::ranges::any_of(known, [&](const WString& one) {
               return equalsIgnoringAsciiCase(one, WStringView(extension).substr(1));
           });
}

/// A file's path below the project; empty where it lies outside.
fs::path pathInProject(const fs::path& file)
{
    std::error_code fault;
    const fs::path relative =
        fs::canonical(file, fault).lexically_relative(fs::canonical(fs::current_path(), fault));
    return fault || relative.empty() || *relative.begin() == ".." ? fs::path() : relative;
}

/// Copies a file into a folder of the project. One of that name with the same bytes is taken as it
/// is; where the bytes differ the copy gets a number.
/// @return its path below the project @throws Exception  it cannot be copied
fs::path copyIntoProject(const fs::path& file, WStringView folder)
{
    const fs::path target = resolveProjectPath(folder);
    createDirectories(target);
    const auto bytes = readFile(file);
    if (!bytes)
        throw Exception(u"Couldn't open " + toWide(file));
    fs::path place = target / file.filename();
    for (int i = 2; fs::exists(place) && readFile(place) != bytes; ++i)
        place =
            target / (file.stem().string() + "-" + std::to_string(i) + file.extension().string());
    if (!fs::exists(place) && !replaceFile(place, asBytes(*bytes)))
        throw Exception(u"Couldn't save " + toWide(place));
    return place;
}

} // namespace

void ResourceManagerDialog::FileTable::onDropFiles(const std::vector<fs::path>& names)
{
    if (onDrop)
        onDrop(names);
}

ResourceManagerDialog::ResourceManagerDialog()
    : Dialog(u"Resource Manager"), catalogue(GameResourceManager::instance()),
      importButton(u"&Import..."), removeButton(u"&Remove"),
      flips(u"ResourceManager: Flip when moving in a dungeon"),
      keepsAspect(u"ResourceManager: Maintain aspect ration"), scale(0.1, 99.9, 1, 0.1)
{}

void ResourceManagerDialog::build()
{
    setInitialSize(900, 560);
    catalogue.loadDefault();
    BoxLayout rows(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    rows.add(tabs, 1);
    buildTypes(tabs.addPage(u"Resource Type"));
    buildScale(tabs.addPage(u"Image Scale"));
    showCategory();
}

void ResourceManagerDialog::buildTypes(GroupComponent& page)
{
    BoxLayout columns(page, BoxLayout::Axis::Row);
    columns.add(body, 3).add(side, 2);

    BoxLayout left(body, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    left.add(typeRow).add(table, 1).add(buttons);
    BoxLayout types(typeRow, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    types.add(typeLabel).add(categories, 1);
    typeLabel.setBuddy(categories);
    std::vector<WString> names;
    for (const CategoryText& text : kCategories)
        names.push_back(translate(text.name));
    categories.setItems(names);
    categories.onAction([this] { showCategory(); });

    table.setColumns({{u"ID", 56}, {u"Type", 130}, {u"Filename", 0}});
    table.setModel(this);
    table.setSortable(true);
    table.setEmptyText(u"Nothing here yet. Import files, or drop them here.");
    table.setAccessibleName(u"Files");
    table.onAction([this] { showSelected(); });
    table.onDrop = [this](const std::vector<fs::path>& files) { import(category, files); };
    native::setAcceptsDrops(table.getHandle(), true);

    BoxLayout row(buttons, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    row.add(importButton).add(removeButton).addStretch();
    importButton.onAction([this] { chooseFiles(); });
    removeButton.setHint(u"Takes the row out of the list; the file stays");
    removeButton.onAction([this] { removeSelected(); });

    BoxLayout right(side, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    right.add(picture, 1).add(audition).add(about).add(usage).add(flips).add(keepsAspect);
    right.addStretch();
    about.setWrapped(true);
    usage.setWrapped(true);
    usage.setDimmed(true);
    flips.onAction([this] {
        if (auto* const image = dynamic_cast<ImageResourceItem*>(selected()))
            image->movementType = flips.isChecked() ? 1 : 0;
    });
    keepsAspect.onAction([this] {
        if (auto* const image = dynamic_cast<ImageResourceItem*>(selected()))
            image->scalingType = keepsAspect.isChecked() ? 1 : 0;
    });
}

void ResourceManagerDialog::buildScale(GroupComponent& page)
{
    BoxLayout rows(page, BoxLayout::Axis::Column);
    rows.add(scaleForm).add(scalePreview, 1);
    FormLayout form(scaleForm, BoxLayout::Margin::None);
    form.addRow(u"Image &Scale", scale);
    form.addRow(scaleNote);
    scaleNote.setDimmed(true);
    scaleNote.setLabel(u"How much larger the pictures of enemies are shown, 0.1 to 99.9");
    scale.setValue(catalogue.scale);
    scale.onAction([this] { scalePreview.setMagnification(scale.getValue()); });
    const ResourceItemList& enemies = catalogue.items(ResourceCategory::EnemyImage);
    scalePreview.setFile(enemies.empty() ? WString() : enemies.front()->path);
    scalePreview.setMagnification(scale.getValue());
}

const ResourceItemList& ResourceManagerDialog::items() const
{
    return catalogue.items(category);
}

ResourceItem* ResourceManagerDialog::selected() const
{
    const int row = table.getSelectedRow();
    return row < 0 || row >= getRowCount() ? nullptr : items()[static_cast<std::size_t>(row)].get();
}

int ResourceManagerDialog::getRowCount() const
{
    return static_cast<int>(items().size());
}

WString ResourceManagerDialog::getValueAt(int row, int column) const
{
    const ResourceItem& item = *items().at(static_cast<std::size_t>(row));
    switch (column) {
    case 0:
        return toDecimal(item.id);
    case 1:
        return translate(textOf(category).name);
    default:
        return item.path;
    }
}

void ResourceManagerDialog::selectCategory(ResourceCategory wanted)
{
    const auto* const text = std::ranges::find(kCategories, wanted, &CategoryText::category);
    categories.setSelectedIndex(static_cast<int>(text - std::begin(kCategories)));
    showCategory();
}

void ResourceManagerDialog::showCategory()
{
    category =
        kCategories[static_cast<std::size_t>(std::max(0, categories.getSelectedIndex()))].category;
    fireTableChanged({TableModelEvent::Changed, -1, -1});
    table.selectRow(items().empty() ? -1 : 0);
    showSelected();
}

void ResourceManagerDialog::showSelected()
{
    const ResourceItem* const item = selected();
    const bool isSound = textOf(category).isSound;
    const auto* const background = dynamic_cast<const ImageResourceItem*>(item);
    removeButton.setEnabled(item != nullptr);
    picture.setVisible(!isSound);
    audition.setVisible(isSound);
    flips.setVisible(background != nullptr);
    keepsAspect.setVisible(background != nullptr);
    about.setText({});
    usage.setText({});
    audition.setFile(isSound && item ? WStringView(item->path) : WStringView());
    const bool readable =
        picture.setFile(!isSound && item ? WStringView(item->path) : WStringView());
    if (!item)
        return;
    if (background) {
        flips.setChecked(background->movementType != 0);
        keepsAspect.setChecked(background->scalingType != 0);
    }
    if (!isFile(item->path))
        about.setText(u"\u26A0 " + translate(u"Missing file"));
    else if (!isSound && readable)
        about.setText(toDecimal(picture.getImage().getWidth()) + u" \u00D7 " +
                      toDecimal(picture.getImage().getHeight()) + u" px");
    showUsage(*item);
}

void ResourceManagerDialog::showUsage(const ResourceItem& item)
{
    constexpr std::size_t kMostNames = 6;
    if (!uses)
        uses.emplace();
    const std::vector<WString> files = uses->find(category, item);
    if (files.empty()) {
        usage.setText(translate(u"No floor, table or script names it."));
        return;
    }
    WString names;
    for (std::size_t i = 0; i < files.size() && i < kMostNames; ++i)
        names += (i ? u", " : u"") + files[i];
    if (files.size() > kMostNames)
        names += u", ...";
    usage.setText(
        translateWith(u"Named by %1: %2", {toDecimal(static_cast<int>(files.size())), names}));
}

void ResourceManagerDialog::chooseFiles()
{
    const CategoryText& text = textOf(category);
    ChooserRequest request;
    request.title = request.filterName = text.chooser;
    request.extensions = extensionsOf(text);
    if (const auto chosen = host().chooseFile(request))
        import(category, {resolveProjectPath(*chosen)});
}

int ResourceManagerDialog::import(ResourceCategory into, const std::vector<fs::path>& files)
{
    int added = 0;
    WString path;
    std::vector<WString> refused;
    for (const fs::path& file : files) {
        try {
            if (!isOfKind(file, textOf(into)))
                throw Exception(toWide(file.filename()));
            fs::path inside = pathInProject(file);
            if (inside.empty())
                inside = pathInProject(copyIntoProject(file, folderOf(into)));
            path = toWide(inside.generic_string());
            if (catalogue.findByPath(into, path))
                continue;
            catalogue.add(into, path);
            ++added;
        } catch (const Exception& fault) {
            refused.push_back(fault.getMessage());
        }
    }
    showAdded(path);
    if (!refused.empty()) {
        WString text = translate(u"These could not be imported:");
        for (const WString& one : refused)
            text += u"\n- " + one;
        host().showMessage(text);
    }
    return added;
}

/// Selects the row of a file that was just imported.
void ResourceManagerDialog::showAdded(WStringView path)
{
    fireTableChanged({TableModelEvent::Inserted, -1, -1});
    for (int row = 0; row < getRowCount(); ++row)
        if (items()[static_cast<std::size_t>(row)]->path == path) {
            table.selectRow(row);
            table.ensureRowVisible(row);
        }
    showSelected();
}

void ResourceManagerDialog::removeSelected()
{
    const int row = table.getSelectedRow();
    if (!selected())
        return;
    audition.setFile({});
    catalogue.remove(category, static_cast<std::size_t>(row));
    fireTableChanged({TableModelEvent::Removed, row, -1});
    table.selectRow(std::min(row, getRowCount() - 1));
    showSelected();
}

bool ResourceManagerDialog::accept()
{
    catalogue.scale = static_cast<float>(scale.getValue());
    if (catalogue.save())
        return true;
    host().showMessage(u"Couldn't save Data/ResourceManager.xml");
    return false;
}

bool ResourceManagerDialog::reject()
{
    catalogue.loadDefault();
    return true;
}

} // namespace varn

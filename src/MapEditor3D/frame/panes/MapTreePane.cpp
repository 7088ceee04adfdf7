#include "MapEditor3D/frame/panes/MapTreePane.h"

#include "Component/Layout.h"
#include "Component/Translation.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/MapTree.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

constexpr int kRootEntry = -1; // `TreeItem::data` of the root; else the place in the hierarchy

WString commandText(WStringView english, bool opensDialog)
{
    return translate(english) + (opensDialog ? u"..." : u"");
}

bool isAbove(const MapHierarchy& tree, std::size_t folder, std::size_t entry)
{
    return entry > folder && entry < tree.endOf(folder);
}

} // namespace

MapTreePane::MapTreePane(ProjectSession& session, WizMapEditor& editor)
    : session(session), editor(editor), tree([this] { run(kDelete); })
{
    editor.addListener(*this);
}

MapTreePane::~MapTreePane()
{
    editor.removeListener(*this);
}

void MapTreePane::onCreate()
{
    BoxLayout(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None).add(tree, 1);
    tree.setAccessibleName(u"Maps of the project");
    tree.setListener(this);
    openMap = editor.getMapName();
    build();
    tree.setDraggable([this](const TreeItem& item) {
        return item.data == kRootEntry ||
               hierarchy().at(static_cast<std::size_t>(item.data)).isFolder();
    });
}

void MapTreePane::applyTexts()
{
    GroupComponent::applyTexts();
    refresh();
}

// What is shown

void MapTreePane::build()
{
    TreeItem& top = tree.getRoot();
    top.children.clear();
    shownIds.clear();
    for (const MapHierarchy::Entry& entry : hierarchy().list())
        shownIds.push_back(entry.id);
    TreeItem& project = top.add(translate(kMapTreeRoot), kRootEntry);
    project.icon = u"book";
    addChildren(project, std::nullopt);
}

void MapTreePane::addChildren(TreeItem& item, std::optional<std::size_t> parent)
{
    for (const std::size_t entry : hierarchy().childrenOf(parent)) {
        const MapHierarchy::Entry& shown = hierarchy().at(entry);
        TreeItem& child = item.add(shown.name, static_cast<int>(entry));
        child.icon = shown.isFolder() ? u"folder" : u"map";
        child.editable = true;
        child.expanded = std::ranges::find(collapsed, shown.id) == collapsed.end();
        if (!shown.isFolder() && !openMap.empty() && equalsIgnoringAsciiCase(shown.name, openMap)) {
            child.bold = true;
            child.mark = unsaved ? u" *" : u"";
        }
        addChildren(child, entry);
    }
}

void MapTreePane::refresh()
{
    if (!tree.getHandle())
        return;
    // The hierarchy may be another one than the tree still shows.
    const auto selected = entryOf(tree.getSelected());
    const bool rootSelected = tree.getSelected() && !selected;
    const std::int32_t id = selected ? shownIds[*selected] : kRootEntry;
    build();
    tree.refresh();
    if (const auto entry = hierarchy().findById(id); selected && entry)
        tree.select(itemOf(*entry));
    else if (rootSelected)
        tree.select(tree.getRoot().children.front().get());
}

void MapTreePane::setUnsaved(bool value)
{
    if (std::exchange(unsaved, value) != value)
        refresh();
}

void MapTreePane::mapLoaded()
{
    WString name = editor.getMapName();
    if (name == openMap)
        return; // its properties changed
    openMap = std::move(name);
    unsaved = false;
    refresh();
}

TreeItem* MapTreePane::itemOf(std::size_t entry) const
{
    const auto find = [entry](auto& self, const TreeItem& above) -> TreeItem* {
        for (const auto& child : above.children) {
            if (child->data == static_cast<int>(entry))
                return child.get();
            if (TreeItem* const found = self(self, *child))
                return found;
        }
        return nullptr;
    };
    return find(find, tree.getRoot());
}

std::optional<std::size_t> MapTreePane::entryOf(const TreeItem* item)
{
    if (!item || item->data == kRootEntry)
        return std::nullopt;
    return static_cast<std::size_t>(item->data);
}

std::optional<std::size_t> MapTreePane::getSelectedEntry() const
{
    const auto entry = entryOf(tree.getSelected());
    return entry && *entry < hierarchy().size() ? entry : std::nullopt;
}

WString MapTreePane::getSelectedMap() const
{
    const auto entry = getSelectedEntry();
    return entry && !hierarchy().at(*entry).isFolder() ? hierarchy().at(*entry).name : WString();
}

void MapTreePane::selectMap(WStringView name)
{
    if (const auto entry = hierarchy().findMap(name))
        tree.select(itemOf(*entry));
}

// What a person does

void MapTreePane::itemActivated(TreeItem& item)
{
    tree.select(&item);
    run(kOpen);
}

void MapTreePane::itemExpanded(TreeItem& item, bool expanded)
{
    const auto entry = entryOf(&item);
    if (!entry)
        return;
    const std::int32_t id = hierarchy().at(*entry).id;
    std::erase(collapsed, id);
    if (!expanded)
        collapsed.push_back(id);
}

void MapTreePane::menuRequested(TreeItem* item, int x, int y)
{
    if (item)
        tree.select(item);
    PopupMenu menu;
    menu.setLines(menuLines());
    if (const auto command = menu.show(tree, x, y))
        run(static_cast<Command>(*command));
}

std::vector<MenuLine> MapTreePane::menuLines() const
{
    const auto entry = getSelectedEntry();
    const bool isMap = !getSelectedMap().empty();
    Menu menu;
    const auto add = [&](WStringView english, bool opensDialog, Command command, WStringView icon,
                         WStringView shortcut, bool enabled) {
        MenuLine& line = menu.add(commandText(english, opensDialog), command, icon);
        line.shortcut = shortcut;
        line.enabled = enabled;
    };
    add(u"Edit", isMap, kEdit, u"system", {}, entry.has_value());
    menu.addSeparator();
    add(u"Create a new map", true, kCreateMap, u"new", {}, true);
    add(u"New Folder", false, kCreateFolder, u"folder", {}, true);
    menu.addSeparator();
    add(u"Delete", false, kDelete, u"trash", u"Del", tree.getSelected() != nullptr);
    menu.addSeparator();
    add(u"Open file location", false, kOpenLocation, {}, {}, true);
    add(u"Export this map as HTML", true, kExportHtml, {}, {}, true);
    return menu.getLines();
}

void MapTreePane::run(Command command)
{
    const auto entry = getSelectedEntry();
    const WString map = getSelectedMap();
    switch (command) {
    case kOpen:
        if (listener && !map.empty())
            listener->mapOpenRequested(map);
        break;
    case kEdit:
        if (map.empty())
            run(kRename); // a folder has nothing but its name
        else if (listener)
            listener->mapEditRequested(map);
        break;
    case kRename:
        if (entry)
            tree.edit(*tree.getSelected());
        break;
    case kCreateMap:
        if (listener)
            listener->mapCreateRequested(folderOfSelected());
        break;
    case kCreateFolder:
        createFolder();
        break;
    case kDelete:
        removeEntry(entry);
        break;
    case kOpenLocation:
        openLocation();
        break;
    case kExportHtml:
        if (listener)
            listener->mapExportRequested(chosenMaps());
        break;
    }
}

bool MapTreePane::Tree::onKeyDown(int key, std::uint32_t flags)
{
    if (key != kKeyDelete)
        return TreeView::onKeyDown(key, flags);
    deletePressed();
    return true;
}

/// A new entry goes into the selected folder, or beside the selected map.
std::optional<std::size_t> MapTreePane::folderOfSelected() const
{
    const auto entry = getSelectedEntry();
    if (!entry || hierarchy().at(*entry).isFolder())
        return entry;
    return hierarchy().parentOf(*entry);
}

/// The selected map, or all maps of the selected folder.
std::vector<WString> MapTreePane::chosenMaps() const
{
    const auto selected = getSelectedEntry();
    std::vector<WString> names;
    if (!selected && !tree.getSelected())
        return names;
    for (std::size_t entry = 0; entry < hierarchy().size(); ++entry) {
        const bool chosen =
            !selected || entry == *selected ||
            (hierarchy().at(*selected).isFolder() && isAbove(hierarchy(), *selected, entry));
        if (chosen && !hierarchy().at(entry).isFolder())
            names.push_back(hierarchy().at(entry).name);
    }
    return names;
}

bool MapTreePane::itemRenamed(TreeItem& item, WStringView text)
{
    const auto entry = entryOf(&item);
    return entry && renameEntry(*entry, WString(text));
}

bool MapTreePane::renameEntry(std::size_t entry, const WString& name)
{
    const WString before = hierarchy().at(entry).name;
    const bool isMap = !hierarchy().at(entry).isFolder();
    if (!mapTree::rename(hierarchy(), entry, name))
        return false;
    if (isMap && equalsIgnoringAsciiCase(before, openMap)) {
        WString& file = editor.getMap().fileName;
        file = file.substr(0, file.size() - fileNameOf(file).size()) + name;
        openMap = name;
    }
    session.saveHierarchy();
    if (isMap && listener)
        listener->mapRenamed(before, name);
    return true;
}

void MapTreePane::createFolder()
{
    const std::size_t entry = hierarchy().addFolder(folderOfSelected());
    session.saveHierarchy();
    const std::int32_t id = hierarchy().at(entry).id;
    refresh();
    if (TreeItem* const item = itemOf(*hierarchy().findById(id))) {
        tree.select(item);
        tree.edit(*item);
    }
}

void MapTreePane::removeEntry(std::optional<std::size_t> entry)
{
    const bool isMap = entry && !hierarchy().at(*entry).isFolder();
    const WString name = entry ? hierarchy().at(*entry).name : WString();
    if (!mapTree::remove(hierarchy(), entry))
        return;
    session.saveHierarchy();
    refresh();
    if (isMap && listener)
        listener->mapDeleted(name);
}

void MapTreePane::openLocation()
{
    const WString map = getSelectedMap();
    const WString file =
        map.empty() ? WString(kDungeonFolder) : findMapFile(mapTree::pathOf(map) + u".map");
    const std::filesystem::path folder =
        std::filesystem::absolute(resolveProjectPath(file)).parent_path();
    host().openWithShell(toWide(folder));
}

void MapTreePane::itemMoved(TreeItem& item)
{
    // The lines stand in their new order, but carry the entries' places from before.
    const auto entry = entryOf(&item);
    const bool besideRoot = item.parent == &tree.getRoot();
    const auto& siblings = item.parent->children;
    const auto next = std::ranges::find(siblings, &item, &std::unique_ptr<TreeItem>::get) + 1;
    std::optional<std::size_t> before;
    if (!besideRoot && next != siblings.end())
        before = entryOf(next->get());
    if (entry && hierarchy().move(*entry, besideRoot ? std::nullopt : entryOf(item.parent), before))
        session.saveHierarchy();
    refresh();
}

} // namespace varn

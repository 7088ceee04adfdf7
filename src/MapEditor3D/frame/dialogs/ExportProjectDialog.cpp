#include "MapEditor3D/frame/dialogs/ExportProjectDialog.h"

#include "Component/ProgressDialog.h"
#include "Component/Translation.h"
#include "Game/Map/GameResourceManager.h"
#include "MapEditor3D/frame/dialogs/MessageCollector.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace {

constexpr WStringView kSection = u"GameDataExport", kPath = u"Path";

/// The folders of the catalogue with their files: what always goes along.
void addResources(TreeItem& root)
{
    GameResourceManager& catalogue = GameResourceManager::instance();
    for (const ResourceCategoryInfo& info : resourceCategories()) {
        const ResourceItemList& items = catalogue.items(info.category);
        if (items.empty())
            continue;
        TreeItem& folder = root.add(info.folder);
        folder.icon = u"folder";
        folder.expanded = false;
        for (const auto& item : items)
            folder.add(fileNameOf(item->path));
    }
}

} // namespace

ExportProjectDialog::ExportProjectDialog(ProjectSession& session)
    : Dialog(u"Exporting Game Data"), session(session), browse(u"..."),
      renamed(u"Export: Export files with the extension changed to dat")
{}

void ExportProjectDialog::build()
{
    setInitialSize(600, 520);
    setButtons(u"Export", u"Cancel");
    form.emplace(getPane(), BoxLayout::Margin::None);
    Label& label = form->addRow(u"&Save location:", row);
    BoxLayout line(row, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    line.add(target, 1).add(browse);
    label.setBuddy(target);
    browse.setHint(u"Select a Folder");
    browse.setAccessibleName(u"Select a Folder");
    browse.onAction([this] { chooseTarget(); });
    form->addWide(renamed);
    form->addWide(tree);
    tree.setAccessibleName(u"Files of the game");
    tree.setMinimumSize(320, 240);
    form->addWide(summary);
    summary.setDimmed(true);
    summary.setWrapped(true);
    summary.setLabel(u"Floors without a tick stay out of the archive. Tables, texts, scripts and "
                     u"the files of the resource manager go along.");

    const WString last = session.getSettings().getSettingString(kSection, kPath, u"");
    if (isFolder(last))
        target.setText(last);
    fillTree();
}

void ExportProjectDialog::fillTree()
{
    TreeItem& root = tree.getRoot();
    root.children.clear();
    std::vector<std::pair<int, TreeItem*>> above{{-1, &root}}; // depth and item
    for (const MapHierarchy::Entry& entry : session.getHierarchy().list()) {
        while (above.size() > 1 && above.back().first >= entry.depth)
            above.pop_back();
        TreeItem& item = above.back().second->add(entry.name);
        item.icon = entry.isFolder() ? u"folder" : u"map";
        if (!entry.isFolder())
            item.checked = true;
        above.emplace_back(entry.depth, &item);
    }
    GameResourceManager::instance().loadDefault();
    addResources(root);
    tree.refresh();
}

void ExportProjectDialog::chooseTarget()
{
    if (const auto chosen = host().chooseFolder(u"Select a Folder"))
        target.setText(*chosen);
}

static void collectUnchecked(const TreeItem& item, std::set<WString>& names)
{
    if (item.checked && !*item.checked)
        names.insert(item.text);
    for (const auto& child : item.children)
        collectUnchecked(*child, names);
}

bool ExportProjectDialog::accept()
{
    options.target = target.getText();
    if (options.target.empty() || !pathExists(options.target)) {
        form->setProblem(row, translate(u"This directory is not found."));
        target.setFocus();
        return false;
    }
    options.without.clear();
    collectUnchecked(tree.getRoot(), options.without);
    return true;
}

bool exportProjectWithDialog(ProjectSession& session, BaseWindow* parent)
{
    if (!canExportProject(session))
        return false;
    ExportProjectDialog dialog(session);
    if (dialog.doModal(parent) != Dialog::Ok)
        return false;

    ExportOptions options = dialog.getOptions();
    options.question = translate(kExportedQuestion);
    std::optional<WString> made;
    WString account;
    {
        MessageCollector messages;
        auto progress = std::make_unique<ProgressDialog>(parent, u"Packing");
        bool cancelled = false;
        int entries = 0;
        WString entryBefore;
        made = exportProject(
            session, options, [&](std::uint64_t done, std::uint64_t whole, WStringView entry) {
                if (entry != entryBefore)
                    ++entries;
                entryBefore = entry;
                cancelled = progress && !progress->report(done, whole, entry);
                messages.setSummary(translateWith(
                    u"Packed: %1 files, %2 KB.",
                    {toDecimal(entries), toDecimal(static_cast<std::int64_t>(whole / 1024))}));
                if (!cancelled && done == whole)
                    progress.reset();
                return !cancelled;
            });
        if (!made)
            messages.setSummary(cancelled ? translate(u"The export was cancelled. An archive that "
                                                      u"was there before still stands.")
                                          : WString());
        account = messages.getAccount();
    }
    if (!made && !account.empty())
        host().showMessage(account);
    return made.has_value();
}

} // namespace varn

#pragma once

#include "Component/GroupComponent.h"
#include "Component/Menu.h"
#include "Component/TreeView.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/ProjectSession.h"
#include "MapEditor3D/WizMapEditor.h"

namespace varn {

/// Told what a person wants of the maps; it does the work. Names are those of the tree.
class MapTreePaneListener
{
  public:
    virtual ~MapTreePaneListener() = default;
    /// Double click or Return.
    virtual void mapOpenRequested(WStringView name) = 0;
    /// @param parent  entry of the hierarchy to put it under; nothing: the root
    virtual void mapCreateRequested(std::optional<std::size_t> parent) = 0;
    /// The map's properties are wanted; it need not be the open one.
    virtual void mapEditRequested(WStringView name) = 0;
    /// A page of these maps is wanted; empty: none was chosen.
    virtual void mapExportRequested(const std::vector<WString>& names) = 0;
    /// Its files have the new name already, and the editor knows it by it.
    virtual void mapRenamed(WStringView /*before*/, WStringView /*after*/) {}
    /// Its files are gone; where it was the open map, it is to be dropped.
    virtual void mapDeleted(WStringView /*name*/) {}
};

/// The tree of the project's folders and maps. It renames, deletes and reorders by itself and
/// writes the hierarchy at once, since the files of the maps have changed by then; all else it asks
/// of its listener.
class MapTreePane final : public GroupComponent, private TreeViewListener, private MapEditorListener
{
  public:
    MapTreePane(ProjectSession& session, WizMapEditor& editor);
    ~MapTreePane() override;

    /// Borrowed; null: nobody.
    void setListener(MapTreePaneListener* next) { listener = next; }
    /// Shows the hierarchy as it now stands.
    void refresh();
    /// The open map has edits that are not on the disk.
    void setUnsaved(bool unsaved);
    /// The map of the selected line; empty: a folder or nothing is.
    WString getSelectedMap() const;
    /// The entry of the selected line; nothing: the root is, or nothing.
    std::optional<std::size_t> getSelectedEntry() const;
    void selectMap(WStringView name);
    TreeView& getTree() { return tree; }
    const TreeView& getTree() const { return tree; }

    /// The commands of the popup menu, for keys and menus too.
    enum Command
    {
        kOpen = 1,
        kEdit,
        kCreateMap,
        kCreateFolder,
        kRename,
        kDelete,
        kOpenLocation,
        kExportHtml
    };
    void run(Command command);
    /// The lines of the popup menu for the selected line.
    std::vector<MenuLine> menuLines() const;

    void onCreate() override;

  protected:
    void applyTexts() override;

  private:
    /// The kit's tree, with the key that deletes.
    class Tree final : public TreeView
    {
      public:
        explicit Tree(std::function<void()> deletePressed) : deletePressed(std::move(deletePressed))
        {}
        bool onKeyDown(int key, std::uint32_t flags) override;

      private:
        std::function<void()> deletePressed;
    };

    void itemActivated(TreeItem& item) override;
    bool itemRenamed(TreeItem& item, WStringView text) override;
    void menuRequested(TreeItem* item, int x, int y) override;
    void itemExpanded(TreeItem& item, bool expanded) override;
    void itemMoved(TreeItem& item) override;
    void mapLoaded() override;
    void mapSaved() override { setUnsaved(false); }
    void committed() override { setUnsaved(true); }

    MapHierarchy& hierarchy() const { return session.getHierarchy(); }
    TreeItem* itemOf(std::size_t entry) const;
    static std::optional<std::size_t> entryOf(const TreeItem* item);
    std::optional<std::size_t> folderOfSelected() const;
    std::vector<WString> chosenMaps() const;
    void build();
    void addChildren(TreeItem& item, std::optional<std::size_t> parent);
    bool renameEntry(std::size_t entry, const WString& name);
    void createFolder();
    void removeEntry(std::optional<std::size_t> entry);
    void openLocation();

    ProjectSession& session;
    WizMapEditor& editor;
    MapTreePaneListener* listener = nullptr;
    Tree tree;
    std::vector<std::int32_t> shownIds;  ///< of the entries, as the tree shows them
    std::vector<std::int32_t> collapsed; ///< ids of folders
    WString openMap;
    bool unsaved = false;
};

} // namespace varn

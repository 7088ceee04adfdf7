#pragma once

#include "Component/Application.h"
#include "Component/GroupComponent.h"
#include "Component/Layout.h"
#include "Game/Map/View/DungeonView.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/WizMapEditor.h"

namespace varn {

/// The first-person view of the open map from where the walker stands, three parts high to four
/// wide. It is live: what a stroke changes in sight stands there at once. A click gives it the
/// arrow keys, and it says so.
class DungeonViewPane final : public Component, private MapEditorListener
{
  public:
    explicit DungeonViewPane(WizMapEditor& editor);
    ~DungeonViewPane() override;

    void reloadImages();
    bool onLeftDown(const MouseEvent& event) override;
    bool onKeyDown(int key, std::uint32_t flags) override;
    bool onSetFocus() override;
    bool onKillFocus() override;
    void onMouseEnter() override {}
    void onMouseLeave() override {}

  protected:
    void paint(Graphics& graphics, const Rect& dirty) override;

  private:
    void mapLoaded() override;
    void cellsChanged(const CellRect& cells) override;
    void eventsChanged() override { refresh(); }
    void walkerMoved() override { refresh(); }
    void refresh();
    void draw();
    Rect viewPlace(const Graphics& graphics) const;
    void paintWords(Graphics& graphics, const Rect& place);

    WizMapEditor& editor;
    DungeonView view;
    /// The view is drawn beside the paint message, since a picture that is missing is told in a
    /// box.
    Graphics picture;
    bool scheduled = false, drawing = false;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true); ///< for posted drawings
};

/// The view above the on-screen pad.
class Dungeon3DPane final : public GroupComponent
{
  public:
    explicit Dungeon3DPane(WizMapEditor& editor) : editor(editor), view(editor) {}

    DungeonViewPane& getView() { return view; }
    void onCreate() override;

  private:
    WizMapEditor& editor;
    DungeonViewPane view;
    GroupComponent pad;
};

} // namespace varn

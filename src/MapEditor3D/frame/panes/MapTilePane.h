#pragma once

#include "Component/GroupComponent.h"
#include "MapEditor3D/MapEditorListener.h"
#include "MapEditor3D/WizMapEditor.h"
#include "MapEditor3D/canvas/EdgeTiles.h"

namespace varn {

class TileGrid;
class TilePalette;

/// Told what a person does in the palette.
class MapTilePaneListener
{
  public:
    virtual ~MapTilePaneListener() = default;
    /// A value was picked by hand; the editor has it already.
    virtual void tilePicked(int /*value*/) {}
    /// The settings of a kind of events are wanted: double click or Return in the event layer.
    virtual void tileSettingsRequested(int /*kind*/) {}
};

/// The palette of the layer in force: wall kinds, floor tiles, kinds of events, areas. A click or
/// the arrow keys select in the editor; what is selected there is marked here.
class MapTilePane final : public GroupComponent, private MapEditorListener
{
  public:
    explicit MapTilePane(WizMapEditor& editor);
    ~MapTilePane() override;

    /// Borrowed; null: nobody.
    void setListener(MapTilePaneListener* next) { listener = next; }
    void setWallLook(WallLook look);
    /// Pictures or tables on the disk changed.
    void reload();
    TileGrid& getGrid() { return *grid; }

    void onCreate() override;

  protected:
    void applyTexts() override;

  private:
    void show();
    void mapLoaded() override { show(); }
    void areasChanged(const CellRect& cells) override;
    void tileSelected(int tile) override;
    void toolChanged() override { show(); }

    WizMapEditor& editor;
    MapTilePaneListener* listener = nullptr;
    std::unique_ptr<TilePalette> palette;
    std::unique_ptr<TileGrid> grid;
};

} // namespace varn

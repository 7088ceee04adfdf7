#include "MapEditor3D/frame/panes/MapTilePane.h"

#include "Component/Layout.h"
#include "MapEditor3D/frame/panes/TileGrid.h"

namespace varn {

namespace {

WStringView emptyTextOf(PaletteKind kind)
{
    return kind == PaletteKind::Events ? u"No kinds of events yet: add them in Tile Settings."
                                       : u"This map has no floor tiles: choose a picture of them "
                                         u"in its properties.";
}

} // namespace

MapTilePane::MapTilePane(WizMapEditor& editor)
    : editor(editor), palette(std::make_unique<TilePalette>(editor)),
      grid(std::make_unique<TileGrid>(*palette))
{
    editor.addListener(*this);
}

MapTilePane::~MapTilePane()
{
    editor.removeListener(*this);
}

void MapTilePane::onCreate()
{
    BoxLayout(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None).add(*grid, 1);
    constexpr int kLeastWidth = 160, kLeastHeight = 96;
    grid->setMinimumSize(kLeastWidth, kLeastHeight);
    grid->onPick([this](int value) {
        editor.setSelectedTile(value);
        if (listener)
            listener->tilePicked(value);
    });
    grid->onActivate([this](int value) {
        if (listener && paletteKindOf(editor) == PaletteKind::Events)
            listener->tileSettingsRequested(value);
    });
    show();
}

void MapTilePane::applyTexts()
{
    GroupComponent::applyTexts();
    show();
}

void MapTilePane::setWallLook(WallLook look)
{
    grid->setWallLook(look);
}

void MapTilePane::reload()
{
    palette->reloadImages();
    show();
}

void MapTilePane::show()
{
    if (!grid->getHandle())
        return;
    const PaletteKind kind = paletteKindOf(editor);
    grid->setEmptyText(emptyTextOf(kind));
    grid->setEntries(palette->entries(),
                     kind == PaletteKind::Floor ? TileGrid::Shape::Grid : TileGrid::Shape::List);
    grid->setSelected(editor.getSelectedTile());
}

void MapTilePane::areasChanged(const CellRect&)
{
    if (paletteKindOf(editor) == PaletteKind::Areas)
        show();
}

void MapTilePane::tileSelected(int tile)
{
    grid->setSelected(tile);
}

} // namespace varn

#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// Where in its cell an event floor's picture stands in the first-person view. Other values are
/// kept.
enum class DisplayPosition : std::int32_t
{
    Default = 0,
    Floor = 1,
    Wall = 2,
    Ceiling = 3
};

/// A kind of event cell: a tile of the event layer. The row's number picks its picture in
/// "Graphics/System/eventFloor.png".
///
/// A row read from XML takes 0 for every attribute it lacks, whatever a new row starts with, so an
/// older project's row turns `visibility2D` off.
class WizFloorData final : public GameRow
{
    std::string name;
    WString texture;
    WString sprite;
    std::string header;
    std::string footer;
    bool visibility2D = true;
    bool showingDetails = false;
    bool visibility3D = true;
    bool syncWithLayer1 = false;
    bool dark = false;
    bool useEditDialog = true;
    bool treasurebox = false;
    bool warp = false;
    std::int32_t displayPosition = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    /// The event layer shows the kind on the map, and in the first-person view.
    VARN_FIELD(Visibility2D, visibility2D)
    VARN_FIELD(Visibility3D, visibility3D)
    VARN_FIELD(ShowingDetails, showingDetails)
    VARN_FIELD(SyncWithLayer1, syncWithLayer1)
    /// The cell is dark: the view shows nothing of it and behind it.
    VARN_FIELD(Dark, dark)
    /// The script is `warp(x, y);`, written by a dialog and shown as an arrow.
    VARN_FIELD(Warp, warp)
    VARN_FIELD(UseEditDialog, useEditDialog)
    /// Events of this kind are treasure boxes.
    VARN_FIELD(Treasurebox, treasurebox)
    VARN_FIELD(DisplayPosition, displayPosition)
    /// Pictures by project path; empty for none.
    VARN_FIELD(Texture, texture)
    VARN_FIELD(Sprite, sprite)
    /// What the default script opens and closes with.
    VARN_FIELD(Header, header)
    VARN_FIELD(Footer, footer)
};

/// `EventFloor.xml`.
class WizFloorList final : public GameDataList<WizFloorData, WizFloorList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn

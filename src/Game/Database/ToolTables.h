#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// What the tool knows about a floor tile: its picture, and whether its edges adapt to the
/// neighbours.
class TileSettingData final : public BaseDatabaseModel
{
    WString texture;
    std::uint8_t autoTile = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    /// Project path.
    VARN_FIELD(Texture, texture)
    VARN_FIELD(AutoTile, autoTile)
};

/// `TileSettings.xml`.
class TileSettingList final : public GameDataList<TileSettingData, TileSettingList>
{
  public:
    static const TableInfo kInfo;
};

/// A list of words for typing games, one a line. Its table has no tag: any document's root holds
/// the rows.
class TypingWordList final : public BaseDatabaseModel
{
    WString words;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Words, words)
};

class TypingWordFileList final : public GameDataList<TypingWordList, TypingWordFileList>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn

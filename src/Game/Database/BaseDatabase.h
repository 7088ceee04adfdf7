#pragma once

#include "Game/Database/GameTable.h"

namespace varn {

/// The root of tables that are loaded as a part of a document, without a file of the old form: a
/// load pads the rows even where the document lacks the table, a load from a file that is missing
/// or refused leaves none.
class BaseDatabase : public GameTable
{
  public:
    /// False: the file is missing or refused (shown), or lacks the table's element; no rows then.
    bool load(WStringView fileName, std::size_t minRows) override;
    /// False where `root` is null or has no element of the tag; blank rows all the same.
    bool load(const Element* root, std::size_t minRows) override;

  protected:
    using GameTable::GameTable;
};

} // namespace varn

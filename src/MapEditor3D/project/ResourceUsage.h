#pragma once

#include "Game/Map/GameResourceManager.h"

#include <vector>

namespace varn {

/// Where a project names the files of its catalogue: floors, tables and scripts, as texts. Taken
/// once, so that many files can be asked about.
class ResourceUsage
{
  public:
    /// Reads the texts of the project in the working directory.
    ResourceUsage();

    /// The files that name an item, by its file name or, of an enemy's picture, its number. Names
    /// that scripts put together are not seen.
    std::vector<WString> find(ResourceCategory category, const ResourceItem& item) const;

  private:
    struct Document
    {
        WString name; ///< "Dungeon/Cloister.xml"
        WString text; ///< letters A to Z small
    };

    void read(WStringView folder);

    std::vector<Document> documents;
};

} // namespace varn

#pragma once

#include "Game/Database/BaseDatabase.h"

namespace varn {

/// The one row of settings that hold for the whole game.
class SystemDatabaseData : public BaseDatabaseModel
{
    std::string title;
    std::string version;
    std::int32_t itemLimit = 0;
    std::int32_t autoSaveFlags = 0;
    std::uint8_t supportSecondLanguage = 0;
    std::int32_t defaultVisibleDistance = 0;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Title, title)
    VARN_FIELD(Version, version)
    VARN_FIELD(ItemLimit, itemLimit)
    VARN_FIELD(AutoSaveFlags, autoSaveFlags)
    /// Turns on the language rule of rows with two names, and the second string table of an export.
    VARN_FIELD(SupportSecondLanguage, supportSecondLanguage)
    /// Cells seen ahead on a map that gives no distance of its own.
    VARN_FIELD(DefaultVisibleDistance, defaultVisibleDistance)
};

/// `System.xml`. A load takes `supportSecondLanguage` over into the language state.
class SystemDatabase final : public BaseDatabase
{
  public:
    static const TableInfo kInfo;
    static SystemDatabase& instance();

    /// The settings row; null before a load and where `System.xml` is missing.
    SystemDatabaseData* getData() { return static_cast<SystemDatabaseData*>(findRow(0)); }
    const SystemDatabaseData* getData() const
    {
        return static_cast<const SystemDatabaseData*>(findRow(0));
    }

    SystemDatabase() : BaseDatabase(kInfo) {}

  protected:
    void loaded() override;
};

} // namespace varn

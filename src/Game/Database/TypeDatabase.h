#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// `Types.xml`: the spell types and the weapon types in one document, under the root `Types`. They
/// are loaded and saved together; a document without the element of one of the tables gives that
/// table the children of the root.
class TypesFile final : public TableFile
{
  public:
    static TypesFile& instance();

    bool load(WStringView fileName, std::size_t minRows) override;
    bool load(const Element* root, std::size_t minRows) override;
    bool save() override;
    /// Rows of both tables.
    std::size_t size() const override;

    static constexpr WStringView kFileName = u"Types.xml";

    void composeRoot(WString& out) const override;
};

/// One of the two tables: what its document does, it does with both.
template <class T, class L>
class TypeTable : public GameDataList<T, L>
{
  public:
    bool load(WStringView fileName, std::size_t minRows) override
    {
        return TypesFile::instance().load(fileName, minRows);
    }
    bool load(const Element* root, std::size_t minRows) override
    {
        return TypesFile::instance().load(root, minRows);
    }
    bool save() override { return TypesFile::instance().save(); }
    bool wasRefused() const override { return TypesFile::instance().wasRefused(); }

  protected:
    void composeRoot(WString& out) const override { TypesFile::instance().composeRoot(out); }
    const Element* findTableElement(const Element& root) const override
    {
        const Element* const table = GameTable::findTableElement(root);
        return table ? table : &root;
    }
};

/// A kind of spell: the skills' `type`.
class SpellTypeModel final : public BaseDatabaseModel
{
  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }
};

class SpellTypeDatabase final : public TypeTable<SpellTypeModel, SpellTypeDatabase>
{
  public:
    static const TableInfo kInfo;
    /// What a spell type without a name is shown as: "Mage", "Priest", "Spell3", "Spell4"; empty
    /// beyond.
    static WStringView defaultName(std::size_t row);
};

/// A kind of weapon or armour: the items' `subtype`.
class WeaponTypeModel final : public BaseDatabaseModel
{
    std::int32_t holdtype = 0;
    std::vector<std::int32_t> equippableClasses;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Holdtype, holdtype)
    /// Class rows.
    VARN_FIELD(EquippableClasses, equippableClasses)
};

class WeaponTypeDatabase final : public TypeTable<WeaponTypeModel, WeaponTypeDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn

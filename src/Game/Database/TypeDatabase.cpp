#include "Game/Database/TypeDatabase.h"

#include "Game/Database/FieldBuilders.h"
#include "Parser/XMLParser.h"

namespace varn {

namespace {

GameTable& spellTypes()
{
    return SpellTypeDatabase::instance();
}
GameTable& weaponTypes()
{
    return WeaponTypeDatabase::instance();
}

} // namespace

TypesFile& TypesFile::instance()
{
    static TypesFile file;
    return file;
}

bool TypesFile::load(WStringView fileName, std::size_t minRows)
{
    XMLParser parser;
    if (readDocument(parser, fileName))
        return load(parser.getRootElement(), minRows);
    for (GameTable* const table : {&spellTypes(), &weaponTypes()}) {
        table->clear();
        table->pad(minRows);
    }
    return true;
}

bool TypesFile::load(const Element* root, std::size_t minRows)
{
    refused = false;
    const bool spells = spellTypes().GameTable::load(root, minRows);
    const bool weapons = weaponTypes().GameTable::load(root, minRows);
    return spells && weapons;
}

bool TypesFile::save()
{
    return writeFile(kFileName);
}

std::size_t TypesFile::size() const
{
    return spellTypes().size() + weaponTypes().size();
}

void TypesFile::composeRoot(WString& out) const
{
    out += u"<Types>\r\n";
    for (const GameTable* const table : {&spellTypes(), &weaponTypes()})
        table->composeRows(out, table->getTagName(), 1);
    out += u"</Types>\r\n";
}

const FieldTable& SpellTypeModel::fieldTable()
{
    static constexpr Field kFields[] = {kBaseId, kBaseMarker, kBaseName, kBaseName2};
    static constexpr FieldTable kTable =
        rowTable<SpellTypeModel>(u"SpellTypeModel", u"data", kFields);
    return kTable;
}

const TableInfo SpellTypeDatabase::kInfo = {
    u"SpellTypeDatabase", u"SpellTypes", u"Types.xml", u"", 0, &SpellTypeModel::fieldTable,
};

WStringView SpellTypeDatabase::defaultName(std::size_t row)
{
    static constexpr WStringView kNames[] = {u"Mage", u"Priest", u"Spell3", u"Spell4"};
    return row < std::size(kNames) ? kNames[row] : WStringView();
}

const FieldTable& WeaponTypeModel::fieldTable()
{
    using Row = WeaponTypeModel;
    static constexpr Field kFields[] = {
        kBaseId,
        kBaseMarker,
        kBaseName,
        kBaseName2,
        field<&Row::holdtype>(u"holdtype", u"Grip"),
        field<&Row::equippableClasses>(u"equippableClasses", u"Equippable Classes").to(u"Classes"),
    };
    static constexpr FieldTable kTable = rowTable<Row>(u"WeaponTypeModel", u"data", kFields);
    return kTable;
}

const TableInfo WeaponTypeDatabase::kInfo = {
    u"WeaponTypeDatabase", u"WeaponTypes", u"Types.xml", u"", 0, &WeaponTypeModel::fieldTable,
};

} // namespace varn

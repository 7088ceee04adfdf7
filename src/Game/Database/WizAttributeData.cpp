#include "Game/Database/WizAttributeData.h"

#include "Game/Database/FieldBuilders.h"

namespace varn {

const FieldTable& WizAttributeData::fieldTable()
{
    using Row = WizAttributeData;
    using Record = WizAttributeData_;
    static constexpr Field kFields[] = {
        field<&Row::record, &Record::name>(u"name", u"Name"),
        field<&Row::record, &Record::icon>(u"icon", u"Icon"),
        field<&Row::name2>(u"name2", u"Name (Second Language)"),
    };
    static constexpr FieldTable kTable = recordTable<&Row::record>(u"WizAttributeData", kFields);
    return kTable;
}

const TableInfo WizAttributeList::kInfo = {
    u"WizAttributeList",           u"Attributes", u"Attribute.dat", u"Attribute.dat", 16,
    &WizAttributeData::fieldTable,
};

} // namespace varn

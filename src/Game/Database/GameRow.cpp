#include "Game/Database/GameRow.h"

#include "Game/Database/FieldTable.h"
#include "Game/Database/Language.h"
#include "Util/Exception.h"

namespace varn {

namespace {

constexpr WStringView kName = u"name";
constexpr WStringView kName2 = u"name2";

WString storedName(const GameRow& row, WStringView key)
{
    const Field* const field = row.getFieldTable().find(key);
    return field ? getText(row, *field) : WString();
}

void storeName(GameRow& row, WStringView key, WStringView text)
{
    if (const Field* const field = row.getFieldTable().find(key))
        setText(row, *field, text);
}

/// A row with a single name shows it in either language.
bool swapsNames(const GameRow& row)
{
    return language().isSecondActive() && row.getFieldTable().find(kName2);
}

/// What an attribute of the element says about the field, by the rank of its spellings.
const Attribute* findSource(const Element& element, const Field& field)
{
    const OlderKey& older = field.older;
    if (older.key.empty())
        return element.findAttribute(field.key);
    switch (older.rank) {
    case OlderKey::Only:
        return element.findAttribute(older.key);
    case OlderKey::Wins:
        return element.findAttribute(element.hasAttribute(older.when) ? older.key : field.key);
    case OlderKey::Yields:
        break;
    }
    const Attribute* const newer = element.findAttribute(field.key);
    return newer ? newer : element.findAttribute(older.key);
}

/// An array that is missing keeps its entries, as one that is too short does.
void readMissing(GameRow& row, const Field& field)
{
    if (field.kind == Kind::Number)
        setNumber(row, field, field.fallback);
    else if (field.kind != Kind::Array && field.kind != Kind::DiceText)
        setText(row, field, {});
}

/// Of several texts each is a CDATA child; a single one is the first child of any kind.
void readCDataTexts(GameRow& row, const Field& field, const Element& element)
{
    std::size_t index = 0;
    for (const Element* child = element.getFirstChild(); child && index < field.count;
         child = child->getNextSibling())
        if (child->isCData() || field.count == 1)
            setText(row, field, child->getText(), index++);
    while (index < field.count)
        setText(row, field, {}, index++);
}

bool isNamedElement(const Element& node)
{
    return !node.getTagName().empty();
}

bool isEntry(const Element& child, const ChildRows& list)
{
    switch (list.entries) {
    case Entries::InContainer:
        return isNamedElement(child);
    case Entries::ByElement:
        return child.getTagName() == list.table().element;
    case Entries::ByAttribute:
        return isNamedElement(child) && child.hasAttribute(list.table().fields.front().key);
    }
    return false;
}

void readChildRows(GameRow& row, const Field& field, const Element& element, Faults& faults)
{
    const ChildRows& list = *field.children;
    list.clear(row);
    const bool inContainer = list.entries == Entries::InContainer;
    const Element* const holder = inContainer ? element.findChild(field.key) : &element;
    if (!holder)
        return;
    for (const Element* child = holder->getFirstChild(); child; child = child->getNextSibling())
        if (isEntry(*child, list))
            list.append(row, *child).fromElement(*child, faults);
}

const Element* childAt(const Element& element, std::int8_t position)
{
    for (const Element* child = element.getFirstChild(); child; child = child->getNextSibling())
        if (isNamedElement(*child) && position-- == 0)
            return child;
    return nullptr;
}

void readChildText(GameRow& row, const Field& field, const Element& element)
{
    const Element* const child = childAt(element, field.child);
    setText(row, field, child ? child->collectText() : WString());
}

void readField(GameRow& row, const Field& field, const Element& element, Faults& faults)
{
    if (field.codec)
        field.codec->read(row, element, faults);
    else if (field.kind == Kind::ChildRows)
        readChildRows(row, field, element, faults);
    else if (field.kind == Kind::CDataTexts)
        readCDataTexts(row, field, element);
    else if (field.child != Field::kAttribute)
        readChildText(row, field, element);
    else if (const Attribute* const source = findSource(element, field))
        setText(row, field, source->value);
    else
        readMissing(row, field);
}

void writeChildRows(const GameRow& row, const Field& field, Element& element)
{
    const ChildRows& list = *field.children;
    const bool inContainer = list.entries == Entries::InContainer;
    Element& holder = inContainer ? *element.addElement(field.key) : element;
    for (std::size_t i = 0; i < list.size(row); i++)
        holder.appendChild(list.at(const_cast<GameRow&>(row), i).toElement(element.getArena()));
}

void writeCDataTexts(const GameRow& row, const Field& field, Element& element)
{
    const WString* const texts =
        static_cast<const WString*>(field.place(const_cast<GameRow&>(row)));
    for (std::size_t i = 0; i < field.count; i++)
        element.addCData(texts[i]);
}

/// The attribute's text; the names of a row that swaps them go through the language rule.
WString attributeText(const GameRow& row, const Field& field)
{
    if (row.getFieldTable().swapsNames && field.key == kName)
        return row.getName();
    if (row.getFieldTable().swapsNames && field.key == kName2)
        return row.getName2();
    return getText(row, field);
}

void writeField(const GameRow& row, const Field& field, Element& element)
{
    if (!isWritten(row, field))
        return;
    if (field.codec)
        field.codec->write(row, element);
    else if (field.kind == Kind::ChildRows)
        writeChildRows(row, field, element);
    else if (field.kind == Kind::CDataTexts)
        writeCDataTexts(row, field, element);
    else if (field.child != Field::kAttribute)
        element.addElement(field.key)->addText(getText(row, field));
    else
        element.setString(field.key, attributeText(row, field));
}

} // namespace

WString GameRow::getName() const
{
    return storedName(*this, swapsNames(*this) ? kName2 : kName);
}

WString GameRow::getName2() const
{
    return storedName(*this, swapsNames(*this) ? kName : kName2);
}

void GameRow::setName(WStringView text)
{
    storeName(*this, swapsNames(*this) ? kName2 : kName, text);
}

void GameRow::setName2(WStringView text)
{
    storeName(*this, swapsNames(*this) ? kName : kName2, text);
}

std::string GameRow::getName(int language) const
{
    return narrow(storedName(*this, language == 0 ? kName : kName2));
}

Element* GameRow::toElement(NodeArena& arena) const
{
    const FieldTable& table = getFieldTable();
    Element* const element = arena.makeElement(table.element);
    element->setSelfClosing(table.selfClosing);
    for (const Field& field : table.fields)
        writeField(*this, field, *element);
    return element;
}

void GameRow::fromElement(const Element& element, Faults& faults)
{
    try {
        for (const Field& field : getFieldTable().fields)
            readField(*this, field, element, faults);
    } catch (const Exception& fault) {
        faults.push_back(fault.getMessage());
    }
}

std::size_t GameRow::getDataSize() const
{
    return getFieldTable().recordSize;
}

} // namespace varn

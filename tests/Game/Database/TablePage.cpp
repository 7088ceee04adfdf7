#include "Game/Database/TablePage.h"

#include "Game/Database/GameDatabase.h"

#include <set>

namespace varn::test {

namespace {

constexpr std::string_view kIntroduction = R"(# Tables

The formats of a project's tables in `Data/`. `varn table FILE` prints a table as it would be saved, and shows what
of a file could not be read.

This page is made from the source: whoever changes a field runs `TablePageTest` with `VARN_REBASELINE=1`.

## Documents

A table is one XML document, little-endian UTF-16 with the mark FF FE and CR LF line ends:

    <?xml version="1.0" encoding="UTF-16"?>
    <States>
    	<data name="Poison" ... />
    	<data name="Sleep" ... />
    </States>

Writing names the root after the file, gives each row one line behind one tab (children follow on lines of their
own), and writes the attributes in the order of the tables below. Reading takes any encoding, attributes in any
order, and every child element of the table's element as a row, whatever its name. The table's element is the first
one with the tag, in the document's order, root included; for a table without a tag it is the root. A document
without that element leaves the table empty. A row's number is its position, from 0.

After reading, a table is padded with blank rows to the caller's minimum.

- An integer is decimal. Text behind the digits is ignored, text without digits is 0, a value is cut to the field's
  width, and a missing attribute is the field's default (0 where none is told).
- An array is comma-separated, without blanks. It is written with all its entries; a shorter text leaves the rest as it
  was, a longer one is cut. A list takes any count; an empty text is an empty list.
- Dice are three numbers, `count,faces,bonus`.
- A text of a record is narrow, in code page 932, cut to its limit less one byte and never through a double-byte
  character. Other texts have no limit; those marked narrow can hold only what code page 932 has.
- A CDATA text is stored as it is; `]]>` in it is written `]]&gt;`.
- "id" and "marker" belong to rows with a number of their own. It is data: neither loading nor saving numbers rows anew.
- An element is closed in its start tag where that is told, and written with an end tag otherwise.
- While the game's second language is active, `name` and `name2` of rows marked so are written the other way round.

`Types.xml` holds two tables, both elements below one root:

    <Types>
    	<SpellTypes>
    		<data id="0" name="Mage" name2="" />
    	</SpellTypes>
    	<WeaponTypes>
    	</WeaponTypes>
    </Types>

They are read and written together. Where one of the elements is missing, its table takes the children of the root.

## Binary files

A `.dat` file is the older form of the first ten tables. It is read where the table's document does not exist, and never
written:

| Offset | Size | Field |
| --- | --- | --- |
| 0 | 2 | size of a record, unsigned; another one than the table's is a fault, told, and no row is read |
| 2 | size * count | the records, one behind the other, to the end of the file; the last may be short, its rest counts as zero |

All numbers are little-endian. Texts end at their first zero byte or with their room. Bytes that no field names mean
nothing here and are lost by a save. What has no offset is not in the record and stays blank; the name is cut to its limit.

)";

std::string numberName(NumberType type)
{
    switch (type) {
    case NumberType::Byte:
        return "byte";
    case NumberType::SignedByte:
        return "signed byte";
    case NumberType::Word:
        return "16-bit";
    case NumberType::SignedWord:
        return "16-bit signed";
    case NumberType::Long:
        return "32-bit signed";
    case NumberType::Bool:
        return "0 or 1";
    case NumberType::None:
        break;
    }
    return "";
}

std::string formName(const Field& field)
{
    const std::string number = numberName(field.number);
    switch (field.kind) {
    case Kind::Number:
        return number;
    case Kind::Array:
        return std::to_string(field.count) + " of " + number;
    case Kind::List:
        return "list of " + number;
    case Kind::DiceText:
        return "dice, 3 bytes";
    case Kind::FixedText:
        return "text, " + std::to_string(field.count) + " bytes, limit " +
               std::to_string(field.limit);
    case Kind::NarrowText:
        return "narrow text";
    case Kind::WideText:
        return "text";
    case Kind::CDataTexts:
        return field.count == 1 ? "CDATA child" : std::to_string(field.count) + " CDATA children";
    case Kind::ChildRows:
        return toUtf8(u"children `" + WString(field.children->table().className) + u"`");
    case Kind::Custom:
        break;
    }
    return "";
}

std::string keyList(const Field& field, const std::string& key)
{
    const std::string older = "`" + toUtf8(field.older.key) + "`";
    if (field.older.key.empty())
        return "";
    if (field.older.rank == OlderKey::Only)
        return "read only as " + older + "; `" + key + "` is ignored";
    if (field.older.rank == OlderKey::Yields)
        return "read from " + older + " where `" + key + "` is missing";
    return "read from " + older + " instead where `" + toUtf8(field.older.when) + "` exists";
}

std::string writtenNote(const Field& field)
{
    return field.written ? "written where " + toUtf8(field.written->words) : "";
}

std::string referenceNote(const Field& field)
{
    if (field.refersToOf)
        return "rows of the table that the row's type speaks of";
    if (field.refersTo.empty())
        return "";
    const std::string table = "`" + toUtf8(field.refersTo) + "`";
    if (field.refers == Refers::Bits)
        return "bits by row of " + table;
    return (field.refers == Refers::Index ? "by row of " : "row of ") + table;
}

std::string choiceNote(const Field& field)
{
    if (field.choices.empty() || field.kind != Kind::Number)
        return "";
    std::string note = field.refers == Refers::Bits ? "bits: " : "";
    for (std::size_t i = 0; i < field.choices.size(); i++)
        note += (i > 0 ? ", " : "") + std::to_string(i) + " " + toUtf8(field.choices[i]);
    return note;
}

/// A blank row need not be what an element without attributes reads as.
std::string blankNote(const FieldTable& table, const Field& field)
{
    if (field.kind != Kind::Number)
        return "";
    const std::int32_t value = getNumber(*table.make(), field);
    return value == field.fallback ? "" : std::to_string(value) + " in a blank row";
}

/// All that is to be said of a field beyond its form.
std::string notes(const FieldTable& table, const Field& field)
{
    const std::string key = toUtf8(field.key);
    std::string all;
    const auto add = [&](const std::string& note) {
        if (!note.empty())
            all += (all.empty() ? "" : "; ") + note;
    };
    add(field.fallback == 0 ? "" : "default " + std::to_string(field.fallback));
    add(blankNote(table, field));
    add(toUtf8(field.note));
    add(field.form == NumberForm::ZeroOrOne ? "written 1 for all but 0" : "");
    add(field.form == NumberForm::OneOnly ? "written 1 for 1, else 0" : "");
    add(writtenNote(field));
    add(keyList(field, key));
    add(referenceNote(field));
    add(choiceNote(field));
    if (field.child != Field::kAttribute)
        add("text of child element " + std::to_string(field.child + 1) + ", written as `" + key +
            "`");
    if (field.kind == Kind::ChildRows && field.children->entries == Entries::InContainer)
        add("in the first child `" + key + "`, whatever their names");
    if (field.kind == Kind::ChildRows && field.children->entries == Entries::ByAttribute)
        add("every child that has `" + toUtf8(field.children->table().fields.front().key) + "`");
    return all;
}

std::string fieldLine(const FieldTable& table, const Field& field)
{
    const auto offset = recordOffset(table, field);
    const bool isAttribute = field.kind != Kind::CDataTexts && field.kind != Kind::ChildRows &&
                             field.child == Field::kAttribute;
    return "| " + (offset ? std::to_string(*offset) : "") + " | " +
           (isAttribute ? "`" + toUtf8(field.key) + "`" : "") + " | " + formName(field) + " | " +
           toUtf8(field.label) + " | " + notes(table, field) + " |\n";
}

void describeRows(const FieldTable& table, std::string& page, std::set<WStringView>& told)
{
    page += "Element `" + toUtf8(table.element) + "`" +
            (table.selfClosing ? ", self-closing" : ", with an end tag") +
            (table.swapsNames && table.find(u"name2") ? ", names by language" : "") +
            ":\n\n| Offset | Key | Form | Meaning | Notes |\n| --- | --- | --- | --- | --- |\n";
    std::string codecs;
    for (const Field& field : table.fields) {
        if (field.codec)
            codecs += "- " + toUtf8(field.label) + ": " + toUtf8(field.codec->form) + "\n";
        else
            page += fieldLine(table, field);
    }
    page += codecs.empty() ? "\n" : "\n" + codecs + "\n";
    for (const Field& field : table.fields) {
        if (!field.children || !told.insert(field.children->table().className).second)
            continue;
        page += "### `" + toUtf8(field.children->table().className) + "`\n\n";
        describeRows(field.children->table(), page, told);
    }
}

} // namespace

std::string composeTablePage()
{
    std::string page(kIntroduction);
    std::set<WStringView> told;
    for (const GameTable* const table : knownTables()) {
        const TableInfo& info = table->getInfo();
        const FieldTable& rows = table->getFieldTable();
        page += "## `" + toUtf8(info.className) + "` of `" + toUtf8(rows.className) + "`\n\n";
        page += info.tagName.empty() ? "No tag" : "Tag `" + toUtf8(info.tagName) + "`";
        if (info.datName.empty())
            page += ", file `" + toUtf8(info.fileName) + "`";
        else
            page += ", files `" + toUtf8(info.tagName) + ".xml` and `" + toUtf8(info.datName) +
                    "` with records of " + std::to_string(rows.recordSize) + " bytes";
        page += "; usually at least " + std::to_string(info.minRows) + " rows. ";
        describeRows(rows, page, told);
    }
    page.pop_back();
    return page;
}

} // namespace varn::test

#include "Game/Database/RowFiller.h"

namespace varn::test {

namespace {

void fillChildren(GameRow& row, const Field& field, std::int32_t seed)
{
    const ChildRows& list = *field.children;
    // The conditions of a message stand there from the start; other lists are filled.
    if (list.size(row) == 0) {
        NodeArena arena;
        const Element* const any = arena.makeElement(u"any");
        list.append(row, *any);
        list.append(row, *any);
    }
    for (std::size_t i = 0; i < list.size(row); i++) {
        GameRow& child = list.at(row, i);
        const std::int32_t id = getNumber(child, list.table().fields.front());
        fillRow(child, seed + 7 * static_cast<std::int32_t>(i));
        if (id >= 10) // a condition's id tells what it is
            setNumber(child, list.table().fields.front(), id);
    }
}

void fillField(GameRow& row, const Field& field, std::int32_t seed)
{
    const WString text = u"t" + toDecimal(seed) + u"<&\"'>\u3042";
    switch (field.kind) {
    case Kind::Number:
        setNumber(row, field, field.form == NumberForm::Plain ? 1 + seed % 100 : 1);
        break;
    case Kind::Array:
    case Kind::DiceText:
        for (std::size_t i = 0; i < field.count; i++)
            setNumber(row, field, 1 + (seed + static_cast<std::int32_t>(i)) % 120, i);
        break;
    case Kind::List:
        setText(row, field, toDecimal(1 + seed % 99) + u",0,255");
        break;
    case Kind::CDataTexts:
        for (std::size_t i = 0; i < field.count; i++)
            setText(row, field, text + u"\r\n\t\\n&amp;" + toDecimal(static_cast<int>(i)), i);
        break;
    case Kind::FixedText:
    case Kind::NarrowText:
    case Kind::WideText:
        setText(row, field, text);
        break;
    case Kind::ChildRows:
        fillChildren(row, field, seed);
        break;
    case Kind::Custom:
        break;
    }
}

void describe(const GameRow& row, WString& out)
{
    const std::unique_ptr<GameRow> blank = row.getFieldTable().make();
    for (const Field& field : row.getFieldTable().fields) {
        const bool lost = field.older.rank == OlderKey::Only;
        out.append(field.key).append(u"=");
        for (std::size_t i = 0; i < (field.kind == Kind::CDataTexts ? field.count : 1u); i++)
            out.append(getText(lost ? *blank : row, field, i)).append(u"|");
        if (field.kind != Kind::ChildRows)
            continue;
        out += u"[";
        for (std::size_t i = 0; i < field.children->size(row); i++)
            describe(field.children->at(const_cast<GameRow&>(row), i), out);
        out += u"]";
    }
}

} // namespace

void fillRow(GameRow& row, std::int32_t seed)
{
    for (const Field& field : row.getFieldTable().fields)
        fillField(row, field, seed += 3);
}

WString describeRow(const GameRow& row)
{
    WString out;
    describe(row, out);
    return out;
}

} // namespace varn::test

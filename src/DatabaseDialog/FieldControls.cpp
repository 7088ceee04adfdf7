// Which control edits which kind of field.
#include "DatabaseDialog/FieldControl.h"

#include "Component/Translation.h"
#include "DatabaseDialog/ListControls.h"
#include "DatabaseDialog/SimpleControls.h"

namespace varn {

namespace {

constexpr int kLinesOfNote = 3, kLinesOfText = 10;

/// The row has it by its place or by the menu of its list; or only a reader knows it.
bool hasControl(const Field& field)
{
    if (field.key == u"marker" || (field.key == u"id" && field.refersTo.empty()))
        return false;
    return !field.codec || field.codec->texts;
}

/// Entries that fit in a line, with a label each.
bool isLine(const Field& field)
{
    constexpr std::uint16_t kMostEntries = 10;
    return field.kind == Kind::DiceText ||
           (field.kind == Kind::Array && !field.choices.empty() && field.count <= kMostEntries);
}

std::unique_ptr<FieldControl> makeNumber(const Field& field)
{
    if (field.refers == Refers::Bits)
        return std::make_unique<BitsControl>(field);
    if (!field.choices.empty() || !field.refersTo.empty() || field.refersToOf)
        return std::make_unique<ChoiceControl>(field);
    if (field.control == Control::Colour)
        return std::make_unique<ColourControl>(field);
    if (field.control == Control::YesNo || field.number == NumberType::Bool)
        return std::make_unique<YesNoControl>(field);
    return std::make_unique<NumberControl>(field);
}

WString labelOfText(const Field& field, std::size_t index)
{
    if (index == 0)
        return translate(field.label);
    return translate(field.label) + u" (" + translate(u"Second Language") + u')';
}

void addTexts(const Field& field, std::vector<LabelledControl>& controls)
{
    if (field.codec) {
        const std::span<const WStringView> labels = field.codec->texts->labels;
        for (std::size_t index = 0; index < labels.size(); ++index)
            controls.push_back({translate(labels[index]), &field,
                                std::make_unique<TextAreaControl>(field, index, kLinesOfNote)});
        return;
    }
    const int lines = field.child == Field::kAttribute ? kLinesOfText : kLinesOfNote;
    for (std::size_t index = 0; index < field.count; ++index)
        controls.push_back({labelOfText(field, index), &field,
                            std::make_unique<TextAreaControl>(field, index, lines)});
}

/// The field and those behind it that run with it.
std::unique_ptr<FieldControl> makeList(std::span<const Field> fields, std::size_t first)
{
    std::vector<const Field*> lists{&fields[first]};
    for (std::size_t next = first + 1; next < fields.size() && fields[next].besideLast; ++next)
        lists.push_back(&fields[next]);
    return std::make_unique<ListControl>(std::move(lists));
}

} // namespace

std::vector<LabelledControl> makeFieldControls(const FieldTable& table)
{
    std::vector<LabelledControl> controls;
    for (std::size_t place = 0; place < table.fields.size(); ++place) {
        const Field& field = table.fields[place];
        if (!hasControl(field) || field.besideLast)
            continue;
        if (field.codec || field.kind == Kind::CDataTexts || field.child != Field::kAttribute) {
            addTexts(field, controls);
            continue;
        }
        std::unique_ptr<FieldControl> control;
        switch (field.kind) {
        case Kind::Number:
            control = makeNumber(field);
            break;
        case Kind::Array:
        case Kind::DiceText:
            control = isLine(field) ? std::make_unique<NumberLineControl>(field)
                                    : makeList(table.fields, place);
            break;
        case Kind::List:
            control = makeList(table.fields, place);
            break;
        case Kind::ChildRows:
            control = std::make_unique<ChildRowsControl>(field);
            break;
        default:
            control = std::make_unique<TextControl>(field);
            break;
        }
        controls.push_back({translate(field.label), &field, std::move(control)});
    }
    return controls;
}

} // namespace varn

#include "DatabaseDialog/FieldPane.h"

#include "Component/Translation.h"
#include "DatabaseDialog/Mnemonics.h"

#include <algorithm>

namespace varn {

namespace {

constexpr int kLinesOfColumn = 16; // more are split

/// The value counts in this row: it would be written if there were one.
bool countsIn(const GameRow& row, const FieldTable& table, const Field& field)
{
    if (!field.written || isWritten(row, field))
        return true;
    const std::unique_ptr<GameRow> other = table.clone(row);
    setText(*other, field, u"1");
    return isWritten(*other, field);
}

/// A label beside a control of a line or two, above one that wants the width.
Label& addField(FormLayout& form, GroupComponent& pane, FieldControl& control)
{
    constexpr int kLinesBeside = 2;
    if (control.getLines() <= kLinesBeside)
        return form.addRow({}, control.getWindow());
    Label& label = pane.add<Label>();
    form.addWide(label);
    form.addWide(control.getWindow());
    return label;
}

} // namespace

FieldPane::FieldPane(const FieldTable& table, Columns columns)
    : table(table), layout(columns), controls(makeFieldControls(table))
{
    for (LabelledControl& each : controls)
        each.control->onChange([this, &each] { changed(each); });
}

FieldPane::~FieldPane() = default;

void FieldPane::onCreate()
{
    places.clear();
    forms.clear();
    columnPanes.clear();
    int lines = 0;
    for (const LabelledControl& each : controls)
        lines += each.control->getLines();
    const bool isSplit = layout == Columns::Fit && lines > kLinesOfColumn;
    const std::size_t columnCount = isSplit ? 2 : 1;
    BoxLayout sideBySide(*this, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    for (std::size_t column = 0; column < columnCount; ++column) {
        GroupComponent& pane = *columnPanes.emplace_back(std::make_unique<GroupComponent>());
        sideBySide.add(pane, 1);
        forms.emplace_back(pane);
    }
    Mnemonics mnemonics;
    int above = 0;
    for (const LabelledControl& each : controls) {
        const int itsLines = each.control->getLines();
        const bool isBelowHalf = 2 * above + itsLines > lines;
        const std::size_t column = isSplit && isBelowHalf ? 1 : 0;
        Label& label = addField(forms[column], *columnPanes[column], *each.control);
        label.setText(mnemonics.mark(each.label) + u':');
        label.setBuddy(each.control->getWindow());
        places.push_back({column, &label});
        above += itsLines;
    }
    show(nullptr);
}

void FieldPane::show(GameRow* next)
{
    row = next;
    setEnabled(row != nullptr);
    if (!row)
        return;
    for (const LabelledControl& each : controls)
        each.control->show(*row);
    fitToRow();
    for (std::size_t place = 0; place < controls.size(); ++place)
        tellProblem(place);
}

void FieldPane::store()
{
    if (row)
        for (const LabelledControl& each : controls)
            each.control->store(*row);
}

void FieldPane::refreshChoices()
{
    for (const LabelledControl& each : controls)
        each.control->refreshChoices();
}

FieldControl* FieldPane::findControl(WStringView key, std::size_t index) const
{
    for (const LabelledControl& each : controls)
        if (each.field->key == key && index-- == 0)
            return each.control.get();
    return nullptr;
}

void FieldPane::changed(LabelledControl& changedControl)
{
    if (!row)
        return;
    changedControl.control->store(*row);
    fitToRow();
    tellProblem(static_cast<std::size_t>(&changedControl - controls.data()));
    fireAction();
}

/// Values that do not count in this row leave the form, as the gold of a message without a price.
void FieldPane::fitToRow()
{
    for (std::size_t place = 0; place < places.size(); ++place) {
        if (!controls[place].field->written)
            continue;
        const bool counts = countsIn(*row, table, *controls[place].field);
        controls[place].control->getWindow().setVisible(counts);
        places[place].label->setVisible(counts);
    }
}

void FieldPane::tellProblem(std::size_t place)
{
    if (place < places.size())
        forms[places[place].column].setProblem(controls[place].control->getWindow(),
                                               controls[place].control->findProblem());
}

} // namespace varn

#include "DatabaseDialog/FilterPane.h"

#include "Component/Layout.h"
#include "Component/Translation.h"

#include <algorithm>

namespace varn {

FilterPane::FilterPane(const FieldTable& table)
{
    filters.push_back({Filter::Kind::All, nullptr, translate(u"Unspecified")});
    filters.push_back({Filter::Kind::Configured, nullptr, translate(u"Configured")});
    for (const Field& field : table.fields) {
        const bool hasValues =
            !field.choices.empty() || !field.refersTo.empty() || field.control == Control::YesNo;
        if (field.kind == Kind::Number && hasValues && field.key != u"marker")
            filters.push_back({Filter::Kind::Value, &field, translate(field.label)});
    }
}

void FilterPane::onCreate()
{
    BoxLayout column(*this, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    column.add(words);
    words.setPlaceholder(u"Filter");
    words.setAccessibleName(u"Filter");
    words.onChange([this] { tell(); });
    GroupComponent& line = add<GroupComponent>();
    column.add(line);
    BoxLayout row(line, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    row.add(kinds, 1).add(choices, 1);
    std::vector<WString> texts;
    for (const Filter& filter : filters)
        texts.push_back(filter.text);
    kinds.setItems(texts);
    kinds.setAccessibleName(u"Filter");
    kinds.onAction([this] {
        fillValues();
        tell();
    });
    choices.setAccessibleName(u"Value");
    choices.onAction([this] { tell(); });
    fillValues();
}

void FilterPane::fillValues()
{
    const int selected = kinds.getSelectedIndex();
    const Filter& filter = filters[static_cast<std::size_t>(std::max(0, selected))];
    values.clear();
    if (filter.field && filter.field->control == Control::YesNo)
        values = {{1, translate(u"true")}, {0, translate(u"false")}};
    else if (filter.field)
        values = choicesOf(*filter.field, nullptr);
    std::vector<WString> texts;
    for (const Choice& value : values)
        texts.push_back(value.text);
    choices.setItems(texts);
    choices.setVisible(!values.empty());
}

void FilterPane::tell()
{
    if (listener)
        listener->filterChanged();
}

bool FilterPane::passes(const GameRow& row, WStringView text) const
{
    const auto folded = [](WStringView from) {
        WString small(from);
        std::ranges::transform(small, small.begin(), toSmallLetter);
        return small;
    };
    if (folded(text).find(folded(words.getText())) == WString::npos)
        return false;
    const int kind = kinds.getSelectedIndex();
    if (kind <= 0)
        return true;
    const Filter& filter = filters[static_cast<std::size_t>(kind)];
    if (filter.kind == Filter::Kind::Configured)
        return !row.getName().empty();
    const int selected = choices.getSelectedIndex();
    if (selected < 0 || static_cast<std::size_t>(selected) >= values.size())
        return true;
    const std::int32_t wanted = values[static_cast<std::size_t>(selected)].value;
    const std::int32_t value = varn::getNumber(row, *filter.field);
    if (filter.field->refers == Refers::Bits)
        return (static_cast<std::uint32_t>(value) >> wanted & 1) != 0;
    if (filter.field->control == Control::YesNo)
        return (value != 0) == (wanted != 0);
    return value == wanted;
}

void FilterPane::setText(WStringView text)
{
    words.setText(text);
    tell();
}

void FilterPane::chooseFilter(WStringView key, std::int32_t value)
{
    const auto found = std::ranges::find_if(
        filters, [&](const Filter& filter) { return filter.field && filter.field->key == key; });
    kinds.setSelectedIndex(found == filters.end() ? 0 : static_cast<int>(found - filters.begin()));
    fillValues();
    const auto place = std::ranges::find(values, value, &Choice::value);
    if (place != values.end())
        choices.setSelectedIndex(static_cast<int>(place - values.begin()));
    tell();
}

} // namespace varn

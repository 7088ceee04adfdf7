#include "MapEditor3D/frame/panes/RowChoice.h"

#include "Component/Layout.h"
#include "Component/Translation.h"

#include <algorithm>

namespace varn {

namespace {

RowChoice::Opener& opener()
{
    static RowChoice::Opener function;
    return function;
}

/// Rows up to the last one with a name: those behind it only fill the table.
std::int32_t namedRows(const GameTable& table)
{
    auto count = static_cast<std::int32_t>(table.size());
    while (count > 0 && table.rowAt(static_cast<std::size_t>(count - 1)).getName().empty())
        --count;
    return count > 0 ? count : static_cast<std::int32_t>(table.size());
}

} // namespace

WString rowText(const GameTable& table, std::int32_t row)
{
    const GameRow* const found = table.findRow(row);
    const WString number = toDecimal(row);
    if (!found)
        return number + u"  (" + translate(u"no such row") + u")";
    const WString name = found->getName();
    return number + u"  " + (name.empty() ? translate(u"(unnamed)") : name);
}

void RowChoice::setOpener(Opener next)
{
    opener() = std::move(next);
}

void RowChoice::setTable(const GameTable& next)
{
    table = &next;
    refresh();
}

void RowChoice::onCreate()
{
    BoxLayout row(*this, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    constexpr int kLeastWidth = 96;
    row.add(list, 1).add(openButton);
    list.setMinimumSize(kLeastWidth, 0);
    openButton.setText(u"\u2026");
    openButton.setHint(u"Open this row in its table");
    openButton.setVisible(opener() != nullptr);
    openButton.onAction([this] {
        if (opener() && table)
            opener()(table->getTagName(), getRow());
    });
    list.onAction([this] { fireAction(); });
    fill();
}

void RowChoice::applyTexts()
{
    GroupComponent::applyTexts();
    refresh();
}

void RowChoice::refresh()
{
    if (!list.getHandle())
        return;
    const std::int32_t row = getRow();
    fill();
    setRow(row);
}

void RowChoice::fill()
{
    numbers.clear();
    if (!noneEnglish.empty())
        numbers.push_back(noneNumber);
    for (std::int32_t row = firstRow; table && row < namedRows(*table); ++row)
        numbers.push_back(row);
    showNumbers();
}

void RowChoice::showNumbers()
{
    std::vector<WString> texts;
    for (const std::int32_t number : numbers) {
        const bool isNone = !noneEnglish.empty() && number == noneNumber;
        texts.push_back(isNone  ? translate(noneEnglish)
                        : table ? rowText(*table, number)
                                : toDecimal(number));
    }
    list.setItems(texts);
}

std::int32_t RowChoice::getRow() const
{
    const int index = list.getSelectedIndex();
    return index < 0 || index >= static_cast<int>(numbers.size())
               ? noneNumber
               : numbers[static_cast<std::size_t>(index)];
}

void RowChoice::setRow(std::int32_t row)
{
    if (!noneEnglish.empty() && row < 0)
        row = noneNumber;
    auto found = std::ranges::find(numbers, row);
    if (found == numbers.end()) { // kept, and told for what it is
        numbers.push_back(row);
        showNumbers();
        found = numbers.end() - 1;
    }
    list.setSelectedIndex(static_cast<int>(found - numbers.begin()));
}

} // namespace varn

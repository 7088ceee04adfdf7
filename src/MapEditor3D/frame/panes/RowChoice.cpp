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
    row.add(list, 1).add(openButton);
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
    std::vector<WString> texts;
    if (!noneEnglish.empty()) {
        numbers.push_back(noneNumber);
        texts.push_back(translate(noneEnglish));
    }
    for (std::size_t row = 0; table && row < table->size(); ++row) {
        numbers.push_back(static_cast<std::int32_t>(row));
        texts.push_back(rowText(*table, numbers.back()));
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
        fill();
        numbers.push_back(row);
        std::vector<WString> texts;
        for (const std::int32_t number : numbers)
            texts.push_back(!noneEnglish.empty() && number == noneNumber ? translate(noneEnglish)
                            : table                                      ? rowText(*table, number)
                                                                         : toDecimal(number));
        list.setItems(texts);
        found = numbers.end() - 1;
    }
    list.setSelectedIndex(static_cast<int>(found - numbers.begin()));
}

} // namespace varn

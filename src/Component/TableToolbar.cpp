#include "Component/TableToolbar.h"

#include "Component/Layout.h"

namespace varn {

TableToolbar::PlusButton::PlusButton() : Button(u"+")
{
    setHint(u"Add a row");
}

TableToolbar::MinusButton::MinusButton() : Button(u"\u2212")
{
    setHint(u"Remove the row");
}

TableToolbar::DirectionButton::DirectionButton(bool upwards)
    : Button(upwards ? u"\u25B2" : u"\u25BC"), upwards(upwards)
{
    setHint(upwards ? WStringView(u"Move the row up") : WStringView(u"Move the row down"));
}

TableToolbar::TableToolbar(bool ordered) : ToolWindow({}, {}), ordered(ordered) {}

void TableToolbar::onCreate()
{
    constexpr int kButtonWidth = 32, kButtonHeight = 26;
    BoxLayout row(*this, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    const auto addButton = [&](Button& button, auto action) {
        row.add(button);
        button.setFixedSize(kButtonWidth, kButtonHeight);
        button.onAction([this, action] {
            if (listener)
                action(*listener, *this);
        });
    };
    addButton(plus, [](Listener& heard, TableToolbar& bar) { heard.plusPressed(bar); });
    addButton(minus, [](Listener& heard, TableToolbar& bar) { heard.minusPressed(bar); });
    if (ordered) {
        const auto move = [](bool upwards) {
            return [upwards](Listener& heard, TableToolbar& bar) {
                heard.directionPressed(bar, upwards);
            };
        };
        addButton(up, move(true));
        addButton(down, move(false));
    }
    row.addStretch();
}

NativeHandle TableToolbar::makeHandle(NativeHandle parent)
{
    return GroupComponent::makeHandle(parent); // stays where its table is
}

} // namespace varn

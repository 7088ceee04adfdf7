#include "MapEditor3D/frame/dialogs/CommandFinderDialog.h"

#include <algorithm>

namespace varn {

CommandFinderDialog::CommandFinderDialog(const CommandFinder& finder)
    : Dialog(u"Find Command"), finder(finder)
{}

void CommandFinderDialog::build()
{
    setInitialSize(560, 400);
    setButtons(u"Run", u"Cancel");
    BoxLayout rows(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    rows.add(query).add(table, 1);
    query.setPlaceholder(u"Type a command");
    query.setAccessibleName(u"Type a command");
    query.onChange([this] { search(); });
    query.onStep = [this](int by) {
        if (found.empty())
            return;
        const int last = getRowCount() - 1;
        table.selectRow(std::clamp(table.getSelectedRow() + by, 0, last));
        table.ensureRowVisible(table.getSelectedRow());
    };
    table.setColumns({{u"Command", 220}, {u"Menu", 0}, {u"Keys", 110}});
    table.setModel(this);
    table.setEmptyText(u"No command has these letters.");
    table.on(kEventListener, [this](const EventObject& event) {
        if (event.id == kReturnCode && accept())
            end(Ok);
    });
    search();
}

WString CommandFinderDialog::getValueAt(int row, int column) const
{
    const FoundCommand& command = found.at(static_cast<std::size_t>(row));
    return column == 0 ? command.title : column == 1 ? command.path : command.shortcut;
}

void CommandFinderDialog::search()
{
    found = finder.find(query.getText(), std::max<std::size_t>(finder.size(), 1));
    fireTableChanged({TableModelEvent::Changed, -1, -1});
    table.selectRow(found.empty() ? -1 : 0);
    setOkEnabled(!found.empty());
}

bool CommandFinderDialog::accept()
{
    const int row = table.getSelectedRow();
    if (row < 0 || row >= getRowCount())
        return false;
    chosen = found[static_cast<std::size_t>(row)];
    return true;
}

MessageResult CommandFinderDialog::Query::windowProc(NativeHandle window, std::uint32_t message,
                                                     WordParam wParam, LongParam lParam)
{
    constexpr int kPage = 8;
    if (message == kKeyDownMessage) {
        const int key = static_cast<int>(wParam);
        const int by = key == kKeyUp         ? -1
                       : key == kKeyDown     ? 1
                       : key == kKeyPageUp   ? -kPage
                       : key == kKeyPageDown ? kPage
                                             : 0;
        if (by != 0 && onStep) {
            onStep(by);
            return 1;
        }
    }
    return TextField::windowProc(window, message, wParam, lParam);
}

} // namespace varn

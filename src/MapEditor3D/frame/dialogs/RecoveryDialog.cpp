#include "MapEditor3D/frame/dialogs/RecoveryDialog.h"

#include "Component/Translation.h"
#include "Util/Exception.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <ctime>

namespace varn {

namespace {

WString timeText(std::int64_t ms)
{
    const auto seconds = static_cast<std::time_t>(ms / 1000);
    std::tm local{};
    char text[32] = "";
    if (::localtime_r(&seconds, &local))
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return fromUtf8(text);
}

} // namespace

RecoveryDialog::RecoveryDialog(std::vector<FoundRecovery> found)
    : Dialog(u"Unsaved strokes"), found(std::move(found)), discardButton(u"&Throw away")
{}

void RecoveryDialog::build()
{
    setInitialSize(560, 320);
    setButtons(u"Bring back", u"Later");
    BoxLayout rows(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    rows.add(question).add(table, 1).add(below);
    question.setWrapped(true);
    question.setLabel(u"There are unsaved strokes from the last session. Bring them back?");
    table.setColumns({{u"Floor", 200}, {u"Drawn", 170}, {u"Note", 0}});
    table.setModel(this);
    table.selectRow(0);
    table.on(kEventListener, [this](const EventObject& event) {
        if (event.id == kReturnCode && accept())
            end(Ok);
    });
    BoxLayout row(below, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    row.add(note, 1).add(discardButton);
    note.setDimmed(true);
    note.setWrapped(true);
    note.setLabel(u"The files of the project are as they were saved last.");
    discardButton.onAction([this] { discard(); });
}

WString RecoveryDialog::getValueAt(int row, int column) const
{
    const FoundRecovery& record = found.at(static_cast<std::size_t>(row));
    if (column == 0)
        return WString(fileNameOf(record.mapName));
    if (column == 1)
        return timeText(record.savedAtMs);
    return record.isMapNewer ? translate(u"The floor was saved later.") : WString();
}

bool RecoveryDialog::accept()
{
    const int row = table.getSelectedRow();
    if (row < 0 || row >= getRowCount())
        return false;
    chosen = found[static_cast<std::size_t>(row)];
    return true;
}

void RecoveryDialog::discard()
{
    const int row = table.getSelectedRow();
    if (row < 0 || row >= getRowCount())
        return;
    discardRecovery(found[static_cast<std::size_t>(row)]);
    found.erase(found.begin() + row);
    fireTableChanged({TableModelEvent::Removed, row, -1});
    if (found.empty())
        end(Cancelled);
    else
        table.selectRow(0);
}

bool RecoveryDialog::offer(BaseWindow* parent, const std::filesystem::path& stateFolder,
                           const std::filesystem::path& project, WizMapEditor& editor)
{
    std::vector<FoundRecovery> found = findRecovery(stateFolder, project);
    if (found.empty())
        return false;
    RecoveryDialog dialog(std::move(found));
    if (dialog.doModal(parent) != Ok || !dialog.getChosen()) {
        for (const FoundRecovery& left : dialog.found)
            putAside(left);
        return false;
    }
    try {
        editor.load(dialog.getChosen()->mapName + u".map");
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
        return false;
    }
    return applyRecovery(*dialog.getChosen(), editor);
}

} // namespace varn

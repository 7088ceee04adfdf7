#pragma once

#include "Component/Dialog.h"
#include "Component/Table.h"
#include "MapEditor3D/recovery/RecoveryFile.h"

namespace varn {

/// Offers what a run that was cut off left of a project's floors.
class RecoveryDialog final : public Dialog, private TableModel
{
  public:
    explicit RecoveryDialog(std::vector<FoundRecovery> found);

    /// The floor to bring back; null: none. What was thrown away is gone already.
    const FoundRecovery* getChosen() const { return chosen ? &*chosen : nullptr; }

    /// Looks for kept strokes, asks, opens the floor in the editor and puts them over it. What is
    /// not decided on is offered again at the next start. True: a floor was brought back and is
    /// open.
    static bool offer(BaseWindow* parent, const std::filesystem::path& stateFolder,
                      const std::filesystem::path& project, WizMapEditor& editor);

  protected:
    void build() override;
    bool accept() override;

  private:
    int getRowCount() const override { return static_cast<int>(found.size()); }
    int getColumnCount() const override { return 3; }
    WString getValueAt(int row, int column) const override;
    void discard();

    std::vector<FoundRecovery> found;
    std::optional<FoundRecovery> chosen;
    Label question, note;
    GroupComponent below;
    Table table;
    Button discardButton;
};

} // namespace varn

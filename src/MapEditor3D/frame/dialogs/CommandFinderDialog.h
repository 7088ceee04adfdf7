#pragma once

#include "Component/Dialog.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "MapEditor3D/canvas/CommandFinder.h"

namespace varn {

/// Finds a command as one types: the list narrows, Up and Down choose, Return takes it.
class CommandFinderDialog final : public Dialog, private TableModel
{
  public:
    /// @param finder  borrowed
    explicit CommandFinderDialog(const CommandFinder& finder);

    /// The command that was chosen, to be dispatched behind the dialog; nothing: it was closed.
    const std::optional<FoundCommand>& getChosen() const { return chosen; }

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override { return &query; }

  private:
    /// The field, whose Up and Down move in the list.
    class Query final : public TextField
    {
      public:
        MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                 LongParam lParam) override;
        std::function<void(int)> onStep;
    };

    int getRowCount() const override { return static_cast<int>(found.size()); }
    int getColumnCount() const override { return 3; }
    WString getValueAt(int row, int column) const override;
    void search();

    const CommandFinder& finder;
    std::vector<FoundCommand> found;
    std::optional<FoundCommand> chosen;
    Query query;
    Table table;
};

} // namespace varn

#pragma once

#include "Component/CheckBox.h"
#include "Component/Dialog.h"
#include "Component/TextArea.h"
#include "Component/TreeView.h"
#include "MapEditor3D/export/ProjectExport.h"

namespace varn {

/// "Exporting Game Data": where the finished game goes and which maps go with it.
class ExportProjectDialog final : public Dialog
{
  public:
    explicit ExportProjectDialog(ProjectSession& session);

    /// What was settled, once OK closed the dialog.
    const ExportOptions& getOptions() const { return options; }

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override { return &target; }

  private:
    void fillTree();
    void chooseTarget();

    ProjectSession& session;
    ExportOptions options;
    GroupComponent row;
    TextField target;
    Button browse;
    TextCheckBox renamed; ///< kept as a control only
    TreeView tree;
    Label summary;
    std::optional<FormLayout> form;
};

/// The whole of the command: asks where, exports with progress and cancel, and ends with one box
/// that tells what was made and what was left out, and offers to open the folder.
/// False: it did not come to its end.
bool exportProjectWithDialog(ProjectSession& session, BaseWindow* parent);

} // namespace varn

#pragma once

#include "Component/Dialog.h"
#include "Component/Table.h"
#include "MapEditor3D/project/RecentProjects.h"

namespace varn {

/// What the tool shows when it is started outside of a project: open a copy of the demo, make a new
/// project here, or go on with one of the recent ones. Each is done by the dialog itself.
class WelcomeDialog final : public Dialog, private TableModel
{
  public:
    /// @param recent  the list, borrowed; projects that are opened are added by who opens them
    explicit WelcomeDialog(RecentProjects& recent);

    /// The project to go on with, absolute: the working directory, where the tool just goes on, or
    /// another folder, in which it is to be started (`startToolIn`). Empty: the dialog was closed.
    const std::filesystem::path& getProject() const { return project; }

  protected:
    void build() override;
    bool accept() override;
    void opened() override;

  private:
    int getRowCount() const override;
    int getColumnCount() const override { return 2; }
    WString getValueAt(int row, int column) const override;

    void update();
    void openDemo();
    void makeHere();
    void createElsewhere();
    void openOther();
    void forget();
    void goOn(std::filesystem::path folder);

    RecentProjects& recent;
    std::filesystem::path project;
    Label heading, place;
    Button demo, here, create, other, forgetButton;
    GroupComponent choices, below;
    Label recentLabel;
    Table table;
};

} // namespace varn

#include "MapEditor3D/frame/dialogs/WelcomeDialog.h"

#include "Component/Translation.h"
#include "MapEditor3D/frame/dialogs/CreateProjectDialog.h"
#include "MapEditor3D/project/NewProject.h"
#include "Util/Exception.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace fs = std::filesystem;

namespace {

constexpr int kHeadingHeight = 20;
constexpr const char* kDemoName = "The Sunken Priory";

/// A name that is free in a folder: "Demo", "Demo 2", ...
fs::path freeNameIn(const fs::path& folder, const std::string& name)
{
    std::error_code ignored;
    fs::path place = folder / name;
    for (int i = 2; fs::exists(place, ignored); ++i)
        place = folder / (name + " " + std::to_string(i));
    return place;
}

} // namespace

WelcomeDialog::WelcomeDialog(RecentProjects& recent)
    : Dialog(kProductName), recent(recent), demo(u"Open a copy of the &demo game"),
      here(u"&Make a new project here"), create(u"&New project in another folder..."),
      other(u"&Open another folder..."), forgetButton(u"&Forget")
{}

void WelcomeDialog::build()
{
    setInitialSize(640, 480);
    setButtons(u"Open", u"Exit");
    BoxLayout rows(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    rows.add(heading).add(place).add(choices).add(recentLabel).add(table, 1).add(below);
    heading.setFontHeight(kHeadingHeight);
    heading.setLabel(u"This folder is not a project yet.");
    place.setDimmed(true);

    BoxLayout buttons(choices, BoxLayout::Axis::Column, BoxLayout::Margin::None);
    buttons.add(demo).add(here).add(create).add(other);
    const WStringView fault = newProjectFault(fs::current_path());
    here.setEnabled(fault.empty());
    place.setText(toWide(fs::current_path()) +
                  (fault.empty() ? WString() : u" - " + translate(fault)));
    demo.onAction([this] { openDemo(); });
    here.onAction([this] { makeHere(); });
    create.onAction([this] { createElsewhere(); });
    other.onAction([this] { openOther(); });

    recentLabel.setLabel(u"&Recent projects");
    recentLabel.setBuddy(table);
    table.setColumns({{u"Project", 180}, {u"Path", 0}});
    table.setModel(this);
    table.setEmptyText(u"Projects that you open are listed here.");
    table.selectRow(recent.list().empty() ? -1 : 0);
    table.on(kEventListener, [this](const EventObject& event) {
        if (event.id == kReturnCode && accept())
            end(Ok);
    });
    table.onAction([this] { update(); });
    BoxLayout row(below, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    row.addStretch().add(forgetButton);
    forgetButton.setHint(u"Takes the project out of the list; its folder stays");
    forgetButton.onAction([this] { forget(); });
}

void WelcomeDialog::opened()
{
    update();
}

void WelcomeDialog::update()
{
    const bool any = table.getSelectedRow() >= 0;
    setOkEnabled(any);
    forgetButton.setEnabled(any);
}

int WelcomeDialog::getRowCount() const
{
    return static_cast<int>(recent.list().size());
}

WString WelcomeDialog::getValueAt(int row, int column) const
{
    const fs::path& folder = recent.list().at(static_cast<std::size_t>(row));
    return toWide(column == 0 ? folder.filename() : folder.parent_path());
}

bool WelcomeDialog::accept()
{
    const int row = table.getSelectedRow();
    if (row < 0)
        return false;
    const fs::path folder = recent.list().at(static_cast<std::size_t>(row));
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) {
        host().showMessage(translateWith(u"%1 is not there any more.", {toWide(folder)}));
        return false;
    }
    project = folder;
    return true;
}

void WelcomeDialog::goOn(fs::path folder)
{
    project = std::move(folder);
    end(Ok);
}

void WelcomeDialog::openDemo()
{
    const auto chosen = host().chooseFolder(u"Select a Folder");
    if (!chosen)
        return;
    try {
        const fs::path folder = freeNameIn(toUtf8(*chosen), kDemoName);
        copyDemo(folder);
        goOn(folder);
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
    }
}

void WelcomeDialog::makeHere()
{
    try {
        const fs::path folder = fs::current_path();
        makeNewProject(folder, toWide(folder.filename()));
        goOn(folder);
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
    }
}

void WelcomeDialog::createElsewhere()
{
    CreateProjectDialog dialog;
    dialog.doModal(&getPane());
    if (dialog.isToOpen())
        goOn(dialog.getProject());
    else if (!dialog.getProject().empty())
        recent.add(dialog.getProject());
    table.setModel(this);
}

void WelcomeDialog::openOther()
{
    const auto chosen = host().chooseFolder(u"Select a Folder");
    if (!chosen)
        return;
    const fs::path folder = toUtf8(*chosen);
    if (isProjectFolder(folder))
        goOn(folder);
    else
        host().showMessage(u"This folder is not a project yet.");
}

void WelcomeDialog::forget()
{
    const int row = table.getSelectedRow();
    if (row < 0)
        return;
    recent.remove(fs::path(recent.list().at(static_cast<std::size_t>(row))));
    fireTableChanged({TableModelEvent::Removed, row, -1});
    update();
}

} // namespace varn

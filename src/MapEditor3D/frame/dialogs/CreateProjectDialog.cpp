#include "MapEditor3D/frame/dialogs/CreateProjectDialog.h"

#include "Component/Translation.h"
#include "MapEditor3D/project/NewProject.h"
#include "Util/Exception.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace fs = std::filesystem;

namespace {

constexpr int kMostUnits = 260;

/// Whether a text can be the name of one folder.
bool isFolderName(WStringView name)
{
    return !name.empty() && name != u"." && name != u".." &&
           name.find_first_of(u"/\\:*?\"<>|") == WStringView::npos;
}

} // namespace

CreateProjectDialog::CreateProjectDialog() : Dialog(u"Create a Project"), browse(u"...") {}

void CreateProjectDialog::build()
{
    setInitialSize(560, 200);
    setButtons(u"Create", u"Cancel");
    form.emplace(getPane(), BoxLayout::Margin::None);
    form->addRow(u"&Project:", name);
    Label& label = form->addRow(u"Pa&th:", row);
    BoxLayout line(row, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    line.add(path, 1).add(browse);
    label.setBuddy(path);
    form->addRow(folder);
    folder.setDimmed(true);
    folder.setWrapped(true);

    browse.setHint(u"Select a Folder");
    browse.setAccessibleName(u"Select a Folder");
    browse.onAction([this] { choosePath(); });
    name.setMaxLength(kMostUnits);
    path.setMaxLength(kMostUnits);
    name.setText(translate(u"Untitled"));
    path.setText(toWide(programFolder()));
    name.onChange([this] { showFolder(); });
    path.onChange([this] { showFolder(); });
    name.selectAll();
    showFolder();
}

fs::path CreateProjectDialog::getFolder() const
{
    const fs::path above = toUtf8(path.getText());
    return (above / toUtf8(name.getText())).lexically_normal();
}

void CreateProjectDialog::choosePath()
{
    if (const auto chosen = host().chooseFolder(u"Select a Folder"))
        path.setText(*chosen);
    showFolder();
}

void CreateProjectDialog::showFolder()
{
    form->setProblem(name, u"");
    form->setProblem(row, u"");
    folder.setText(translateWith(u"The project is made in %1", {toWide(getFolder())}));
}

bool CreateProjectDialog::accept()
{
    const WString title = name.getText();
    if (!isFolderName(title)) {
        form->setProblem(name, translate(title.empty() ? u"Please enter the name"
                                                       : u"Contains invalid characters"));
        name.setFocus();
        return false;
    }
    const fs::path wanted = getFolder();
    if (const WStringView fault = newProjectFault(wanted); !fault.empty()) {
        form->setProblem(row, translate(fault));
        path.setFocus();
        return false;
    }
    try {
        makeNewProject(wanted, title);
    } catch (const Exception& fault) {
        form->setProblem(row, fault.getMessage());
        return false;
    }
    project = wanted;
    toOpen =
        host().ask({translateWith(u"The project stands in %1. Open it?", {toWide(project)})}) ==
        Answer::Yes;
    return true;
}

} // namespace varn

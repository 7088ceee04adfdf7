#pragma once

#include "Component/Dialog.h"
#include "Component/TextArea.h"

#include <filesystem>

namespace varn {

/// "Create a Project": makes a new project in a folder that is new or empty, then asks whether to
/// open it.
class CreateProjectDialog final : public Dialog
{
  public:
    CreateProjectDialog();

    /// The project that was made; empty: none was.
    const std::filesystem::path& getProject() const { return project; }
    /// The person wants to go on in it. A project is opened by starting the tool in its folder
    /// (`startToolIn`), behind the end of this run, which holds the lock of the one instance.
    bool isToOpen() const { return toOpen; }

  protected:
    void build() override;
    bool accept() override;
    BaseWindow* firstFocus() override { return &name; }

  private:
    void choosePath();
    void showFolder();
    std::filesystem::path getFolder() const;

    GroupComponent row;
    TextField name, path;
    Button browse;
    Label folder;
    std::optional<FormLayout> form;
    std::filesystem::path project;
    bool toOpen = false;
};

} // namespace varn

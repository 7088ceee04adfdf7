#pragma once

#include "Component/CheckBox.h"
#include "Component/ComboBox.h"
#include "Component/Dialog.h"
#include "Component/TabbedPane.h"
#include "Component/Table.h"
#include "Component/UpDownTextField.h"
#include "Game/Map/GameResourceManager.h"
#include "MapEditor3D/frame/AuditionBar.h"
#include "MapEditor3D/frame/dialogs/PictureView.h"
#include "MapEditor3D/project/ResourceUsage.h"

namespace varn {

/// "Resource Manager": the project's list of sounds and pictures. It reads the list when it opens
/// and writes it on OK; Cancel leaves it as it was, but files that were copied into the project
/// stay.
class ResourceManagerDialog final : public Dialog, private TableModel
{
  public:
    ResourceManagerDialog();

    /// Shows a category, as the list does.
    void selectCategory(ResourceCategory wanted);
    /// Adds files to a category; those outside of the project are copied into its folder first.
    /// @return how many were added
    int import(ResourceCategory category, const std::vector<std::filesystem::path>& files);

  protected:
    void build() override;
    bool accept() override;
    bool reject() override;

  private:
    /// The table of files, onto which files are dropped.
    class FileTable final : public Table
    {
      public:
        std::function<void(const std::vector<std::filesystem::path>&)> onDrop;
        void onDropFiles(const std::vector<std::filesystem::path>& names) override;
    };

    int getRowCount() const override;
    int getColumnCount() const override { return 3; }
    WString getValueAt(int row, int column) const override;
    bool isNumber(int column) const override { return column == 0; }

    const ResourceItemList& items() const;
    ResourceItem* selected() const;
    void buildTypes(GroupComponent& page);
    void buildScale(GroupComponent& page);
    void showCategory();
    void showSelected();
    void showUsage(const ResourceItem& item);
    void showAdded(WStringView path);
    void chooseFiles();
    void removeSelected();

    GameResourceManager& catalogue;
    ResourceCategory category = ResourceCategory::BackgroundMusic;
    TabbedPane tabs;
    ComboBoxLight categories;
    FileTable table;
    Button importButton, removeButton;
    GroupComponent typeRow, side, buttons, body, scaleForm;
    Label typeLabel{u"Resource &Type"};
    TextCheckBox flips, keepsAspect;
    PictureView picture;
    AuditionBar audition;
    Label about, usage, scaleNote;
    std::optional<ResourceUsage> uses; ///< taken at the first question
    DecimalField scale;
    PictureView scalePreview;
};

} // namespace varn

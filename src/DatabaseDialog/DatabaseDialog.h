#pragma once

#include "Component/Dialog.h"
#include "Component/TabbedPane.h"
#include "DatabaseDialog/DatabasePage.h"

namespace varn {

/// A window of one table, or of several as tabs. Its tables stand loaded. OK stores the fields and
/// saves the documents that changed; the owner reloads what Cancel left changed.
class DatabaseDialog : public Dialog
{
  public:
    DatabaseDialog(WStringView english, std::vector<PageOutline> outlines);
    ~DatabaseDialog() override;

    std::size_t getPageCount() const { return outlines.size(); }
    /// A page, built if it was not shown yet.
    DatabasePage& ensurePage(std::size_t place);
    void selectPage(std::size_t place);

  protected:
    void build() override;
    bool accept() override;

  private:
    struct Document
    {
        TableFile* file;
        WString name;   ///< in the data folder, for questions
        WString before; ///< as it was loaded
    };
    void collectDocuments();
    void pageChosen();

    std::vector<PageOutline> outlines;
    std::vector<Document> documents;
    std::vector<std::unique_ptr<DatabasePage>> pages; ///< null until shown
    std::vector<GroupComponent*> holders;             ///< of the pages
    TabbedPane tabs;
};

} // namespace varn

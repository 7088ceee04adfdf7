#pragma once

#include "Component/GroupComponent.h"

namespace varn {

/// A tab strip and its pages; its action is the choice of another page.
class TabbedPane : public Component
{
  public:
    ~TabbedPane() override;

    /// A page that the pane owns. @param english  its tab
    GroupComponent& addPage(WStringView english);
    int getSelectedPage() const;
    void selectPage(int page);

  protected:
    bool paintsItself() const override { return false; }
    NativeHandle makeHandle(NativeHandle parent) override;
    void applyTexts() override;

  private:
    struct Page
    {
        WString title; // English
        std::unique_ptr<GroupComponent> pane;
    };
    std::vector<Page> pages;
};

} // namespace varn

#pragma once

#include "Component/Adapter.h"
#include "Component/Component.h"

namespace varn {

/// A drop-down list with an edit part: what is typed narrows the list to the entries that hold it.
/// Its action is the choice of an entry by hand.
class ComboBox : public Component
{
  public:
    void setItems(const std::vector<WString>& items);
    void setAdapter(const Adapter& adapter);
    int getItemCount() const;
    /// -1: none.
    int getSelectedIndex() const;
    void setSelectedIndex(int index);
    WString getText() const override;
    void setText(WStringView text) override;

  protected:
    bool paintsItself() const override { return false; }
    virtual bool hasEditPart() const { return true; }
    NativeHandle makeHandle(NativeHandle parent) override;

  private:
    void settle();
};

/// Without an edit part.
class ComboBoxLight : public ComboBox
{
  protected:
    bool hasEditPart() const override { return false; }
};

} // namespace varn

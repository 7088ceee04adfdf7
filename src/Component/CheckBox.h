#pragma once

#include "Component/Button.h"

namespace varn {

/// A box that is checked or not; its action is a change by hand.
class CheckBox : public StateButton
{
  public:
    explicit CheckBox(WStringView english = {});

    bool isChecked() const;
    void setChecked(bool checked);

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;
};

/// A check box with its text on the side.
class TextCheckBox : public CheckBox
{
  public:
    using CheckBox::CheckBox;
};

/// One of the radio buttons of a pane; checking one unchecks the others.
class RadioButton : public StateButton
{
  public:
    explicit RadioButton(WStringView english = {});

    bool isChecked() const;
    void setChecked(bool checked);

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;
};

} // namespace varn

#pragma once

#include "Component/BaseWindow.h"

#include <functional>

namespace varn {

/// The toolkit's multi-line edit. It tells its parent `kTextChangedCode`.
class TextArea : public BaseWindow
{
  public:
    WString getText() const override;
    void setText(WStringView text) override;
    virtual void setReadOnly(bool readOnly);
    /// Letters of one width, as source text wants them.
    void setFixedPitch();
    void onChange(std::function<void()> action) { changed = std::move(action); }
    /// Tab moves the focus, as in every control of the kit.
    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;
    void tellChange();

    std::function<void()> changed;
};

/// The toolkit's one-line edit.
class TextField : public TextArea
{
  public:
    WString getText() const override;
    void setText(WStringView text) override;
    void setReadOnly(bool readOnly) override;
    /// Shown while the field is empty. @param english  follows the language
    void setPlaceholder(WStringView english);
    void setMaxLength(int units);
    void selectAll();
    /// Return was pressed.
    void onReturn(std::function<void()> action) { returned = std::move(action); }

  protected:
    NativeHandle makeHandle(NativeHandle parent) override;
    void applyTexts() override;

  private:
    std::function<void()> returned;
    WString placeholder; // English
};

} // namespace varn

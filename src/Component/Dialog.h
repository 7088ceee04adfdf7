#pragma once

#include "Component/Button.h"
#include "Component/Layout.h"

#include <optional>

namespace varn {

/// A modal shell around a pane of controls. Escape closes it; one button is the default.
class Dialog : public WinApiWindow
{
  public:
    enum Result
    {
        Ok = 1,
        Cancelled = 2
    };

    /// @param english  the title
    explicit Dialog(WStringView english);
    ~Dialog() override;

    /// Shows the dialog over a window and waits for its end.
    int doModal(BaseWindow* parent);
    /// Shows it without waiting, for what is driven while it stands.
    void show(BaseWindow* parent);
    void end(int result);
    bool isOpen() const { return handle != nullptr; }

    GroupComponent& getPane() { return pane; }
    void setTitle(WStringView text);
    /// Of the standing dialog; the next of its title has it too.
    void resize(int width, int height);
    Rect getSize() const;
    void forgetHandle() override;

    /// Sizes of dialogs are remembered by their English titles, for as long as the program runs and
    /// as its owner keeps them.
    static std::map<WString, Rect>& rememberedSizes();

  protected:
    /// Makes the controls in the pane.
    virtual void build() = 0;
    /// OK was pressed. False: something is wrong and told beside its field; the dialog stays.
    virtual bool accept() { return true; }
    /// Cancel or Escape. False: the dialog stays.
    virtual bool reject() { return true; }
    /// The control with the focus at first; null: the first that Tab stops at.
    virtual BaseWindow* firstFocus() { return nullptr; }
    /// The dialog stands on the screen.
    virtual void opened() {}

    /// Which buttons close the dialog; called in `build`.
    void setButtons(WStringView okText, WStringView cancelText);
    void setOkEnabled(bool enabled);
    /// The size of the first time; then what the person left.
    void setInitialSize(int width, int height);

  private:
    friend class DialogShell;
    void create(BaseWindow* parent);
    void tryAccept();
    void tryReject();

    WString english;
    GroupComponent pane;
    GroupComponent buttonRow;
    Button okButton, cancelButton;
    WString okText, cancelText;
    Rect initialSize;
    int result = Cancelled;
};

} // namespace varn

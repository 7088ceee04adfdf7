#pragma once

#include "Component/Messages.h"
#include "Component/WinApiWindow.h"
#include "Util/Rect.h"
#include "Util/Text.h"

#include <filesystem>
#include <vector>

namespace varn {

/// A window of the kit: the kit's own ones, and those of the toolkit that it gives its messages
/// to. Owns its native window; children are owned by whoever made them and lose their native window
/// with the parent's.
///
/// Messages arrive in `windowProc`. Where that answers 0, the toolkit's own control goes on to
/// treat the message; else it is finished.
class BaseWindow : public WinApiWindow
{
  public:
    ~BaseWindow() override = default;

    const WString& getWindowClass() const { return windowClass; }
    void setWindowClass(WStringView name) { windowClass = name; }

    // The operations in their fixed order.
    void setId(int next) { id = next; }
    int getId() const { return id; }
    virtual void setFocus();
    virtual void setExtendedStyle(std::uint32_t flags) { extendedStyle = flags; }
    virtual void setVisible(bool visible);
    virtual void setEnabled(bool enabled);
    virtual void setBackColor(std::uint32_t colour);
    virtual void setTextColor(std::uint32_t colour);
    virtual void setLocation(int x, int y);
    using WinApiWindow::getHandle;
    /// The child with an id; null: none has it.
    NativeHandle getHandle(int childId) const;
    virtual std::uint32_t getStyle() const { return style; }
    virtual std::uint32_t getExtendedStyle() const { return extendedStyle; }
    virtual WString getText() const;
    virtual int getWidth() const;
    virtual int getHeight() const;
    virtual bool hasFocus() const;
    virtual bool isVisible() const;
    virtual bool isEnabled() const;
    /// Paints at once what `repaint` asked for.
    virtual void update();
    /// An empty rectangle: all of the window.
    virtual void repaint(const Rect& rect = {}, bool erase = false);
    virtual void destroy();
    virtual bool createTopLevel();
    /// Makes the native window; the first step is `destroy`.
    virtual bool create(BaseWindow* parent);
    bool createChild(BaseWindow* parent, int x, int y, int width, int height);
    WString getCaption() const { return getText(); }
    virtual int getX() const;
    virtual int getY() const;
    virtual void setFont(const FontSpec& next);
    virtual void setText(WStringView text);
    void setFontHeight(int height);
    virtual void setBounds(int x, int y, int width, int height);
    void setSize(int width, int height);
    virtual void setTooltip(WStringView text, std::uint32_t flags = 0);
    virtual bool onCommand(int commandId, std::intptr_t data);
    void centerInParent();
    virtual WString toString() const { return windowClass; }
    virtual WString toXml() const { return {}; }
    /// Sends a notice to the parent.
    void notifyParent(int code);
    virtual bool close();
    virtual void onCreate();
    virtual bool onNotify(int controlId, int code);
    virtual void onSize(int width, int height);
    virtual void onDropFiles(const std::vector<std::filesystem::path>& names);
    virtual MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                     LongParam lParam);

    /// Text, tooltip and accessible name by their English wording; they follow the language.
    void setLabel(WStringView english);
    void setHint(WStringView english);
    /// What a screen reader calls the window, where its text does not say it.
    void setAccessibleName(WStringView english);
    /// Words every text below a window anew, after another language came into force.
    static void retranslate(NativeHandle top);

    void setMinimumSize(int width, int height);
    void setMaximumHeight(int height);
    /// 0: that side stays free.
    void setFixedSize(int width, int height);
    /// Whether Tab stops here.
    void setTabStop(bool stops);
    BaseWindow* getParent() const;

    /// Moves the focus to the next or previous window that Tab stops at, as seen from this one.
    /// False: there is none.
    bool moveFocus(bool forward);

  protected:
    /// Before the native window is made.
    virtual void prepare() {}
    /// Makes the native window: by default a pane without a look of its own.
    virtual NativeHandle makeHandle(NativeHandle parent);
    /// The texts given by their English wording, and what subclasses show besides.
    virtual void applyTexts();

    WString windowClass;
    std::uint32_t style = 0x56010000; // child, visible, clips siblings and children, tab stop
    std::uint32_t extendedStyle = 0;
    Rect layout; ///< where the window goes when it is created
    int id = 0;

  private:
    WString label, hint, accessibleName; // English
};

} // namespace varn

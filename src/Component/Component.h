#pragma once

#include "Component/BaseWindow.h"
#include "Component/ListenerList.h"
#include "Graphics/Graphics.h"

#include <functional>
#include <memory>

namespace varn {

/// A widget: a window that paints itself into a `Graphics` and tells its listeners what happens to
/// it. Controls whose look is the toolkit's are Components too; they leave the paint message alone.
class Component : public BaseWindow
{
  public:
    Component();
    ~Component() override;

    bool isHovering() const { return hovering; }
    /// Of a component that stands: creating one turns it on.
    void setDoubleBuffered(bool value) { doubleBuffered = value; }

    ListenerList& getListeners() { return listeners; }
    void addEventListener(EventListener* listener)
    {
        listeners.addListener(kEventListener, listener);
    }
    void addMouseListener(EventListener* listener)
    {
        listeners.addListener(kMouseListener, listener);
    }
    void addActionListener(ActionListener* listener)
    {
        listeners.addListener(kActionListener, listener);
    }
    /// A listener that this component owns.
    void on(WStringView key, std::function<void(const EventObject&)> action);
    /// What a control is there for happened: it was pressed, another entry was chosen.
    void onAction(std::function<void()> action);

    void destroy() override;
    void forgetHandle() override;
    bool create(BaseWindow* parent) override;
    WString toString() const override;
    WString toXml() const override;
    MessageResult windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                             LongParam lParam) override;

    /// True: takes the focus if it lacks it; false: hands it to the parent if it has it.
    virtual void requestFocus(bool wanted);
    virtual void paintBackground(Graphics& graphics);
    virtual bool onSetFocus() { return false; }
    virtual bool onKillFocus() { return false; }
    /// Code 1 goes to the parent; any other to the listeners of events, and to the parent where
    /// none heard it.
    void fireEvent(int code);
    virtual bool onChar(int unit, std::uint32_t flags);
    /// True: consumed. By itself Tab moves the focus.
    virtual bool onKeyDown(int key, std::uint32_t flags);
    virtual bool onKeyUp(int key, std::uint32_t flags);
    virtual bool onLeftDown(const MouseEvent&) { return false; }
    virtual bool onLeftUp(const MouseEvent&) { return false; }
    virtual bool onLeftDoubleClick(const MouseEvent&) { return false; }
    virtual bool onRightDown(const MouseEvent&) { return false; }
    virtual bool onRightUp(const MouseEvent&) { return false; }
    virtual bool onRightDoubleClick(const MouseEvent&) { return false; }
    virtual bool onMiddleDown(const MouseEvent&) { return false; }
    virtual bool onMiddleUp(const MouseEvent&) { return false; }
    virtual bool onMouseMove(const MouseEvent&) { return false; }
    /// @param delta  in units of which `kWheelStep` is one notch; away from the person is positive
    virtual bool onMouseWheel(const MouseEvent&, int /*delta*/) { return false; }
    virtual void onMouseEnter();
    virtual void onMouseLeave();
    /// False: the message goes on, to the toolkit's control.
    virtual bool onMouseEvent(std::uint32_t message, int x, int y, WordParam wParam);

    /// Device pixels for one pixel of the window.
    double getScale() const;

  protected:
    /// Paints the part `dirty` of a surface as large as the window in device pixels. It holds the
    /// background; outside of it stands what was painted before.
    virtual void paint(Graphics& /*graphics*/, const Rect& /*dirty*/) {}
    /// False for a control that the toolkit paints.
    virtual bool paintsItself() const { return true; }
    /// Fires under "ActionListener", then the code of a click.
    void fireAction();

  private:
    /// To the state of a component without a native window.
    void reset();
    void paintBuffered();
    bool dispatchMouse(const MouseEvent& event, std::uint32_t message, WordParam wParam);

    bool hovering = false;
    bool focused = false;
    bool doubleBuffered = true;
    std::unique_ptr<Graphics> backBuffer;
    ListenerList listeners;
    std::vector<std::unique_ptr<EventListener>> ownListeners;
};

} // namespace varn

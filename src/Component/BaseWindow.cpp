#include "Component/BaseWindow.h"

#include "Component/Translation.h"
#include "Component/native/NativeWindow.h"

#include <algorithm>
#include <utility>

namespace varn {

namespace {

using native::getChildren;

bool takesFocus(NativeHandle window)
{
    return native::isEnabled(window) && native::isVisible(window);
}

/// The first window at or below `candidate` that Tab stops at, the last one for backwards; null:
/// none.
NativeHandle stopIn(NativeHandle candidate, bool forward)
{
    if (!takesFocus(candidate))
        return nullptr;
    if (native::isTabStop(candidate))
        return candidate;
    if (!native::isContainer(candidate))
        return nullptr;
    std::vector<NativeHandle> children = getChildren(candidate);
    if (!forward)
        std::ranges::reverse(children);
    for (const NativeHandle child : children)
        if (const NativeHandle found = stopIn(child, forward))
            return found;
    return nullptr;
}

/// Behind `from` among the children of its parent; at their end in the parent's surroundings, which
/// wraps at the window's.
NativeHandle stopBehind(NativeHandle from, bool forward)
{
    for (NativeHandle inner = from; inner; inner = native::getParent(inner)) {
        const NativeHandle parent = native::getParent(inner);
        if (!parent || native::isTopLevel(inner))
            return stopIn(inner, forward);
        std::vector<NativeHandle> siblings = getChildren(parent);
        if (!forward)
            std::ranges::reverse(siblings);
        auto next = std::ranges::find(siblings, inner);
        if (next == siblings.end())
            continue;
        for (++next; next != siblings.end(); ++next)
            if (const NativeHandle found = stopIn(*next, forward))
                return found;
    }
    return nullptr;
}

} // namespace

void BaseWindow::setFocus()
{
    native::setFocus(handle);
}

void BaseWindow::setVisible(bool visible)
{
    native::setVisible(handle, visible);
}

void BaseWindow::setEnabled(bool enabled)
{
    native::setEnabled(handle, enabled);
}

void BaseWindow::setBackColor(std::uint32_t colour)
{
    backColor = colour;
    repaint();
}

void BaseWindow::setTextColor(std::uint32_t colour)
{
    textColor = colour;
    repaint();
}

void BaseWindow::setLocation(int x, int y)
{
    setBounds(x, y, getWidth(), getHeight());
}

NativeHandle BaseWindow::getHandle(int childId) const
{
    for (const NativeHandle child : getChildren(handle))
        if (const BaseWindow* const window = native::windowOf(child);
            window && window->id == childId)
            return child;
    return nullptr;
}

WString BaseWindow::getText() const
{
    return native::getTitle(handle);
}

int BaseWindow::getWidth() const
{
    return native::getGeometry(handle).width;
}

int BaseWindow::getHeight() const
{
    return native::getGeometry(handle).height;
}

bool BaseWindow::hasFocus() const
{
    return native::hasFocus(handle);
}

bool BaseWindow::isVisible() const
{
    return native::isVisible(handle);
}

bool BaseWindow::isEnabled() const
{
    return native::isEnabled(handle);
}

void BaseWindow::update()
{
    native::update(handle);
}

void BaseWindow::repaint(const Rect& rect, bool)
{
    native::invalidate(handle, rect);
}

void BaseWindow::destroy()
{
    native::destroy(std::exchange(handle, nullptr));
}

bool BaseWindow::createTopLevel()
{
    return create(nullptr);
}

bool BaseWindow::create(BaseWindow* parent)
{
    destroy();
    prepare();
    if (windowClass.empty())
        windowClass = u"BaseWindowPane";
    handle = makeHandle(parent ? parent->getHandle() : nullptr);
    if (!handle)
        return false;
    native::bind(handle, *this);
    if (layout.width > 0)
        native::setGeometry(handle, layout);
    applyTexts();
    onCreate();
    return true;
}

bool BaseWindow::createChild(BaseWindow* parent, int x, int y, int width, int height)
{
    layout = Rect(x, y, width, height);
    return create(parent);
}

int BaseWindow::getX() const
{
    return native::getGeometry(handle).x;
}

int BaseWindow::getY() const
{
    return native::getGeometry(handle).y;
}

void BaseWindow::setFont(const FontSpec& next)
{
    font = next;
    native::setFont(handle, font);
    repaint();
}

void BaseWindow::setText(WStringView text)
{
    native::setTitle(handle, text);
}

void BaseWindow::setFontHeight(int height)
{
    FontSpec next = font;
    next.height = height;
    setFont(next);
}

void BaseWindow::setBounds(int x, int y, int width, int height)
{
    layout = Rect(x, y, width, height);
    native::setGeometry(handle, layout);
    repaint();
}

void BaseWindow::setSize(int width, int height)
{
    setBounds(getX(), getY(), width, height);
}

void BaseWindow::setTooltip(WStringView text, std::uint32_t)
{
    native::setTooltip(handle, text);
}

bool BaseWindow::onCommand(int commandId, std::intptr_t data)
{
    return windowProc(handle, kCommandMessage, static_cast<WordParam>(commandId), data) != 0;
}

void BaseWindow::centerInParent()
{
    const BaseWindow* const parent = getParent();
    if (!parent)
        return;
    setLocation((parent->getWidth() - getWidth()) / 2, (parent->getHeight() - getHeight()) / 2);
}

void BaseWindow::notifyParent(int code)
{
    for (NativeHandle above = native::getParent(handle); above; above = native::getParent(above))
        if (BaseWindow* const parent = native::windowOf(above)) {
            parent->onNotify(id, code);
            return;
        }
}

bool BaseWindow::close()
{
    destroy();
    return true;
}

void BaseWindow::onCreate() {}

bool BaseWindow::onNotify(int controlId, int code)
{
    return windowProc(handle, kNotifyMessage, static_cast<WordParam>(controlId), code) != 0;
}

void BaseWindow::onSize(int, int) {}

void BaseWindow::onDropFiles(const std::vector<std::filesystem::path>&) {}

MessageResult BaseWindow::windowProc(NativeHandle, std::uint32_t message, WordParam,
                                     LongParam packed)
{
    if (message == kSizeMessage)
        onSize(unpackX(packed), unpackY(packed));
    return 0;
}

void BaseWindow::setLabel(WStringView english)
{
    label = english;
    applyTexts();
}

void BaseWindow::setHint(WStringView english)
{
    hint = english;
    applyTexts();
}

void BaseWindow::setAccessibleName(WStringView english)
{
    accessibleName = english;
    applyTexts();
}

void BaseWindow::applyTexts()
{
    if (!handle)
        return;
    if (!label.empty())
        setText(translate(label));
    if (!hint.empty())
        setTooltip(translate(hint));
    const WString& spoken = accessibleName.empty() ? hint : accessibleName;
    if (!spoken.empty())
        native::setAccessibleText(handle, translate(spoken), {});
}

void BaseWindow::retranslate(NativeHandle top)
{
    if (BaseWindow* const window = native::windowOf(top))
        window->applyTexts();
    for (const NativeHandle child : getChildren(top))
        retranslate(child);
}

void BaseWindow::setMinimumSize(int width, int height)
{
    native::setMinimumSize(handle, width, height);
}

void BaseWindow::setMaximumHeight(int height)
{
    native::setMaximumHeight(handle, height);
}

void BaseWindow::setFixedSize(int width, int height)
{
    native::setFixedSize(handle, width, height);
}

void BaseWindow::setTabStop(bool stops)
{
    native::setTabStop(handle, stops);
}

BaseWindow* BaseWindow::getParent() const
{
    for (NativeHandle above = native::getParent(handle); above; above = native::getParent(above))
        if (BaseWindow* const window = native::windowOf(above))
            return window;
    return nullptr;
}

bool BaseWindow::moveFocus(bool forward)
{
    const NativeHandle next = stopBehind(handle, forward);
    if (!next || next == handle)
        return false;
    native::setFocus(next);
    return true;
}

NativeHandle BaseWindow::makeHandle(NativeHandle parent)
{
    return native::createPane(parent);
}

} // namespace varn

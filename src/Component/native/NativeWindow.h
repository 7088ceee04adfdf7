#pragma once

#include "Component/BaseWindow.h"
#include "Component/Messages.h"
#include "Graphics/Bitmap.h"
#include "Util/Rect.h"
#include "Util/Text.h"

#include <vector>

/// What the kit asks of the window toolkit for any window. All of it takes null handles: it does
/// nothing then and answers with zeros.
namespace varn::native {

/// A child window that is painted by its messages alone. @param parent  null: a window of its own
NativeHandle createPane(NativeHandle parent);
/// Messages of the window go to `window` from now on, until one of the two dies.
void bind(NativeHandle handle, BaseWindow& window);
void destroy(NativeHandle handle);

void setGeometry(NativeHandle handle, const Rect& bounds);
/// Position in the parent, and size.
Rect getGeometry(NativeHandle handle);
void setVisible(NativeHandle handle, bool visible);
bool isVisible(NativeHandle handle);
void setEnabled(NativeHandle handle, bool enabled);
bool isEnabled(NativeHandle handle);
void setMinimumSize(NativeHandle handle, int width, int height);
void setMaximumHeight(NativeHandle handle, int height);
void setFixedSize(NativeHandle handle, int width, int height);
void setTitle(NativeHandle handle, WStringView text);
WString getTitle(NativeHandle handle);
void setTooltip(NativeHandle handle, WStringView text);
void setAccessibleText(NativeHandle handle, WStringView name, WStringView description);
/// Tells assistive technology that the description of a window changed.
void announce(NativeHandle handle, WStringView text);
void setFont(NativeHandle handle, const FontSpec& font);
bool hasFontFamily(WStringView family);
void setAcceptsDrops(NativeHandle handle, bool accepts);

void setFocus(NativeHandle handle);
bool hasFocus(NativeHandle handle);
void setTabStop(NativeHandle handle, bool isTabStop);
bool isTabStop(NativeHandle handle);
/// A pane or dialog around controls: focus goes on to its children.
bool isContainer(NativeHandle handle);
bool isTopLevel(NativeHandle handle);
NativeHandle getParent(NativeHandle handle);
/// In the order they were created.
std::vector<NativeHandle> getChildren(NativeHandle handle);
/// The window bound to a handle; null for the toolkit's own.
BaseWindow* windowOf(NativeHandle handle);

/// Asks for a paint message; an empty rectangle stands for all of it.
void invalidate(NativeHandle handle, const Rect& rect);
/// Paints at once what was invalidated.
void update(NativeHandle handle);
/// During a paint message: what is to be painted.
Rect getPaintRect(NativeHandle handle);
/// During a paint message: copies a part of a bitmap, which has `scale` pixels for one of the
/// window, to its place in the window.
void present(NativeHandle handle, const Bitmap& bitmap, const Rect& part, double scale);
/// Device pixels for one pixel of the window: 1, 1.25, 2.
double getScale(NativeHandle handle);

enum class Cursor
{
    Arrow,
    Cross,
    Hand,
    OpenHand,
    ClosedHand,
    SplitColumns
};
void setCursor(NativeHandle handle, Cursor cursor);
/// `HeldKeys` now.
std::uint32_t getHeldKeys();

} // namespace varn::native

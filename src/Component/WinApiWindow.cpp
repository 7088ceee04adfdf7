#include "Component/WinApiWindow.h"

#include "Component/Theme.h"
#include "Component/native/NativeWindow.h"

namespace varn {

WinApiWindow::WinApiWindow() : backColor(theme().face) {}

WinApiWindow::~WinApiWindow()
{
    native::destroy(handle);
}

} // namespace varn

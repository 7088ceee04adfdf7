#pragma once

#include "Component/Menu.h"

#include <QKeySequence>

class QAction;
class QMenu;
class QWidget;

namespace varn::native {

inline constexpr const char* kCommandProperty = "varnCommand";

/// Fills a menu; an item that is chosen sends its command to `target`.
void fillMenu(QMenu& menu, const std::vector<MenuLine>& lines, BaseWindow& target);
QKeySequence keysOf(WStringView shortcut);

} // namespace varn::native

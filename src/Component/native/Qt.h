#pragma once

#include "Component/NativeHandle.h"
#include "Util/Rect.h"
#include "Util/Text.h"

#include <QColor>
#include <QString>
#include <QWidget>
#include <cstdint>

/// Between the toolkit's values and ours.
namespace varn::native {

inline QWidget* widgetOf(NativeHandle handle)
{
    return reinterpret_cast<QWidget*>(handle);
}
inline NativeHandle handleOf(QWidget* widget)
{
    return reinterpret_cast<NativeHandle>(widget);
}
template <class Widget>
Widget* widgetAs(NativeHandle handle)
{
    return static_cast<Widget*>(widgetOf(handle));
}

inline QString toQt(WStringView text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}
inline WString fromQt(const QString& text)
{
    return WString(reinterpret_cast<const char16_t*>(text.utf16()),
                   static_cast<std::size_t>(text.size()));
}
inline QColor toQt(std::uint32_t colour)
{
    return {static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
            static_cast<int>(colour >> 16 & 0xFF)};
}
inline std::uint32_t fromQt(const QColor& colour)
{
    return static_cast<std::uint32_t>(colour.red()) |
           static_cast<std::uint32_t>(colour.green()) << 8 |
           static_cast<std::uint32_t>(colour.blue()) << 16;
}
inline QRect toQt(const Rect& rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}
inline Rect fromQt(const QRect& rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

/// Marks a widget that only holds others; Tab looks at its children.
void markContainer(QWidget* widget);

} // namespace varn::native

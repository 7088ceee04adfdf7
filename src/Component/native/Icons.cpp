#include "Component/native/Icons.h"

#include "Component/IconPaths.h"
#include "Util/Text.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <cmath>

namespace varn::native {

namespace {

QPointF toQt(const IconPoint& point)
{
    return {point.x, point.y};
}

QPainterPath pathOf(const IconStroke& stroke)
{
    QPainterPath path;
    const std::span<const IconPoint> points = stroke.points;
    switch (stroke.kind) {
    case IconStroke::Kind::Circle:
    case IconStroke::Kind::Disc: {
        const double radius = std::hypot(points[1].x - points[0].x, points[1].y - points[0].y);
        path.addEllipse(toQt(points[0]), radius, radius);
        break;
    }
    case IconStroke::Kind::Curve:
        path.moveTo(toQt(points[0]));
        for (std::size_t i = 1; i + 2 < points.size(); i += 3)
            path.cubicTo(toQt(points[i]), toQt(points[i + 1]), toQt(points[i + 2]));
        break;
    default:
        path.moveTo(toQt(points[0]));
        for (const IconPoint& point : points.subspan(1))
            path.lineTo(toQt(point));
        if (stroke.kind != IconStroke::Kind::Line)
            path.closeSubpath();
    }
    return path;
}

bool isFilled(const IconStroke& stroke)
{
    return stroke.kind == IconStroke::Kind::Filled || stroke.kind == IconStroke::Kind::Disc;
}

/// Draws an icon's strokes in the palette's colour, so that it follows light and dark, at whatever
/// size and scale it is asked for.
class StrokeEngine final : public QIconEngine
{
  public:
    explicit StrokeEngine(const IconPath& icon) : icon(icon) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QColor colour = QApplication::palette().color(
            mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active, QPalette::WindowText);
        if (mode == QIcon::Selected)
            colour = QApplication::palette().color(QPalette::HighlightedText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kIconBox, rect.height() / kIconBox);
        const QPen pen(colour, kIconStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        for (const IconStroke& stroke : icon.strokes) {
            painter->setPen(isFilled(stroke) ? QPen(Qt::NoPen) : pen);
            painter->setBrush(isFilled(stroke) ? QBrush(colour) : QBrush(Qt::NoBrush));
            painter->drawPath(pathOf(stroke));
        }
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new StrokeEngine(icon); }

  private:
    const IconPath& icon;
};

} // namespace

QIcon makeIcon(WStringView name)
{
    const IconPath* const icon = findIcon(narrow(name));
    return icon ? QIcon(new StrokeEngine(*icon)) : QIcon();
}

} // namespace varn::native

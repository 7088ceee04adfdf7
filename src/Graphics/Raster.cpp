// The one file that knows the raster library. It is built as a library of its own, which Raster.h's
// raster() loads when something is drawn with it.
#include "Graphics/Raster.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <map>
#include <mutex>
#include <numbers>

namespace varn {

namespace {

constexpr const char* kOwnFamily = "VL Gothic";

QString toQt(WStringView text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

QColor toQt(std::uint32_t colour)
{
    return {static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
            static_cast<int>(colour >> 16 & 0xFF)};
}

/// A painter on a bitmap's own memory for one call. RGB32 is the one format whose colours never
/// depend on the alpha bytes; the wrapping image is never copied, or painting would go to the copy.
class Session
{
  public:
    explicit Session(Bitmap& target)
        : image(target.getBits(), target.getWidth(), target.getHeight(), target.getStride(),
                QImage::Format_RGB32),
          painter(&image)
    {
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

    void use(const ShapeStyle& style)
    {
        painter.setBrush(style.filled ? QBrush(toQt(style.fill)) : QBrush(Qt::NoBrush));
        painter.setPen(style.outlined ? pen(style.pen, style.penWidth) : QPen(Qt::NoPen));
    }
    static QPen pen(std::uint32_t colour, int width, Qt::PenCapStyle cap = Qt::FlatCap)
    {
        return QPen(QBrush(toQt(colour)), std::max(1, width), Qt::SolidLine, cap, Qt::MiterJoin);
    }

  private:
    QImage image;

  public:
    QPainter painter;
};

/// Rectangles here are exclusive at the right and bottom; outlines of the library reach one
/// further.
QRect outlineOf(const Rect& rect)
{
    return {rect.x, rect.y, rect.width - 1, rect.height - 1};
}

class QtRaster : public Raster
{
  public:
    QtRaster()
    {
        if (!QGuiApplication::instance())
            startApplication();
        QFont::insertSubstitution(QStringLiteral("MS Gothic"), QLatin1String(kOwnFamily));
        QFont::insertSubstitution(QStringLiteral("MS Mincho"), QLatin1String(kOwnFamily));
    }

    void drawLine(Bitmap& target, Point from, Point to, std::uint32_t colour, int penWidth) override
    {
        Session session(target);
        // A flat cap would leave out the end point of a thin line.
        session.painter.setPen(
            Session::pen(colour, penWidth, penWidth > 1 ? Qt::RoundCap : Qt::SquareCap));
        session.painter.drawLine(from.x, from.y, to.x, to.y);
    }

    void drawPolygon(Bitmap& target, std::span<const Point> points,
                     const ShapeStyle& style) override
    {
        Session session(target);
        session.use(style);
        QPolygon polygon;
        for (const Point& point : points)
            polygon << QPoint(point.x, point.y);
        session.painter.drawPolygon(polygon, Qt::WindingFill);
    }

    void drawRect(Bitmap& target, const Rect& rect, const ShapeStyle& style) override
    {
        Session session(target);
        session.use(style);
        session.painter.drawRect(style.outlined ? outlineOf(rect)
                                                : QRect(rect.x, rect.y, rect.width, rect.height));
    }

    void drawRoundRect(Bitmap& target, const Rect& rect, int cornerWidth, int cornerHeight,
                       const ShapeStyle& style) override
    {
        Session session(target);
        session.use(style);
        session.painter.drawRoundedRect(outlineOf(rect), cornerWidth / 2.0, cornerHeight / 2.0);
    }

    void drawEllipse(Bitmap& target, const Rect& rect, const ShapeStyle& style) override
    {
        Session session(target);
        session.use(style);
        session.painter.drawEllipse(outlineOf(rect));
    }

    void drawPie(Bitmap& target, const Rect& rect, Point from, Point to,
                 const ShapeStyle& style) override
    {
        const double centreX = rect.x + rect.width / 2.0, centreY = rect.y + rect.height / 2.0;
        const auto angleOf = [&](Point p) {
            return std::atan2(centreY - p.y, p.x - centreX) * 180 / std::numbers::pi;
        };
        const double start = angleOf(from);
        double sweep = angleOf(to) - start;
        if (sweep <= 0)
            sweep += 360;
        Session session(target);
        session.use(style);
        session.painter.drawPie(outlineOf(rect), static_cast<int>(start * 16),
                                static_cast<int>(sweep * 16));
    }

    void drawText(Bitmap& target, const FontSpec& font, WStringView line, int x, int y,
                  std::uint32_t colour) override
    {
        if (target.isEmpty() || line.empty())
            return;
        const std::lock_guard lock(textLock);
        Session session(target);
        const Face& face = faceOf(font);
        session.painter.setFont(face.font);
        session.painter.setPen(toQt(colour));
        if (line.find(u'\t') == WStringView::npos)
            session.painter.drawText(x, y + face.metrics.ascent(), toQt(line));
        else
            session.painter.drawText(QRect(x, y, kWide, face.metrics.height()),
                                     Qt::TextExpandTabs | Qt::TextSingleLine | Qt::TextDontClip,
                                     toQt(line));
    }

    int measureText(const FontSpec& font, WStringView line) override
    {
        const std::lock_guard lock(textLock);
        const Face& face = faceOf(font);
        if (line.find(u'\t') == WStringView::npos)
            return face.metrics.horizontalAdvance(toQt(line));
        return face.metrics.size(Qt::TextExpandTabs | Qt::TextSingleLine, toQt(line)).width();
    }

    FontMetrics measureFont(const FontSpec& font) override
    {
        const std::lock_guard lock(textLock);
        const QFontMetrics& metrics = faceOf(font).metrics;
        return {metrics.height(), metrics.ascent(), metrics.descent()};
    }

    std::vector<WString> fontFamilies() override
    {
        std::vector<WString> families;
        for (const QString& family : QFontDatabase::families())
            families.emplace_back(reinterpret_cast<const char16_t*>(family.utf16()),
                                  static_cast<std::size_t>(family.size()));
        return families;
    }

  private:
    static constexpr int kWide = 1 << 20;

    /// A font and its metrics: making them costs more than drawing a line of text.
    struct Face
    {
        QFont font;
        QFontMetrics metrics;
    };

    static void startApplication()
    {
        static int count = 1;
        static char name[] = "varn";
        static char* arguments[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // What the library says of its surroundings is nothing for whoever asked for a picture.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        // Never destroyed: fonts kept in static caches outlive main.
        new QGuiApplication(count, arguments);
    }

    static QFont makeFont(const FontSpec& spec)
    {
        QFont font(toQt(spec.family));
        if (!QFontDatabase::hasFamily(toQt(spec.family)))
            font.setFamily(QLatin1String(kOwnFamily));
        font.setPixelSize(std::max(1, spec.height));
        font.setBold(spec.bold);
        font.setItalic(spec.italic);
        font.setUnderline(spec.underline);
        font.setStrikeOut(spec.strikeOut);
        // Full hinting and no antialiasing make the same bytes on every machine and display.
        font.setHintingPreference(QFont::PreferFullHinting);
        if (!spec.antialias)
            font.setStyleStrategy(QFont::NoAntialias);
        return font;
    }

    const Face& faceOf(const FontSpec& spec)
    {
        for (const auto& [known, face] : faces)
            if (known == spec)
                return face;
        const QFont font = makeFont(spec);
        return faces.emplace_back(spec, Face{font, QFontMetrics(font)}).second;
    }

    /// Guards the faces and what the library shares between them: scripts draw text on threads of
    /// their own.
    std::mutex textLock;
    std::vector<std::pair<FontSpec, Face>> faces;
};

} // namespace

extern "C" __attribute__((visibility("default"))) Raster* varnMakeRaster()
{
    return new QtRaster;
}

} // namespace varn

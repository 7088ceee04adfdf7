#include "Component/Application.h"

#include "Component/Theme.h"
#include "Component/WinApiWindow.h"
#include "Component/native/Qt.h"
#include "Util/Exception.h"
#include "Util/Host.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QPalette>
#include <QStyleFactory>
#include <QStyleHints>
#include <QTimer>

namespace varn {

namespace {

Theme inForce;
std::vector<std::function<void()>>& themeListeners()
{
    static std::vector<std::function<void()>> all;
    return all;
}

void readTheme()
{
    const QPalette palette = QApplication::palette();
    const auto colour = [&](QPalette::ColorRole role) {
        return native::fromQt(palette.color(role));
    };
    constexpr int kMiddleGrey = 128;
    inForce.dark = palette.color(QPalette::Window).lightness() < kMiddleGrey;
    inForce.face = colour(QPalette::Window);
    inForce.faceText = colour(QPalette::WindowText);
    inForce.field = colour(QPalette::Base);
    inForce.fieldText = colour(QPalette::Text);
    inForce.dimText = inForce.dark ? 0xA8A8A8 : 0x606060;
    inForce.line = inForce.dark ? 0x606060 : 0xC0C0C0;
    inForce.accent = colour(QPalette::Highlight);
    inForce.accentText = colour(QPalette::HighlightedText);
    inForce.warning = inForce.dark ? 0x8080FF : 0x1C1CB4;
}

/// A desktop that wants dark windows says so in its palette; where it has none, by a wish in the
/// environment of its toolkit. Ours has one accent in both.
QPalette makePalette(bool dark)
{
    const QColor accent(0x2F, 0x6F, 0xB0);
    QPalette palette =
        dark ? QPalette(QColor(0x33, 0x35, 0x38)) : QPalette(QColor(0xF0, 0xF0, 0xF1));
    if (dark) {
        palette.setColor(QPalette::Base, QColor(0x24, 0x26, 0x28));
        palette.setColor(QPalette::AlternateBase, QColor(0x2A, 0x2C, 0x2F));
        palette.setColor(QPalette::PlaceholderText, QColor(0xA8, 0xA8, 0xA8));
        palette.setColor(QPalette::ToolTipBase, QColor(0x40, 0x43, 0x47));
        palette.setColor(QPalette::ToolTipText, Qt::white);
    } else {
        palette.setColor(QPalette::PlaceholderText, QColor(0x60, 0x60, 0x60));
        palette.setColor(QPalette::Button, QColor(0xE6, 0xE6, 0xE6));
    }
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, dark ? QColor(0x8A, 0xC0, 0xF4) : accent);
    return palette;
}

/// What a handler throws ends here: it is told, and the window goes on.
class GuardedApplication final : public QApplication
{
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const Exception& fault) {
            tell(fault.getMessage());
        } catch (const std::exception& fault) {
            tell(widen(fault.what()));
        }
        return false;
    }

  private:
    static void tell(const WString& sentence)
    {
        Application::post([sentence] { host().showMessage(sentence); });
    }
};

class ThemeWatcher final : public QObject
{
  public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::ApplicationPaletteChange)
            return false;
        readTheme();
        for (const std::function<void()>& action : themeListeners())
            action();
        return false;
    }
};

} // namespace

const Theme& theme()
{
    return inForce;
}

std::uint32_t readableOn(std::uint32_t colour)
{
    constexpr double kRed = 0.2126, kGreen = 0.7152, kBlue = 0.0722; // shares of the luminance
    const QColor back = native::toQt(colour);
    const double light = kRed * back.redF() + kGreen * back.greenF() + kBlue * back.blueF();
    constexpr double kMiddle = 0.5;
    return light > kMiddle ? 0x000000 : 0xFFFFFF;
}

FontSpec defaultGuiFont()
{
    FontSpec font;
    font.antialias = true;
    if (!qApp)
        return font;
    const QFontInfo info(QApplication::font());
    font.family = native::fromQt(info.family());
    font.height = info.pixelSize();
    return font;
}

struct Application::Implementation
{
    int argumentCount;
    std::unique_ptr<QApplication> toolkit;
    std::unique_ptr<ThemeWatcher> watcher;
};

Application::Application(int argumentCount, char** arguments)
    : implementation(std::make_unique<Implementation>())
{
    // Without a display windows live in memory: a message can then be told on the console still.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    implementation->argumentCount = argumentCount;
    implementation->toolkit =
        std::make_unique<GuardedApplication>(implementation->argumentCount, arguments);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    constexpr int kMiddleGrey = 128;
    const bool dark = QApplication::palette().color(QPalette::Window).lightness() < kMiddleGrey ||
                      qEnvironmentVariable("GTK_THEME").endsWith(QLatin1String(":dark"));
    QApplication::setPalette(makePalette(dark));
    readTheme();
    implementation->watcher = std::make_unique<ThemeWatcher>();
    implementation->toolkit->installEventFilter(implementation->watcher.get());
}

Application::~Application()
{
    themeListeners().clear();
}

int Application::run()
{
    return QApplication::exec();
}

void Application::quit(int code)
{
    QApplication::exit(code);
}

void Application::processMessages()
{
    QApplication::processEvents();
}

void Application::post(std::function<void()> task)
{
    QMetaObject::invokeMethod(qApp, std::move(task), Qt::QueuedConnection);
}

void Application::onThemeChange(std::function<void()> action)
{
    themeListeners().push_back(std::move(action));
}

// Timer

struct Timer::Implementation
{
    QTimer timer;
};

Timer::Timer(std::function<void()> action) : implementation(std::make_unique<Implementation>())
{
    QObject::connect(&implementation->timer, &QTimer::timeout, &implementation->timer,
                     std::move(action));
}

Timer::~Timer() = default;

void Timer::start(int milliseconds)
{
    implementation->timer.setSingleShot(false);
    implementation->timer.start(milliseconds);
}

void Timer::startOnce(int milliseconds)
{
    implementation->timer.setSingleShot(true);
    implementation->timer.start(milliseconds);
}

void Timer::stop()
{
    implementation->timer.stop();
}

bool Timer::isRunning() const
{
    return implementation->timer.isActive();
}

} // namespace varn

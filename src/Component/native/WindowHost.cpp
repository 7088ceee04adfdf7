#include "Component/WindowHost.h"

#include "Component/Translation.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"
#include "Util/UserLanguage.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QThread>
#include <QUrl>

namespace varn {

using native::fromQt;
using native::toQt;
using native::widgetOf;

namespace {

/// What has a wording in the language in force; anything else, such as a sentence with a path in
/// it, as it is.
QString translated(WStringView english)
{
    return toQt(WStringView(translate(english)));
}

QWidget* parentForBoxes()
{
    return QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                             : QApplication::activeWindow();
}

QString filterOf(const ChooserRequest& request)
{
    QStringList patterns;
    for (const WString& extension : request.extensions)
        patterns << QStringLiteral("*.") + toQt(WStringView(extension));
    QString filter;
    if (!patterns.isEmpty())
        filter = translated(request.filterName) + QStringLiteral(" (") +
                 patterns.join(QLatin1Char(' ')) + QStringLiteral(");;");
    return filter + translated(u"All files") + QStringLiteral(" (*)");
}

} // namespace

void WindowHost::showMessage(WStringView text)
{
    if (QThread::currentThread() != qApp->thread()) { // a script or a player tells something
        QMetaObject::invokeMethod(
            qApp, [this, text] { showMessage(text); }, Qt::BlockingQueuedConnection);
        return;
    }
    QMessageBox box(QMessageBox::Information, toQt(kMakerName), translated(text),
                    QMessageBox::NoButton, parentForBoxes());
    box.addButton(translated(u"OK"), QMessageBox::AcceptRole);
    box.exec();
}

Answer WindowHost::ask(const Question& question)
{
    QMessageBox box(QMessageBox::Question, toQt(WStringView(question.caption)),
                    translated(question.text), QMessageBox::NoButton, parentForBoxes());
    const QPushButton* const yes = box.addButton(translated(u"Yes"), QMessageBox::YesRole);
    const QPushButton* const no = box.addButton(translated(u"No"), QMessageBox::NoRole);
    if (question.buttons == Buttons::YesNoCancel) {
        QPushButton* const cancel = box.addButton(translated(u"Cancel"), QMessageBox::RejectRole);
        box.setDefaultButton(cancel);
        box.setEscapeButton(cancel);
    } else {
        box.setEscapeButton(box.buttons().constLast());
    }
    box.exec();
    if (box.clickedButton() == yes)
        return Answer::Yes;
    if (box.clickedButton() == no)
        return Answer::No;
    return question.buttons == Buttons::YesNoCancel ? Answer::Cancel : Answer::No;
}

std::optional<WString> WindowHost::chooseFile(const ChooserRequest& request)
{
    const QString title = translated(request.title);
    const QString start = toQt(WStringView(request.suggestedName));
    const QString chosen =
        request.forSaving
            ? QFileDialog::getSaveFileName(parentForBoxes(), title, start, filterOf(request))
            : QFileDialog::getOpenFileName(parentForBoxes(), title, start, filterOf(request));
    if (chosen.isEmpty())
        return std::nullopt;
    if (request.forSaving && QFileInfo(chosen).suffix().isEmpty() && !request.extensions.empty())
        return fromQt(chosen) + u'.' + request.extensions.front();
    return fromQt(chosen);
}

std::optional<WString> WindowHost::chooseFolder(WStringView title)
{
    const QString chosen = QFileDialog::getExistingDirectory(parentForBoxes(), translated(title));
    if (chosen.isEmpty())
        return std::nullopt;
    return fromQt(chosen);
}

bool WindowHost::openWithShell(WStringView target)
{
    const QString text = toQt(target);
    const QUrl url = QFileInfo::exists(text)
                         ? QUrl::fromLocalFile(QFileInfo(text).absoluteFilePath())
                         : QUrl(text, QUrl::TolerantMode);
    return QDesktopServices::openUrl(url);
}

bool WindowHost::runProgram(WStringView program, WStringView words)
{
    return QProcess::startDetached(toQt(program), QProcess::splitCommand(toQt(words)));
}

bool WindowHost::startInFolder(WStringView program, WStringView folder)
{
    return QProcess::startDetached(toQt(program), {}, toQt(folder));
}

bool WindowHost::editText(WStringView path)
{
    return openWithShell(path);
}

void WindowHost::beep()
{
    QApplication::beep();
}

void WindowHost::setClipboardText(WStringView text)
{
    QApplication::clipboard()->setText(toQt(text));
}

WString WindowHost::getClipboardText()
{
    return fromQt(QApplication::clipboard()->text());
}

std::uint64_t WindowHost::clockMs()
{
    static const QElapsedTimer sinceStart = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return static_cast<std::uint64_t>(sinceStart.elapsed());
}

bool WindowHost::isJapaneseUser()
{
    return userLanguage() == "ja";
}

std::optional<std::uint32_t> chooseColor(std::uint32_t current)
{
    const QColor chosen = QColorDialog::getColor(toQt(current), parentForBoxes());
    if (!chosen.isValid())
        return std::nullopt;
    return fromQt(chosen);
}

std::optional<WString> askForText(BaseWindow* parent, WStringView title, WStringView label,
                                  WStringView current)
{
    QInputDialog dialog(parent ? widgetOf(parent->getHandle())->window() : nullptr);
    dialog.setWindowTitle(toQt(title));
    dialog.setLabelText(toQt(label));
    dialog.setTextValue(toQt(current));
    dialog.setOkButtonText(translated(u"OK"));
    dialog.setCancelButtonText(translated(u"Cancel"));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return fromQt(dialog.textValue());
}

} // namespace varn

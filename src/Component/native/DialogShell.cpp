#include "Component/Dialog.h"
#include "Component/ProgressDialog.h"
#include "Component/Translation.h"
#include "Component/native/Binding.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QPointer>
#include <QProgressDialog>

namespace varn {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetOf;

/// The toolkit's dialog: hands its ends to ours.
class DialogShell final : public QDialog
{
  public:
    DialogShell(QWidget* parent, Dialog& dialog) : QDialog(parent), dialog(dialog) {}
    ~DialogShell() override
    {
        Dialog::rememberedSizes()[dialog.english] = fromQt(geometry());
        native::Binding::forgetAll(this);
        dialog.forgetHandle();
    }

    void accept() override { dialog.tryAccept(); }
    void reject() override { dialog.tryReject(); }
    void finish(int result) { QDialog::done(result); }

  private:
    Dialog& dialog;
};

namespace {

DialogShell& shellOf(NativeHandle handle)
{
    return *static_cast<DialogShell*>(widgetOf(handle));
}

} // namespace

Dialog::Dialog(WStringView english) : english(english) {}

Dialog::~Dialog()
{
    delete widgetOf(handle); // forgets the handle
}

void Dialog::forgetHandle()
{
    handle = nullptr;
}

std::map<WString, Rect>& Dialog::rememberedSizes()
{
    static std::map<WString, Rect> sizes;
    return sizes;
}

void Dialog::create(BaseWindow* parent)
{
    delete widgetOf(handle); // of a time before
    result = Cancelled;
    auto* const shell =
        new DialogShell(parent ? widgetOf(parent->getHandle())->window() : nullptr, *this);
    handle = handleOf(shell);
    native::markContainer(shell);
    shell->setWindowTitle(toQt(WStringView(translate(english))));
    // The pane's parent is the toolkit's, which is no window of the kit.
    pane.createTopLevel();
    widgetOf(pane.getHandle())->setParent(shell);
    buttonRow.createTopLevel();
    widgetOf(buttonRow.getHandle())->setParent(shell);
    auto* const column = new QVBoxLayout(shell);
    column->addWidget(widgetOf(pane.getHandle()), 1);
    column->addWidget(widgetOf(buttonRow.getHandle()));

    build();
    BoxLayout row(buttonRow, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    row.addStretch();
    const WString ok = okText.empty() && cancelText.empty() ? WString(u"OK") : okText;
    if (!ok.empty()) {
        row.add(okButton);
        okButton.setLabel(ok);
        okButton.setDefault(true);
        okButton.onAction([this] { tryAccept(); });
    }
    const WString cancel = okText.empty() && cancelText.empty() ? WString(u"Cancel") : cancelText;
    if (!cancel.empty()) {
        row.add(cancelButton);
        cancelButton.setLabel(cancel);
        cancelButton.onAction([this] { tryReject(); });
    }

    const auto known = rememberedSizes().find(english);
    QSize size(initialSize.width, initialSize.height);
    if (known != rememberedSizes().end())
        size = {known->second.width, known->second.height};
    if (!size.isEmpty())
        shell->resize(size.expandedTo(shell->minimumSizeHint()));
    if (BaseWindow* const first = firstFocus())
        native::setFocus(first->getHandle());
}

int Dialog::doModal(BaseWindow* parent)
{
    create(parent);
    opened();
    if (!handle) // ended before it was shown
        return result;
    const QPointer<DialogShell> shell(&shellOf(handle));
    shell->exec();
    const int ended = shell ? result : static_cast<int>(Cancelled); // else the dialog is gone too
    delete shell.data();
    return ended;
}

void Dialog::show(BaseWindow* parent)
{
    create(parent);
    shellOf(handle).setModal(true);
    shellOf(handle).setAttribute(Qt::WA_DeleteOnClose);
    shellOf(handle).show();
    opened();
}

void Dialog::end(int nextResult)
{
    result = nextResult;
    if (handle)
        shellOf(handle).finish(nextResult);
}

void Dialog::setTitle(WStringView text)
{
    native::setTitle(handle, text);
}

void Dialog::resize(int width, int height)
{
    if (handle)
        widgetOf(handle)->resize(width, height);
}

Rect Dialog::getSize() const
{
    const Rect bounds = native::getGeometry(handle);
    return {0, 0, bounds.width, bounds.height};
}

void Dialog::setButtons(WStringView nextOk, WStringView nextCancel)
{
    okText = nextOk;
    cancelText = nextCancel;
}

void Dialog::setOkEnabled(bool enabled)
{
    okButton.setEnabled(enabled);
}

void Dialog::setInitialSize(int width, int height)
{
    initialSize = Rect(0, 0, width, height);
}

void Dialog::tryAccept()
{
    if (accept())
        end(Ok);
}

void Dialog::tryReject()
{
    if (reject())
        end(Cancelled);
}

// ProgressDialog

struct ProgressDialog::Implementation
{
    explicit Implementation(QWidget* parent) : dialog(parent) {}
    QProgressDialog dialog;
    QString what;
};

ProgressDialog::ProgressDialog(BaseWindow* parent, WStringView english)
    : implementation(std::make_unique<Implementation>(
          parent ? widgetOf(parent->getHandle())->window() : nullptr))
{
    constexpr int kWidth = 420, kPatienceMs = 300;
    QProgressDialog& dialog = implementation->dialog;
    implementation->what = toQt(WStringView(translate(english)));
    dialog.setLabelText(implementation->what);
    dialog.setCancelButtonText(toQt(WStringView(translate(u"Cancel"))));
    dialog.setWindowTitle(implementation->what);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumWidth(kWidth);
    dialog.setMinimumDuration(kPatienceMs);
    dialog.setAutoClose(false);
    dialog.setAutoReset(false);
    dialog.setRange(0, 1000);
}

ProgressDialog::~ProgressDialog() = default;

bool ProgressDialog::report(std::uint64_t part, std::uint64_t whole, WStringView what)
{
    QProgressDialog& dialog = implementation->dialog;
    if (!what.empty())
        dialog.setLabelText(implementation->what + QLatin1Char('\n') + toQt(what));
    dialog.setValue(whole == 0 ? 0 : static_cast<int>(part * 1000 / whole));
    QApplication::processEvents();
    return !dialog.wasCanceled();
}

bool ProgressDialog::isCancelled() const
{
    return implementation->dialog.wasCanceled();
}

} // namespace varn

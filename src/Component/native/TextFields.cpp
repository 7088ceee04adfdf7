#include "Component/TextArea.h"
#include "Component/Translation.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace varn {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetAs;
using native::widgetOf;

WString TextArea::getText() const
{
    return handle ? fromQt(widgetAs<QPlainTextEdit>(handle)->toPlainText()) : WString();
}

void TextArea::setText(WStringView text)
{
    if (handle)
        widgetAs<QPlainTextEdit>(handle)->setPlainText(toQt(text));
}

void TextArea::setReadOnly(bool readOnly)
{
    if (handle)
        widgetAs<QPlainTextEdit>(handle)->setReadOnly(readOnly);
}

void TextArea::setFixedPitch()
{
    if (!handle)
        return;
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    widgetOf(handle)->setFont(font);
}

MessageResult TextArea::windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                   LongParam lParam)
{
    const bool isPlainTab = message == kKeyDownMessage && wParam == kKeyTab &&
                            (lParam & (kHeldControl | kHeldAlt)) == 0;
    if (!isPlainTab)
        return BaseWindow::windowProc(window, message, wParam, lParam);
    moveFocus((lParam & kHeldShift) == 0);
    return 1;
}

void TextArea::tellChange()
{
    if (changed)
        changed();
    notifyParent(kTextChangedCode);
}

NativeHandle TextArea::makeHandle(NativeHandle parent)
{
    auto* const edit = new QPlainTextEdit(widgetOf(parent));
    edit->setTabChangesFocus(true);
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [this] { tellChange(); });
    return handleOf(edit);
}

WString TextField::getText() const
{
    return handle ? fromQt(widgetAs<QLineEdit>(handle)->text()) : WString();
}

void TextField::setText(WStringView text)
{
    if (handle)
        widgetAs<QLineEdit>(handle)->setText(toQt(text));
}

void TextField::setReadOnly(bool readOnly)
{
    if (handle)
        widgetAs<QLineEdit>(handle)->setReadOnly(readOnly);
}

void TextField::setPlaceholder(WStringView english)
{
    placeholder = english;
    applyTexts();
}

void TextField::setMaxLength(int units)
{
    if (handle)
        widgetAs<QLineEdit>(handle)->setMaxLength(units);
}

void TextField::selectAll()
{
    if (handle)
        widgetAs<QLineEdit>(handle)->selectAll();
}

NativeHandle TextField::makeHandle(NativeHandle parent)
{
    auto* const edit = new QLineEdit(widgetOf(parent));
    QObject::connect(edit, &QLineEdit::textEdited, edit, [this] { tellChange(); });
    QObject::connect(edit, &QLineEdit::returnPressed, edit, [this] {
        if (returned)
            returned();
    });
    return handleOf(edit);
}

void TextField::applyTexts()
{
    TextArea::applyTexts();
    if (handle && !placeholder.empty())
        widgetAs<QLineEdit>(handle)->setPlaceholderText(toQt(WStringView(translate(placeholder))));
}

} // namespace varn

// Labels, buttons and fields of the toolkit behind the kit's classes.
#include "Component/Button.h"
#include "Component/CheckBox.h"
#include "Component/ComboBox.h"
#include "Component/Label.h"
#include "Component/Slider.h"
#include "Component/Theme.h"
#include "Component/UpDownTextField.h"
#include "Component/native/Icons.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Pictures.h"
#include "Component/native/Qt.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>

namespace varn {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetAs;
using native::widgetOf;

// Label

Label::Label(WStringView english)
{
    setLabel(english);
}

WString Label::getText() const
{
    return handle ? fromQt(widgetAs<QLabel>(handle)->text()) : WString();
}

void Label::setText(WStringView text)
{
    if (handle)
        widgetAs<QLabel>(handle)->setText(toQt(text));
}

void Label::setBuddy(BaseWindow& control)
{
    if (!handle || !control.getHandle())
        return;
    QWidget* const field = widgetOf(control.getHandle());
    auto* const label = widgetAs<QLabel>(handle);
    label->setBuddy(field);
    QString name = label->text();
    name.remove(QLatin1Char('&'));
    while (name.endsWith(QLatin1Char(':')) || name.endsWith(QChar(0xFF1A)))
        name.chop(1);
    if (field->accessibleName().isEmpty())
        field->setAccessibleName(name);
}

void Label::setDimmed(bool dimmed)
{
    if (handle)
        widgetOf(handle)->setForegroundRole(dimmed ? QPalette::PlaceholderText
                                                   : QPalette::WindowText);
}

void Label::setWarning(bool warning)
{
    if (!handle)
        return;
    QPalette palette = widgetOf(handle)->palette();
    if (warning)
        palette.setColor(QPalette::WindowText, toQt(theme().warning));
    else
        palette = QPalette();
    widgetOf(handle)->setPalette(palette);
}

void Label::setWrapped(bool wrapped)
{
    if (handle)
        widgetAs<QLabel>(handle)->setWordWrap(wrapped);
}

void Label::setPicture(const Bitmap& picture)
{
    if (handle)
        widgetAs<QLabel>(handle)->setPixmap(native::pixmapOf(picture, native::getScale(handle)));
}

NativeHandle Label::makeHandle(NativeHandle parent)
{
    auto* const label = new QLabel(widgetOf(parent));
    label->setTextFormat(Qt::PlainText);
    return handleOf(label);
}

// Buttons

bool StateButton::isPressed() const
{
    return handle && widgetAs<QAbstractButton>(handle)->isDown();
}

WString StateButton::getText() const
{
    return handle ? fromQt(widgetAs<QAbstractButton>(handle)->text()) : WString();
}

void StateButton::setText(WStringView text)
{
    if (handle)
        widgetAs<QAbstractButton>(handle)->setText(toQt(text));
}

MessageResult StateButton::windowProc(NativeHandle window, std::uint32_t message, WordParam wParam,
                                      LongParam lParam)
{
    const MessageResult result = Component::windowProc(window, message, wParam, lParam);
    return message == kEraseBackgroundMessage ? 0 : result;
}

Button::Button(WStringView english)
{
    constexpr std::uint32_t kButtonBack = 0xE6E6E6;
    constexpr WStringView kCaptionFace = u"Comic Sans MS";
    constexpr int kCaptionHeight = 15;
    backColor = kButtonBack;
    if (native::hasFontFamily(kCaptionFace)) {
        font.family = kCaptionFace;
        font.height = kCaptionHeight;
        font.bold = true;
        hasCaptionFace = true;
    }
    setLabel(english);
}

void Button::setIcon(WStringView name)
{
    if (handle)
        widgetAs<QPushButton>(handle)->setIcon(native::makeIcon(name));
}

void Button::setImage(const Bitmap& picture)
{
    if (!handle)
        return;
    auto* const button = widgetAs<QPushButton>(handle);
    button->setIcon(QIcon(native::pixmapOf(picture, native::getScale(handle))));
    button->setIconSize({picture.getWidth(), picture.getHeight()});
}

void Button::setDefault(bool value)
{
    if (!handle)
        return;
    widgetAs<QPushButton>(handle)->setAutoDefault(value);
    widgetAs<QPushButton>(handle)->setDefault(value);
}

void Button::setFlat(bool value)
{
    if (handle)
        widgetAs<QPushButton>(handle)->setFlat(value);
}

NativeHandle Button::makeHandle(NativeHandle parent)
{
    auto* const button = new QPushButton(widgetOf(parent));
    button->setAutoDefault(false);
    if (hasCaptionFace) {
        QFont face(toQt(WStringView(font.family)));
        face.setPixelSize(font.height);
        face.setWeight(QFont::DemiBold); // 600
        button->setFont(face);
    }
    QObject::connect(button, &QPushButton::clicked, button, [this] { fireAction(); });
    return handleOf(button);
}

CheckBox::CheckBox(WStringView english)
{
    setLabel(english);
}

bool CheckBox::isChecked() const
{
    return handle && widgetAs<QCheckBox>(handle)->isChecked();
}

void CheckBox::setChecked(bool checked)
{
    if (handle)
        widgetAs<QCheckBox>(handle)->setChecked(checked);
}

NativeHandle CheckBox::makeHandle(NativeHandle parent)
{
    auto* const box = new QCheckBox(widgetOf(parent));
    QObject::connect(box, &QCheckBox::clicked, box, [this] { fireAction(); });
    return handleOf(box);
}

RadioButton::RadioButton(WStringView english)
{
    setLabel(english);
}

bool RadioButton::isChecked() const
{
    return handle && widgetAs<QRadioButton>(handle)->isChecked();
}

void RadioButton::setChecked(bool checked)
{
    if (handle)
        widgetAs<QRadioButton>(handle)->setChecked(checked);
}

NativeHandle RadioButton::makeHandle(NativeHandle parent)
{
    auto* const button = new QRadioButton(widgetOf(parent));
    QObject::connect(button, &QRadioButton::clicked, button, [this] { fireAction(); });
    return handleOf(button);
}

// ComboBox

void ComboBox::setItems(const std::vector<WString>& items)
{
    if (!handle)
        return;
    auto* const box = widgetAs<QComboBox>(handle);
    box->clear();
    for (const WString& item : items)
        box->addItem(toQt(WStringView(item)));
}

void ComboBox::setAdapter(const Adapter& adapter)
{
    std::vector<WString> items;
    for (std::size_t place = 0; place < adapter.getCount(); ++place)
        items.push_back(adapter.getText(place));
    setItems(items);
}

int ComboBox::getItemCount() const
{
    return handle ? widgetAs<QComboBox>(handle)->count() : 0;
}

int ComboBox::getSelectedIndex() const
{
    return handle ? widgetAs<QComboBox>(handle)->currentIndex() : -1;
}

void ComboBox::setSelectedIndex(int index)
{
    if (handle)
        widgetAs<QComboBox>(handle)->setCurrentIndex(index);
}

WString ComboBox::getText() const
{
    return handle ? fromQt(widgetAs<QComboBox>(handle)->currentText()) : WString();
}

void ComboBox::setText(WStringView text)
{
    if (handle)
        widgetAs<QComboBox>(handle)->setCurrentText(toQt(text));
}

/// What was typed becomes the entry it means: the equal one, else the first that holds it. Where
/// there is none the entry before comes back.
void ComboBox::settle()
{
    auto* const box = widgetAs<QComboBox>(handle);
    const QString typed = box->currentText();
    if (typed == box->itemText(box->currentIndex()))
        return;
    int entry = box->findText(typed, Qt::MatchFixedString);
    if (entry < 0 && !typed.isEmpty())
        entry = box->findText(typed, Qt::MatchContains);
    const bool chosen = entry >= 0 && entry != box->currentIndex();
    if (entry < 0)
        entry = box->currentIndex();
    box->setCurrentIndex(entry);
    box->setEditText(box->itemText(entry));
    if (chosen)
        fireAction();
}

NativeHandle ComboBox::makeHandle(NativeHandle parent)
{
    auto* const box = new QComboBox(widgetOf(parent));
    constexpr int kVisibleItems = 16;
    box->setMaxVisibleItems(kVisibleItems);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int kLeastLetters = 12;
    box->setMinimumContentsLength(kLeastLetters);
    if (hasEditPart()) {
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        box->completer()->setFilterMode(Qt::MatchContains);
        box->completer()->setCompletionMode(QCompleter::PopupCompletion);
        QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, [this] { settle(); });
    }
    QObject::connect(box, &QComboBox::activated, box, [this](int) { fireAction(); });
    return handleOf(box);
}

// Numbers

int UpDownTextField::getValue() const
{
    return handle ? widgetAs<QSpinBox>(handle)->value() : 0;
}

void UpDownTextField::setValue(int value)
{
    if (handle)
        widgetAs<QSpinBox>(handle)->setValue(value);
}

void UpDownTextField::setRange(int nextLeast, int nextMost)
{
    least = nextLeast;
    most = nextMost;
    if (handle)
        widgetAs<QSpinBox>(handle)->setRange(least, most);
}

void UpDownTextField::setStep(int step)
{
    if (handle)
        widgetAs<QSpinBox>(handle)->setSingleStep(step);
}

void UpDownTextField::setUnit(WStringView unit)
{
    if (handle)
        widgetAs<QSpinBox>(handle)->setSuffix(toQt(unit));
}

NativeHandle UpDownTextField::makeHandle(NativeHandle parent)
{
    auto* const box = new QSpinBox(widgetOf(parent));
    box->setRange(least, most);
    QObject::connect(box, &QSpinBox::valueChanged, box, [this](int) { fireAction(); });
    return handleOf(box);
}

double DecimalField::getValue() const
{
    return handle ? widgetAs<QDoubleSpinBox>(handle)->value() : 0;
}

void DecimalField::setValue(double value)
{
    if (handle)
        widgetAs<QDoubleSpinBox>(handle)->setValue(value);
}

NativeHandle DecimalField::makeHandle(NativeHandle parent)
{
    auto* const box = new QDoubleSpinBox(widgetOf(parent));
    box->setDecimals(digits);
    box->setRange(least, most);
    box->setSingleStep(step);
    QObject::connect(box, &QDoubleSpinBox::valueChanged, box, [this](double) { fireAction(); });
    return handleOf(box);
}

// Sliders

int Slider::getValue() const
{
    return handle ? widgetAs<QSlider>(handle)->value() : 0;
}

void Slider::setValue(int value)
{
    if (!handle)
        return;
    const QSignalBlocker quiet(widgetOf(handle));
    widgetAs<QSlider>(handle)->setValue(value);
}

void Slider::setRange(int nextLeast, int nextMost)
{
    least = nextLeast;
    most = nextMost;
    if (handle)
        widgetAs<QSlider>(handle)->setRange(least, most);
}

bool Slider::isDragging() const
{
    return handle && widgetAs<QSlider>(handle)->isSliderDown();
}

NativeHandle Slider::makeHandle(NativeHandle parent)
{
    auto* const slider = new QSlider(Qt::Horizontal, widgetOf(parent));
    slider->setRange(least, most);
    QObject::connect(slider, &QSlider::valueChanged, slider, [this](int) { fireAction(); });
    return handleOf(slider);
}

void ScrollStrip::setRange(int whole, int page, int step)
{
    if (!handle)
        return;
    auto* const bar = widgetAs<QScrollBar>(handle);
    const QSignalBlocker quiet(bar);
    bar->setRange(0, std::max(0, whole - page));
    bar->setPageStep(page);
    bar->setSingleStep(step);
}

int ScrollStrip::getValue() const
{
    return handle ? widgetAs<QScrollBar>(handle)->value() : 0;
}

void ScrollStrip::setValue(int value)
{
    if (!handle)
        return;
    const QSignalBlocker quiet(widgetOf(handle));
    widgetAs<QScrollBar>(handle)->setValue(value);
}

NativeHandle ScrollStrip::makeHandle(NativeHandle parent)
{
    auto* const bar =
        new QScrollBar(axis == Axis::Level ? Qt::Horizontal : Qt::Vertical, widgetOf(parent));
    bar->setFocusPolicy(Qt::NoFocus);
    QObject::connect(bar, &QScrollBar::valueChanged, bar, [this](int) { fireAction(); });
    return handleOf(bar);
}

void ProgressBar::setValue(int value)
{
    if (handle)
        widgetAs<QProgressBar>(handle)->setValue(value);
}

void ProgressBar::setTextVisible(bool visible)
{
    if (handle)
        widgetAs<QProgressBar>(handle)->setTextVisible(visible);
}

NativeHandle ProgressBar::makeHandle(NativeHandle parent)
{
    return handleOf(new QProgressBar(widgetOf(parent)));
}

} // namespace varn

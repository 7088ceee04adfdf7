// Panes that hold others, and how they are laid out.
#include "Component/GroupComponent.h"
#include "Component/Layout.h"
#include "Component/TabbedPane.h"
#include "Component/Translation.h"
#include "Component/native/NativeWindow.h"
#include "Component/native/Qt.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QScrollArea>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

namespace varn {

using native::fromQt;
using native::handleOf;
using native::toQt;
using native::widgetAs;
using native::widgetOf;

namespace {

constexpr int kGrid = 8;

NativeHandle container(QWidget* widget)
{
    native::markContainer(widget);
    return handleOf(widget);
}

void setMargin(QLayout& layout, BoxLayout::Margin margin)
{
    const int pixels = margin == BoxLayout::Margin::Normal ? kGrid : 0;
    layout.setContentsMargins(pixels, pixels, pixels, pixels);
    layout.setSpacing(kGrid);
}

void make(BaseWindow& child, BaseWindow& pane)
{
    if (!child.getHandle())
        child.create(&pane);
}

QFormLayout& formOf(BaseWindow& pane)
{
    return *static_cast<QFormLayout*>(widgetOf(pane.getHandle())->layout());
}

} // namespace

bool GroupComponent::create(BaseWindow* parent)
{
    children.clear(); // those of a native window before this one
    return Component::create(parent);
}

NativeHandle GroupComponent::makeHandle(NativeHandle parent)
{
    return container(new QWidget(widgetOf(parent)));
}

GroupBox::GroupBox(WStringView english)
{
    setLabel(english);
}

WString GroupBox::getText() const
{
    return handle ? fromQt(widgetAs<QGroupBox>(handle)->title()) : WString();
}

void GroupBox::setText(WStringView text)
{
    if (handle)
        widgetAs<QGroupBox>(handle)->setTitle(toQt(text));
}

NativeHandle GroupBox::makeHandle(NativeHandle parent)
{
    return container(new QGroupBox(widgetOf(parent)));
}

NativeHandle ScrollPane::makeHandle(NativeHandle parent)
{
    auto* const area = new QScrollArea(widgetOf(parent));
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    return container(area);
}

void ScrollPane::onCreate()
{
    content.create(this);
    widgetAs<QScrollArea>(handle)->setWidget(widgetOf(content.getHandle()));
}

NativeHandle Splitter::makeHandle(NativeHandle parent)
{
    auto* const splitter =
        new QSplitter(sideBySide ? Qt::Horizontal : Qt::Vertical, widgetOf(parent));
    splitter->setChildrenCollapsible(false);
    return container(splitter);
}

std::vector<int> Splitter::getSizes() const
{
    const QList<int> sizes = handle ? widgetAs<QSplitter>(handle)->sizes() : QList<int>();
    return {sizes.begin(), sizes.end()};
}

void Splitter::setSizes(const std::vector<int>& sizes)
{
    if (handle)
        widgetAs<QSplitter>(handle)->setSizes(QList<int>(sizes.begin(), sizes.end()));
}

// TabbedPane

TabbedPane::~TabbedPane()
{
    destroy(); // the strip goes before its pages, or their end would choose other ones
}

NativeHandle TabbedPane::makeHandle(NativeHandle parent)
{
    pages.clear(); // those of a native window before this one
    auto* const tabs = new QTabWidget(widgetOf(parent));
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs, [this](int) { fireAction(); });
    const NativeHandle made = container(tabs);
    tabs->tabBar()->setFocusPolicy(Qt::TabFocus); // which the container's own policy took
    return made;
}

GroupComponent& TabbedPane::addPage(WStringView english)
{
    Page& page = pages.emplace_back(Page{WString(english), std::make_unique<GroupComponent>()});
    page.pane->create(this);
    widgetAs<QTabWidget>(handle)->addTab(widgetOf(page.pane->getHandle()),
                                         toQt(WStringView(translate(english))));
    return *page.pane;
}

int TabbedPane::getSelectedPage() const
{
    return handle ? widgetAs<QTabWidget>(handle)->currentIndex() : -1;
}

void TabbedPane::selectPage(int page)
{
    if (handle)
        widgetAs<QTabWidget>(handle)->setCurrentIndex(page);
}

void TabbedPane::applyTexts()
{
    Component::applyTexts();
    if (!handle)
        return;
    for (std::size_t place = 0; place < pages.size(); ++place)
        widgetAs<QTabWidget>(handle)->setTabText(static_cast<int>(place),
                                                 toQt(WStringView(translate(pages[place].title))));
}

// Layouts

BoxLayout::BoxLayout(BaseWindow& pane, Axis axis, Margin margin) : pane(pane)
{
    const auto direction = axis == Axis::Row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    setMargin(*new QBoxLayout(direction, widgetOf(pane.getHandle())), margin);
}

static QBoxLayout& boxOf(BaseWindow& pane)
{
    return *static_cast<QBoxLayout*>(widgetOf(pane.getHandle())->layout());
}

BoxLayout& BoxLayout::add(BaseWindow& child, int stretch)
{
    make(child, pane);
    boxOf(pane).addWidget(widgetOf(child.getHandle()), stretch);
    return *this;
}

BoxLayout& BoxLayout::addStretch()
{
    boxOf(pane).addStretch(1);
    return *this;
}

BoxLayout& BoxLayout::addSpace(int pixels)
{
    boxOf(pane).addSpacing(pixels);
    return *this;
}

GridLayout::GridLayout(BaseWindow& pane, int gap, BoxLayout::Margin margin) : pane(pane)
{
    auto* const grid = new QGridLayout(widgetOf(pane.getHandle()));
    setMargin(*grid, margin);
    grid->setSpacing(gap);
}

static QGridLayout& gridOf(BaseWindow& pane)
{
    return *static_cast<QGridLayout*>(widgetOf(pane.getHandle())->layout());
}

GridLayout& GridLayout::add(BaseWindow& child, int column, int row)
{
    make(child, pane);
    gridOf(pane).addWidget(widgetOf(child.getHandle()), row, column);
    return *this;
}

GridLayout& GridLayout::stretch(int column, int row)
{
    gridOf(pane).setColumnStretch(column, 1);
    gridOf(pane).setRowStretch(row, 1);
    return *this;
}

FormLayout::FormLayout(GroupComponent& pane, BoxLayout::Margin margin) : pane(pane)
{
    auto* const form = new QFormLayout(widgetOf(pane.getHandle()));
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setMargin(*form, margin);
}

Label& FormLayout::addRow(WStringView english, BaseWindow& control)
{
    Label& label = pane.add<Label>(english);
    make(control, pane);
    formOf(pane).addRow(widgetOf(label.getHandle()), widgetOf(control.getHandle()));
    label.setBuddy(control);
    return label;
}

void FormLayout::addRow(BaseWindow& control)
{
    make(control, pane);
    formOf(pane).addRow(new QWidget(widgetOf(pane.getHandle())), widgetOf(control.getHandle()));
}

void FormLayout::addWide(BaseWindow& control)
{
    make(control, pane);
    formOf(pane).addRow(widgetOf(control.getHandle()));
}

void FormLayout::setProblem(BaseWindow& control, WStringView text)
{
    auto found = std::ranges::find(problems, &control, &std::pair<BaseWindow*, Label*>::first);
    if (found == problems.end()) {
        if (text.empty())
            return;
        Label& label = pane.add<Label>();
        label.setWarning(true);
        label.setWrapped(true);
        int row = 0;
        QFormLayout::ItemRole role = QFormLayout::FieldRole;
        formOf(pane).getWidgetPosition(widgetOf(control.getHandle()), &row, &role);
        formOf(pane).insertRow(row + 1, new QWidget(widgetOf(pane.getHandle())),
                               widgetOf(label.getHandle()));
        problems.emplace_back(&control, &label);
        found = problems.end() - 1;
    }
    found->second->setText(text.empty() ? WString() : u"\u26A0 " + WString(text));
    found->second->setVisible(!text.empty());
    if (control.getHandle())
        widgetOf(control.getHandle())->setAccessibleDescription(toQt(text));
}

} // namespace varn

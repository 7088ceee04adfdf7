#include "Component/TableComponent.h"

#include "Component/Theme.h"
#include "Component/Translation.h"
#include "Component/native/NativeWindow.h"
#include "Util/Host.h"

#include <algorithm>
#include <cmath>

namespace varn {

namespace {

/// What a list view is asked for.
enum ListMessage : std::uint32_t
{
    kGetItemCount = 0x1004,
    kGetNextItem = 0x100C,
    kEnsureVisible = 0x1013,
    kGetColumnWidth = 0x101D,
    kSetColumnWidth = 0x101E,
    kGetTopIndex = 0x1027,
    kGetCountPerPage = 0x1028,
    kSetItemCount = 0x102F,
    kGetSelectedCount = 0x1032
};

constexpr int kPadding = 6; // pixels beside a text
constexpr int kLeading = 8; // of a row above its letters' height
constexpr int kEditDrop = 20;

Rect scaled(const Rect& rect, double scale)
{
    const auto pixel = [scale](int value) { return static_cast<int>(std::lround(value * scale)); };
    return {pixel(rect.x), pixel(rect.y), pixel(rect.right) - pixel(rect.x),
            pixel(rect.bottom) - pixel(rect.y)};
}

WString elided(const Graphics& graphics, WStringView text, int room)
{
    if (graphics.getStringWidth(text) <= room)
        return WString(text);
    std::size_t fits = 0, least = text.size();
    while (fits < least) { // the longest beginning that fits with its dots
        const std::size_t middle = (fits + least + 1) / 2;
        const WString cut = WString(text.substr(0, middle)) + u'\u2026';
        if (graphics.getStringWidth(cut) <= room)
            fits = middle;
        else
            least = middle - 1;
    }
    return fits == 0 ? WString() : WString(text.substr(0, fits)) + u'\u2026';
}

} // namespace

TableComponent::TableComponent()
{
    backColor = theme().field;
    textColor = theme().fieldText;
    Table::setModel(&noModel);
}

TableComponent::~TableComponent()
{
    Table::setModel(nullptr);
}

WString TableComponent::toString() const
{
    return u"This component is Table.";
}

void TableComponent::setModel(TableModel* next)
{
    Table::setModel(next ? next : &noModel);
    selected.clear();
    current = -1;
    fitScrollbar();
    scrollTo(0);
    repaint();
}

int TableComponent::getRowCount() const
{
    const TableModel* const model = getModel();
    return model ? model->getRowCount() : 0;
}

int TableComponent::getHeaderHeight() const
{
    return isHeaderShown() ? getFont().height + kLeading + 2 : 0;
}

int TableComponent::getRowHeight() const
{
    return getFont().height + kLeading;
}

int TableComponent::clientWidth() const
{
    return getWidth() - (isScrollNeeded() ? kThickness : 0);
}

int TableComponent::fullyShownRows() const
{
    return std::max(1, (getHeight() - getHeaderHeight()) / getRowHeight());
}

Rect TableComponent::scrollTrack() const
{
    return {getWidth() - kThickness, getHeaderHeight(), kThickness,
            std::max(0, getHeight() - getHeaderHeight())};
}

void TableComponent::fitScrollbar()
{
    setScrollRange(getRowCount(), fullyShownRows());
    columnModel.layOut(clientWidth());
}

void TableComponent::setColumnWidth(int column, int width)
{
    columnModel.setWidth(column, width, clientWidth());
    repaint();
}

void TableComponent::ensureRowVisible(int row)
{
    if (row < 0 || row >= getRowCount())
        return;
    const int top = getScrollPosition();
    const int bottom = top + fullyShownRows() - 1;
    int next = top;
    if (row < top)
        next = row;
    else if (row > bottom)
        next = top + row - bottom + 1;
    if (next != top)
        scroll(static_cast<std::uint32_t>(next) << 16 | ThumbPosition);
}

void TableComponent::selectAll()
{
    if (getRowCount() == 0)
        return;
    for (int row = 0; row < getRowCount(); ++row)
        selected.insert(row);
    if (current < 0)
        current = 0;
    repaint();
    fireAction();
}

int TableComponent::getSelectedRow() const
{
    return current;
}

std::vector<int> TableComponent::getSelectedRows() const
{
    return {selected.begin(), selected.end()};
}

void TableComponent::selectRow(int row)
{
    selected.clear();
    current = row >= 0 && row < getRowCount() ? row : -1;
    if (current >= 0)
        selected.insert(current);
    ensureRowVisible(current);
    repaint();
}

int TableComponent::findRow(int y) const
{
    if (y < getHeaderHeight())
        return -1;
    const int row = getScrollPosition() + (y - getHeaderHeight()) / getRowHeight();
    return row < getRowCount() ? row : -1;
}

MessageResult TableComponent::windowProc(NativeHandle window, std::uint32_t message,
                                         WordParam wParam, LongParam lParam)
{
    const int number = static_cast<int>(wParam);
    switch (message) {
    case kGetItemCount:
        return getRowCount();
    case kGetNextItem: {
        const auto next = selected.upper_bound(number);
        return next == selected.end() ? -1 : *next;
    }
    case kEnsureVisible:
        ensureRowVisible(number);
        return 1;
    case kGetColumnWidth:
        return number >= 0 && number < getColumnCount() ? columnModel.getColumn(number).width : 0;
    case kSetColumnWidth:
        setColumnWidth(number, static_cast<int>(lParam));
        return 1;
    case kGetTopIndex:
        return getScrollPosition();
    case kGetCountPerPage:
        return fullyShownRows();
    case kGetSelectedCount:
        return static_cast<MessageResult>(selected.size());
    case kSetItemCount: // the model says how many there are
        host().showMessage(u"LVM_SETITEMCOUNT is not supported");
        return 0;
    default:
        return Table::windowProc(window, message, wParam, lParam);
    }
}

void TableComponent::onCreate()
{
    Table::onCreate();
    fitScrollbar();
}

void TableComponent::onSize(int, int)
{
    fitScrollbar();
    repaint();
}

NativeHandle TableComponent::makeHandle(NativeHandle parent)
{
    return BaseWindow::makeHandle(parent);
}

void TableComponent::applyTexts()
{
    Component::applyTexts();
    const std::vector<Column>& columns = getColumns();
    if (static_cast<std::size_t>(columnModel.getColumnCount()) != columns.size()) {
        columnModel.clear();
        for (const Column& column : columns)
            columnModel.addColumn(
                {translate(column.english), column.width > 0 ? column.width : 80});
    }
    for (std::size_t place = 0; place < columns.size(); ++place)
        columnModel.getColumn(static_cast<int>(place)).header = translate(columns[place].english);
    columnModel.layOut(clientWidth());
    repaint();
}

void TableComponent::modelChanged(const TableModelEvent&)
{
    const int count = getRowCount();
    std::erase_if(selected, [count](int row) { return row >= count; });
    current = std::min(current, count - 1);
    fitScrollbar();
    repaint();
}

void TableComponent::scrolled()
{
    repaint();
}

bool TableComponent::navigate(int key, std::uint32_t flags)
{
    int next = current;
    switch (key) {
    case kKeyUp:
        next -= 1;
        break;
    case kKeyDown:
        next += 1;
        break;
    case kKeyPageUp:
        next -= fullyShownRows();
        break;
    case kKeyPageDown:
        next += fullyShownRows();
        break;
    case kKeyHome:
        next = 0;
        break;
    case kKeyEnd:
        next = getRowCount() - 1;
        break;
    default:
        return false;
    }
    if (getRowCount() > 0)
        takeRow(std::clamp(next, 0, getRowCount() - 1), flags & kHeldShift);
    return true;
}

bool TableComponent::onKeyDown(int key, std::uint32_t flags)
{
    if (key == 'A' && (flags & kHeldControl) != 0) {
        selectAll();
        return true;
    }
    if (key == kKeyTab)
        return Component::onKeyDown(key, flags);
    const KeyEvent event(this, kKeyDownMessage, key, flags, false);
    if (getListeners().fire(kKeyListener, event))
        return true;
    if (key == kKeyReturn) {
        fireEvent(kReturnCode);
        return true;
    }
    notifiedKey = key;
    const std::weak_ptr<const void> life = getListeners().getLife();
    notifyParent(kKeyDownCode);
    return life.expired() || navigate(key, flags);
}

/// Shift takes the rows from the current one on, Control adds or takes away one.
void TableComponent::takeRow(int row, std::uint32_t held)
{
    if ((held & kHeldControl) != 0) {
        if (selected.erase(row) == 0)
            selected.insert(row);
    } else {
        selected.clear();
        const int from = (held & kHeldShift) != 0 && current >= 0 ? current : row;
        for (int each = std::min(from, row); each <= std::max(from, row); ++each)
            selected.insert(each);
    }
    current = row;
    ensureRowVisible(row);
    repaint();
    fireAction();
}

void TableComponent::pressHeader(int x)
{
    heldColumn = columnModel.findGrip(x);
    if (heldColumn < 0)
        return;
    const TableColumn& column = columnModel.getColumn(heldColumn);
    heldOffset = column.x + column.width - x;
    state = State::Resizing;
}

bool TableComponent::onLeftDown(const MouseEvent& event)
{
    requestFocus(true);
    if (isScrollNeeded() && event.x >= scrollTrack().x) {
        pressScrollbar(scrollTrack(), event.y);
        repaint();
        return true;
    }
    if (event.y < getHeaderHeight()) {
        pressHeader(event.x);
        return true;
    }
    const int row = findRow(event.y);
    if (row < 0) {
        onEmptyClick(event);
        return true;
    }
    const auto held = static_cast<std::uint32_t>(event.data);
    const bool again = row == current && selected.contains(row) && selected.size() == 1 &&
                       (held & (kHeldShift | kHeldControl)) == 0;
    if (!again) {
        state = State::Idle;
        takeRow(row, held);
        return true;
    }
    state = State::Editing;
    editPoint = {event.x, event.y + kEditDrop};
    notifyParent(kItemEditCode);
    return true;
}

bool TableComponent::onLeftUp(const MouseEvent&)
{
    if (state == State::Resizing)
        state = State::Idle;
    if (isScrollbarGrabbed()) {
        releaseScrollbar();
        repaint();
    }
    return true;
}

bool TableComponent::onLeftDoubleClick(const MouseEvent& event)
{
    if (findRow(event.y) >= 0)
        fireEvent(kDoubleClickCode);
    return true;
}

bool TableComponent::onMouseMove(const MouseEvent& event)
{
    if (state == State::Resizing)
        setColumnWidth(heldColumn, event.x + heldOffset - columnModel.getColumn(heldColumn).x);
    else if (isScrollbarGrabbed())
        dragScrollbar(scrollTrack(), event.y);
    else
        native::setCursor(handle, event.y < getHeaderHeight() && columnModel.findGrip(event.x) >= 0
                                      ? native::Cursor::SplitColumns
                                      : native::Cursor::Arrow);
    return true;
}

bool TableComponent::onMouseWheel(const MouseEvent&, int delta)
{
    constexpr int kLinesPerNotch = 3;
    scrollTo(getScrollPosition() - delta * kLinesPerNotch / kWheelStep);
    return true;
}

bool TableComponent::onSetFocus()
{
    repaint();
    return false;
}

bool TableComponent::onKillFocus()
{
    repaint();
    return false;
}

void TableComponent::paintText(Graphics& graphics, const Rect& cell, WStringView text, bool right)
{
    const int padding = static_cast<int>(std::lround(kPadding * getScale()));
    const WString shown = elided(graphics, text, cell.width - 2 * padding);
    const int space = right ? cell.width - padding - graphics.getStringWidth(shown) : padding;
    const int height = graphics.getFont().height;
    graphics.drawString(shown, cell.x + space, cell.y + (cell.height - height) / 2);
}

void TableComponent::paintHeader(Graphics& graphics, double scale)
{
    const Rect bar = scaled({0, 0, getWidth(), getHeaderHeight()}, scale);
    graphics.setFillColor(theme().face);
    graphics.setTextColor(theme().faceText);
    graphics.fillRect(bar);
    for (int column = 0; column < getColumnCount(); ++column) {
        const TableColumn& shown = columnModel.getColumn(column);
        const Rect cell = scaled({shown.x, 0, shown.width, getHeaderHeight()}, scale);
        paintText(graphics, cell, shown.header, false);
        graphics.drawLine(cell.right - 1, cell.top, cell.right - 1, cell.bottom - 1, theme().line);
    }
    graphics.drawLine(0, bar.bottom - 1, bar.right - 1, bar.bottom - 1, theme().line);
}

void TableComponent::paintRow(Graphics& graphics, int row, double scale)
{
    const TableModel& model = *getModel();
    const int top = getHeaderHeight() + (row - getScrollPosition()) * getRowHeight();
    const bool isSelected = selected.contains(row);
    std::uint32_t back = backColor, text = textColor;
    if (isSelected) {
        back = theme().accent;
        text = theme().accentText;
    } else if (const std::optional<std::uint32_t> own = model.getRowColor(row)) {
        back = *own;
        text = readableOn(back);
    }
    const Rect line = scaled({0, top, getWidth(), getRowHeight()}, scale);
    graphics.setFillColor(back);
    graphics.setTextColor(text);
    graphics.fillRect(line);
    for (int column = 0; column < std::min(getColumnCount(), model.getColumnCount()); ++column) {
        const TableColumn& place = columnModel.getColumn(column);
        paintText(graphics, scaled({place.x, top, place.width, getRowHeight()}, scale),
                  model.getValueAt(row, column), model.isNumber(column));
    }
    if (row == current && hasFocus())
        graphics.drawFramedRect({line.x, line.y, line.width - 1, line.height - 1}, 1, text, text);
}

void TableComponent::paint(Graphics& graphics, const Rect& dirty)
{
    const double scale = getScale();
    FontSpec face = getFont();
    face.height = static_cast<int>(std::lround(face.height * scale));
    graphics.selectFont(face);
    graphics.setFillColor(backColor);
    graphics.fillRect(dirty);
    const int first = getScrollPosition();
    const int last = std::min(getRowCount(), first + fullyShownRows() + 1);
    for (int row = first; row < last; ++row) {
        const int top = getHeaderHeight() + (row - first) * getRowHeight();
        if (scaled({0, top, getWidth(), getRowHeight()}, scale).overlaps(dirty))
            paintRow(graphics, row, scale);
    }
    if (getRowCount() == 0 && !getEmptyText().empty()) {
        graphics.setTextColor(theme().dimText);
        paintText(graphics, scaled({0, getHeaderHeight(), getWidth(), getRowHeight()}, scale),
                  translate(getEmptyText()), false);
    }
    if (isHeaderShown())
        paintHeader(graphics, scale);
    if (isScrollNeeded())
        paintScrollbar(graphics, scaled(scrollTrack(), scale));
}

} // namespace varn

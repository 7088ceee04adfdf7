#include "MapEditor3D/frame/panes/WarpLocationDialog.h"

namespace varn {

WarpLocationDialog::WarpLocationDialog(const WizMap& map, MapCell target)
    : Dialog(u"Warp Location"), target(target), x(0, map.cols - 1), y(0, map.rows - 1), picker(map)
{}

void WarpLocationDialog::build()
{
    BoxLayout(getPane(), BoxLayout::Axis::Row, BoxLayout::Margin::None).add(fields).add(picker);
    FormLayout form(fields, BoxLayout::Margin::None);
    form.addRow(u"&X:", x);
    form.addRow(u"&Y:", y);
    x.setHint(u"Column, from the left");
    y.setHint(u"Row, from the top");
    x.setValue(target.x);
    y.setValue(target.y);
    picker.setCell({x.getValue(), y.getValue()});

    picker.onAction([this] {
        const MapCell cell = picker.getCell();
        x.setValue(cell.x);
        y.setValue(cell.y);
    });
    x.onAction([this] { picker.setCell({x.getValue(), picker.getCell().y}); });
    y.onAction([this] { picker.setCell({picker.getCell().x, y.getValue()}); });
}

bool WarpLocationDialog::accept()
{
    target = {x.getValue(), y.getValue()};
    return true;
}

} // namespace varn

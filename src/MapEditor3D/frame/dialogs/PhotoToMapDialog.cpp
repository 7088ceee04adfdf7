#include "MapEditor3D/frame/dialogs/PhotoToMapDialog.h"

#include "Component/Translation.h"
#include "Util/Exception.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

namespace varn {

namespace {

constexpr int kRestMs = 60;

WString rangeOf(const PhotoField& field)
{
    return toDecimal(field.least) + u" - " + toDecimal(field.most) + u" px";
}

} // namespace

PhotoToMapDialog::PhotoToMapDialog(WizMapEditor& editor, Settings& settings)
    : Dialog(u"Generate a map from an image"), editor(editor), settings(settings),
      tileSize(kPhotoTileSize.least, kPhotoTileSize.most),
      offsetX(kPhotoOffsetX.least, kPhotoOffsetX.most),
      offsetY(kPhotoOffsetY.least, kPhotoOffsetY.most),
      thickness(kPhotoThickness.least, kPhotoThickness.most), red(0, 255), green(0, 255),
      blue(0, 255), openButton(u"Open &Image"), executeButton(u"&Execute"),
      later([this] { recognise(); })
{
    picture.getOptions() = PhotoOptions::fromSettings(settings);
}

void PhotoToMapDialog::build()
{
    setInitialSize(1120, 640);
    BoxLayout rows(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    rows.add(panes, 1).add(help).add(status);
    picture.create(&panes);
    buildFields();
    preview.create(&panes);
    panes.setSizes({460, 260, 400});

    help.setWrapped(true);
    help.setText(translate(u"Remove every colour that is neither wall nor door with the right "
                           u"button until the red grid shows. If a wall or door vanished, bring "
                           u"it back with the left button where it stood.") +
                 u"\n" + translate(u"Adjust the offset so that the red grid lies on the walls."));
    preview.show(editor.getMap());
    picture.setRecognised(&preview.getMap());
    picture.onMask = [this] { later.startOnce(kRestMs); };
    picture.onCursor = [this] { showStatus(); };
    picture.onDrop = [this](const std::filesystem::path& path) { openImage(path); };
    showStatus();
}

void PhotoToMapDialog::buildFields()
{
    fields.create(&panes);
    FormLayout form(fields);
    form.addRow(openButton);
    const PhotoOptions& options = picture.getOptions();
    const auto addNumber = [&](WStringView label, UpDownTextField& field, int value,
                               const PhotoField& description) {
        form.addRow(label, field);
        field.setUnit(u" px");
        field.setValue(value);
        field.setTooltip(rangeOf(description));
        field.onAction([this] { readFields(); });
    };
    addNumber(u"Tile &Size", tileSize, options.tileSize, kPhotoTileSize);
    addNumber(u"Offset&X", offsetX, options.offsetX, kPhotoOffsetX);
    addNumber(u"Offset&Y", offsetY, options.offsetY, kPhotoOffsetY);
    addNumber(u"&WallThickness", thickness, options.wallThickness, kPhotoThickness);
    form.addRow(u"&BackgroundColor", colourRow);
    BoxLayout colours(colourRow, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    const std::uint32_t background = options.backgroundColour;
    const auto addColour = [&](UpDownTextField& field, WStringView name, std::uint32_t value) {
        colours.add(field);
        field.setAccessibleName(name);
        field.setHint(name);
        field.setValue(static_cast<int>(value & 0xFF));
        field.onAction([this] { readFields(); });
    };
    addColour(red, u"Red, 0 to 255", background >> 16);
    addColour(green, u"Green, 0 to 255", background >> 8);
    addColour(blue, u"Blue, 0 to 255", background);
    form.addRow(executeButton);
    form.addWide(executeHelp);
    executeHelp.setWrapped(true);
    executeHelp.setDimmed(true);
    executeHelp.setText(translate(u"Execute") + translate(u" shows the result when pressed."));
    openButton.onAction([this] { chooseImage(); });
    executeButton.onAction([this] { execute(); });
}

void PhotoToMapDialog::chooseImage()
{
    ChooserRequest request;
    request.title = request.filterName = u"Image File";
    request.extensions = {u"png", u"jpg", u"jpeg", u"bmp", u"gif"};
    if (const auto chosen = host().chooseFile(request))
        openImage(resolveProjectPath(*chosen));
}

bool PhotoToMapDialog::openImage(const std::filesystem::path& path)
{
    try {
        picture.open(toWide(path));
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
        return false;
    }
    recognise();
    return true;
}

void PhotoToMapDialog::readFields()
{
    PhotoOptions& options = picture.getOptions();
    options.tileSize = tileSize.getValue();
    options.offsetX = offsetX.getValue();
    options.offsetY = offsetY.getValue();
    options.wallThickness = thickness.getValue();
    options.backgroundColour =
        static_cast<std::uint32_t>(red.getValue() << 16 | green.getValue() << 8 | blue.getValue());
    picture.optionsChanged();
    later.startOnce(kRestMs);
}

/// The floor as it would be, from the open one and the picture.
void PhotoToMapDialog::recognise()
{
    later.stop();
    preview.getMap().cells = editor.getMap().cells;
    photoToMap(picture.getImage(), picture.getOptions(), preview.getMap());
    preview.cellsEdited();
    picture.repaint();
    showStatus();
}

void PhotoToMapDialog::execute()
{
    if (picture.getImage().isEmpty())
        return;
    recognise();
    picture.getOptions().store(settings);
}

void PhotoToMapDialog::showStatus()
{
    if (picture.getImage().isEmpty()) {
        status.setText(
            translate(u"Open a picture of a map, or drop one here: png, jpg, bmp, gif."));
        return;
    }
    const std::uint32_t colour = picture.getCursorColour();
    const auto channel = [&](int shift) { return toDecimal(colour >> shift & 0xFF); };
    status.setText(u"Col:" + toDecimal(picture.getGridColumns()) + u", Row:" +
                   toDecimal(picture.getGridRows()) + u"   RGB(" + channel(16) + u", " +
                   channel(8) + u", " + channel(0) + u")");
}

bool PhotoToMapDialog::accept()
{
    execute();
    preview.takeOver(editor);
    return true;
}

} // namespace varn

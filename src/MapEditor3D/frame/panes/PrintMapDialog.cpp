#include "MapEditor3D/frame/panes/PrintMapDialog.h"

#include "Component/CheckBox.h"
#include "Component/Dialog.h"
#include "Component/ProgressDialog.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "Component/Translation.h"
#include "Component/UpDownTextField.h"
#include "Game/Map/View/MapPicture.h"
#include "Graphics/PngFile.h"
#include "MapEditor3D/canvas/TileStrip.h"
#include "MapEditor3D/export/MazePage.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

constexpr int kLeastCell = 8, kMostCell = 40;

/// The picture of a map as it will be printed, fitted into a frame.
class Preview final : public Component
{
  public:
    void setPicture(Image next)
    {
        picture = std::move(next);
        fitted = Image();
        repaint();
    }

  protected:
    void paint(Graphics& graphics, const Rect&) override
    {
        const int width = graphics.getWidth(), height = graphics.getHeight();
        graphics.setFillColor(0x808080);
        graphics.fillRect(0, 0, width, height);
        if (picture.getWidth() == 0)
            return;
        const double scale = std::min(
            {1.0, double(width) / picture.getWidth(), double(height) / picture.getHeight()});
        const int shownWidth = std::max(1, static_cast<int>(picture.getWidth() * scale));
        const int shownHeight = std::max(1, static_cast<int>(picture.getHeight() * scale));
        if (fitted.getWidth() != shownWidth || fitted.getHeight() != shownHeight)
            fitted = scaledPart(picture, picture.getBounds(), shownWidth, shownHeight);
        graphics.drawImage(fitted, (width - shownWidth) / 2, (height - shownHeight) / 2);
    }

  private:
    Image picture, fitted;
};

/// How a map is printed as a picture.
class PrintDialog final : public Dialog
{
  public:
    explicit PrintDialog(const WizMap& map)
        : Dialog(u"Save Map as Image"), map(map), numbers(u"&Numbers of columns and rows"),
          events(u"&Events")
    {
        images.update(map);
        setInitialSize(720, 560);
    }

    const Graphics& getSurface() const { return surface; }

  protected:
    void build() override
    {
        BoxLayout(getPane(), BoxLayout::Axis::Row, BoxLayout::Margin::None)
            .add(fields)
            .add(preview, 1);
        constexpr int kLeastPreview = 320;
        preview.setMinimumSize(kLeastPreview, kLeastPreview);
        preview.setAccessibleName(u"Preview");
        FormLayout form(fields, BoxLayout::Margin::None);
        form.addRow(u"&Cell size:", cellSize);
        cellSize.setUnit(u" px");
        cellSize.setStep(kPrintedCell / 2);
        form.addRow(numbers);
        form.addRow(events);
        form.addRow(u"Picture:", size);
        const MapPrint options;
        cellSize.setValue(options.cellSize);
        numbers.setChecked(options.numbers);
        events.setChecked(options.events);
        cellSize.onAction([this] { print(); });
        numbers.onAction([this] { print(); });
        events.onAction([this] { print(); });
        setButtons(u"Save...", u"Cancel");
        print();
    }
    bool accept() override { return printed; }
    BaseWindow* firstFocus() override { return &cellSize; }

  private:
    void print()
    {
        printed = drawMapPicture(surface, map, images,
                                 {.cellSize = cellSize.getValue(),
                                  .numbers = numbers.isChecked(),
                                  .events = events.isChecked()});
        size.setText(printed ? toDecimal(surface.getWidth()) + u" \u00D7 " +
                                   toDecimal(surface.getHeight()) + u" px"
                             : translate(u"too large: choose smaller cells"));
        size.setWarning(!printed);
        setOkEnabled(printed);
        preview.setPicture(printed ? Image(surface.getImage()) : Image());
    }

    const WizMap& map;
    WizMapImage images{MapPictures::Plan};
    Graphics surface;
    bool printed = false;
    GroupComponent fields;
    UpDownTextField cellSize{kLeastCell, kMostCell};
    CheckBox numbers, events;
    Label size;
    Preview preview;
};

/// The page's template, as the person words it.
class ExportMazeAsHtmlDialog final : public Dialog
{
  public:
    ExportMazeAsHtmlDialog() : Dialog(u"Edit Template") { setInitialSize(720, 520); }

  protected:
    void build() override
    {
        BoxLayout(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None)
            .add(hint)
            .add(text, 1);
        hint.setWrapped(true);
        hint.setDimmed(true);
        hint.setBuddy(text);
        text.setFixedPitch();
        before = loadMazeTemplate();
        text.setText(before);
    }
    bool accept() override
    {
        // The page is written with the line ends of its template.
        WString edited = replaceAll(text.getText(), u"\n", u"\r\n");
        return edited == before || saveMazeTemplate(edited);
    }
    BaseWindow* firstFocus() override { return &text; }

  private:
    Label hint{u"&Template: %output% becomes the maps, %title% the name of the page's file."};
    TextArea text;
    WString before;
};

/// Which maps go on a page.
class SaveMazeAsDialog final : public Dialog
{
  public:
    SaveMazeAsDialog(const std::vector<WString>& chosen, const std::vector<WString>& all)
        : Dialog(u"Export this map as HTML"), chosen(chosen), model(all)
    {
        setInitialSize(440, 480);
    }
    ~SaveMazeAsDialog() override { table.setModel(nullptr); }

    /// Behind an OK.
    const std::vector<WString>& getMaps() const { return maps; }

  protected:
    void build() override
    {
        BoxLayout(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None)
            .add(label)
            .add(tableHolder, 1)
            .add(problem)
            .add(row);
        table.create(&tableHolder, false, true);
        BoxLayout(tableHolder, BoxLayout::Axis::Column, BoxLayout::Margin::None).add(table, 1);
        table.setColumns({{u"Name", 0}});
        table.setModel(&model);
        label.setBuddy(table);
        for (int place = 0; place < model.getRowCount(); ++place)
            table.setRowChecked(place, isChosen(model.getValueAt(place, 0)));
        problem.setWarning(true);
        BoxLayout(row, BoxLayout::Axis::Row, BoxLayout::Margin::None).add(editButton).addStretch();
        editButton.onAction([this] { ExportMazeAsHtmlDialog().doModal(&getPane()); });
        setButtons(u"Export...", u"Cancel");
    }
    bool accept() override
    {
        maps.clear();
        for (int place = 0; place < model.getRowCount(); ++place)
            if (table.isRowChecked(place))
                maps.push_back(model.getValueAt(place, 0));
        problem.setText(maps.empty() ? translate(u"No output map selected") : WString());
        return !maps.empty();
    }
    BaseWindow* firstFocus() override { return &table; }

  private:
    class Model final : public TableModel
    {
      public:
        explicit Model(const std::vector<WString>& names) : names(names) {}
        int getRowCount() const override { return static_cast<int>(names.size()); }
        int getColumnCount() const override { return 1; }
        WString getValueAt(int place, int) const override
        {
            return names.at(static_cast<std::size_t>(place));
        }

      private:
        const std::vector<WString>& names;
    };

    bool isChosen(WStringView name) const
    {
        return std::ranges::find(chosen, name) != chosen.end();
    }

    const std::vector<WString>& chosen;
    std::vector<WString> maps;
    Model model;
    Label label{u"&Maps on the page:"};
    GroupComponent tableHolder;
    Table table;
    Label problem;
    GroupComponent row;
    Button editButton{u"&Edit Template..."};
};

bool couldNotSave(WStringView path)
{
    host().showMessage(u"Couldn't save " + WString(path));
    return false;
}

} // namespace

bool saveMapAsImageByDialog(const WizMap& map, WStringView mapName, BaseWindow* parent)
{
    PrintDialog dialog(map);
    if (dialog.doModal(parent) != Dialog::Ok)
        return false;
    const auto path =
        host().chooseFile({.title = u"Save '" + WString(mapName) + u"' as an image file",
                           .filterName = u"Image File",
                           .extensions = {u"png"},
                           .suggestedName = WString(mapName) + u".png",
                           .forSaving = true});
    if (!path)
        return false;
    Bitmap picture;
    picture.copyFrom(dialog.getSurface().getBitmap());
    for (std::size_t at = 3; at < picture.byteCount(); at += 4) // what was drawn has no alpha
        picture.getBits()[at] = 255;
    const std::string png = writePng(picture);
    return (!png.empty() && replaceFile(resolveProjectPath(*path), asBytes(png))) ||
           couldNotSave(*path);
}

bool exportMapsAsHtmlByDialog(const std::vector<WString>& chosen, const std::vector<WString>& all,
                              BaseWindow* parent)
{
    if (chosen.empty()) {
        host().showMessage(u"No output map selected");
        return false;
    }
    SaveMazeAsDialog dialog(chosen, all);
    if (dialog.doModal(parent) != Dialog::Ok)
        return false;
    const std::vector<WString>& maps = dialog.getMaps();
    const auto path = host().chooseFile({.title = u"Export this map as HTML",
                                         .filterName = u"HTML File",
                                         .extensions = {u"html"},
                                         .suggestedName = maps.front() + u".html",
                                         .forSaving = true});
    if (!path)
        return false;
    ProgressDialog progress(parent, u"Export this map as HTML");
    const PageProgress report = [&](std::size_t done, std::size_t whole, WStringView map) {
        return progress.report(done, whole, map);
    };
    try {
        return exportMapsAsHtml(maps, *path, report) ||
               (!progress.isCancelled() && couldNotSave(*path));
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
        return false;
    }
}

} // namespace varn

#include "Call.h"
#include "Context.h"
#include "Game/Database/GameDatabase.h"
#include "Game/Map/GameResourceManager.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/View/DungeonView.h"
#include "MapEditor3D/export/MazePage.h"
#include "MapEditor3D/generators/PhotoToMap.h"
#include "Util/Colour.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <nlohmann/json.hpp>

namespace varn::driver {

namespace {

constexpr int kViewWidth = 320, kViewHeight = 240;

/// What pictures of a map read beside the map itself: event tiles, the default distance, the
/// catalogue.
void loadPictureTables()
{
    for (const WStringView file : {u"System.xml", u"EventFloor.xml"})
        findTableFile(file)->load(file, file == WStringView(u"System.xml") ? 1 : 0);
    if (isFile(u"Data/ResourceManager.xml"))
        GameResourceManager::instance().loadDefault();
}

WString mapFile(WStringView name)
{
    return WString(kDungeonFolder) + WString(name) + u".map";
}

/// Two whole numbers with one unit between them: "640x480", "3,-1".
std::pair<int, int> parsePair(const std::string& text, char separator, std::pair<int, int> bounds,
                              std::string_view option)
{
    const std::size_t middle = text.find(separator);
    const auto part = [&](std::size_t from, std::size_t count) -> int {
        const std::string digits = text.substr(from, count);
        const bool isNumber = !digits.empty() && digits.size() < 6 &&
                              digits.find_first_not_of("0123456789") == std::string::npos;
        const int value = isNumber ? std::stoi(digits) : -1;
        if (value < bounds.first || value > bounds.second)
            throw UsageError(std::string(option) + ": '" + text + "' is not two numbers from " +
                             std::to_string(bounds.first) + " to " + std::to_string(bounds.second) +
                             " with '" + separator + "' between them");
        return value;
    };
    if (middle == std::string::npos)
        part(0, 0);
    return {part(0, middle), part(middle + 1, std::string::npos)};
}

/// "RRGGBB" as 0xRRGGBB.
std::uint32_t parseColourWord(WStringView text, std::string_view option)
{
    const auto colour = parseColour(text);
    if (!colour)
        throw UsageError(std::string(option) + ": '" + toUtf8(text) + "' is not a colour RRGGBB");
    return redOf(*colour) << 16 | greenOf(*colour) << 8 | blueOf(*colour);
}

std::string keyText(std::uint32_t colour)
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text = "0x";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += kDigits[colour >> shift & 15];
    return text;
}

Status picture(Context& context, const Arguments& arguments)
{
    Bitmap bitmap;
    bitmap.load(arguments.text("FILE"));
    if (bitmap.isEmpty()) {
        host().showMessage(arguments.text("FILE") + u"\nCouldn't load this image file.");
        return Status::Failed;
    }
    if (arguments.has("--save")) {
        if (bitmap.saveAs(arguments.text("--save")))
            return Status::Done;
        host().showMessage(u"Couldn't save " + arguments.text("--save"));
        return Status::Failed;
    }
    // The top byte of a bitmap that has no key yet is not a colour's.
    const std::uint32_t key = bitmap.getColorKey() & 0xFFFFFF;
    if (context.json()) {
        context.out().json(Json{{"width", bitmap.getWidth()},
                                {"height", bitmap.getHeight()},
                                {"hasAlpha", bitmap.hasAlphaChannel()},
                                {"colorKey", keyText(key)}});
        return Status::Done;
    }
    context.out().line("width: " + std::to_string(bitmap.getWidth()));
    context.out().line("height: " + std::to_string(bitmap.getHeight()));
    context.out().line("hasAlpha: " + std::to_string(bitmap.hasAlphaChannel() ? 1 : 0));
    context.out().line("colorKey: " + keyText(key));
    return Status::Done;
}

Status photo(Context& context, const Arguments& arguments)
{
    Settings& settings = context.session().getSettings();
    PhotoOptions options = PhotoOptions::fromSettings(settings);
    options.tileSize = static_cast<int>(arguments.integer("--tile", options.tileSize));
    options.wallThickness =
        static_cast<int>(arguments.integer("--thickness", options.wallThickness));
    if (arguments.has("--offset"))
        std::tie(options.offsetX, options.offsetY) = parsePair(
            arguments.utf8("--offset"), ',', {kPhotoOffsetX.least, kPhotoOffsetX.most}, "--offset");
    if (arguments.has("--background"))
        options.backgroundColour = parseColourWord(arguments.text("--background"), "--background");
    if (arguments.has("--mask")) {
        const WString mask = arguments.text("--mask");
        for (const WStringView colour : split(mask, u','))
            options.maskedColours.push_back(parseColourWord(colour, "--mask"));
    }

    Bitmap bitmap;
    bitmap.load(arguments.text("IMAGE"));
    if (bitmap.isEmpty()) {
        host().showMessage(arguments.text("IMAGE") + u"\nCouldn't load this image file.");
        return Status::Failed;
    }
    loadPictureTables();
    WizMap map;
    map.load(mapFile(arguments.text("NAME")));
    photoToMap(bitmap, options, map);
    options.store(settings);
    if (!map.save(map.fileName)) {
        host().showMessage(u"Couldn't save the .map file: " + mapFile(arguments.text("NAME")));
        return Status::Failed;
    }
    return Status::Done;
}

Status view(Context&, const Arguments& arguments)
{
    const auto [width, height] =
        arguments.has("--size")
            ? parsePair(arguments.utf8("--size"), 'x', {1, DungeonView::kSideLimit}, "--size")
            : std::pair(kViewWidth, kViewHeight);
    loadPictureTables();
    WizMap map;
    map.load(mapFile(arguments.text("NAME")));
    const Viewpoint viewer{static_cast<int>(arguments.integer("X")),
                           static_cast<int>(arguments.integer("Y")),
                           kSides[arguments.choice("DIRECTION")]};
    Graphics surface(width, height);
    DungeonView(map).drawView(surface, {0, 0, width, height}, viewer,
                              arguments.has("--flip") ? Mirror::On : Mirror::Off);
    if (surface.getBitmap().saveAs(arguments.text("OUT")))
        return Status::Done;
    host().showMessage(u"Couldn't save " + arguments.text("OUT"));
    return Status::Failed;
}

Status image(Context&, const Arguments& arguments)
{
    loadPictureTables();
    if (saveMapAsImage(arguments.text("NAME"), arguments.text("OUT")))
        return Status::Done;
    host().showMessage(u"Couldn't save " + arguments.text("OUT"));
    return Status::Failed;
}

Status html(Context&, const Arguments& arguments)
{
    loadPictureTables();
    const std::vector<WString> names = arguments.texts("NAME");
    if (exportMapsAsHtml(names, arguments.text("OUT")))
        return Status::Done;
    host().showMessage(u"Couldn't save " + arguments.text("OUT"));
    return Status::Failed;
}

constexpr Argument kMapName = {.name = "NAME", .help = "the map", .takes = Takes::Map};
constexpr Argument kViewOut = {.name = "OUT",
                               .help = "the file to write: .png, else a 32-bit Windows bitmap",
                               .takes = Takes::File};
constexpr Argument kImageOut = {
    .name = "OUT", .help = "the PNG file to write", .takes = Takes::File};
constexpr Argument kPage = {.name = "OUT", .help = "the page to write", .takes = Takes::File};

constexpr Argument kPictureWords[] = {
    {.name = "FILE", .help = "a .png, .bmp, .gif or .jpg file", .takes = Takes::File}};
constexpr Option kPictureOptions[] = {{.name = "--save",
                                       .value = "OUT",
                                       .help = "write the picture, in the form its extension tells",
                                       .takes = Takes::File}};

constexpr Argument kPhotoWords[] = {
    kMapName, {.name = "IMAGE", .help = "a picture of a drawn map", .takes = Takes::File}};
constexpr Option kPhotoOptions[] = {
    {.name = "--tile",
     .value = "N",
     .help = "pixels of a cell",
     .takes = Takes::Integer,
     .least = kPhotoTileSize.least,
     .most = kPhotoTileSize.most},
    {.name = "--offset", .value = "X,Y", .help = "where the grid begins, 0 to 256 each"},
    {.name = "--thickness",
     .value = "N",
     .help = "pixels of a wall; 0: no doors",
     .takes = Takes::Integer,
     .least = kPhotoThickness.least,
     .most = kPhotoThickness.most},
    {.name = "--background", .value = "RRGGBB", .help = "the paper's colour"},
    {.name = "--mask", .value = "RRGGBB,...", .help = "colours that are no walls"}};

constexpr Argument kViewWords[] = {
    kMapName,
    {.name = "X", .help = "the viewer's column", .takes = Takes::Integer},
    {.name = "Y", .help = "the viewer's row, from the top", .takes = Takes::Integer},
    {.name = "DIRECTION",
     .help = "the viewer's facing",
     .takes = Takes::Choice,
     .choices = "north|east|south|west"},
    kViewOut};
constexpr Option kViewOptions[] = {
    {.name = "--size", .value = "WxH", .help = "pixels, up to 4096 each; 320x240 if not given"},
    {.name = "--flip", .help = "mirror the picture"}};

constexpr Argument kImageWords[] = {kMapName, kImageOut};
constexpr Argument kHtmlWords[] = {kPage,
                                   {.name = "NAME",
                                    .help = "the maps, in the order of the page",
                                    .takes = Takes::Map,
                                    .occurs = Occurs::Repeated}};

constexpr Command kCommands[] = {
    {.words = "view",
     .summary = "draw the first-person view from a cell",
     .arguments = kViewWords,
     .options = kViewOptions,
     .run = view,
     .needs = Needs::Project,
     .details = "A picture that the map names and that is missing is told and left out.",
     .examples =
         "view Cloister 3 4 north view.png\nview Cloister 3 4 east big.png --size 1280x960"},
    {.words = "image",
     .summary = "print a map as a picture",
     .arguments = kImageWords,
     .run = image,
     .needs = Needs::Project,
     .details =
         "Cells are 16 pixels. The numbers at its edge count rows from the bottom, those of the "
         "commands from the top."},
    {.words = "html",
     .summary = "make a web page of maps",
     .arguments = kHtmlWords,
     .run = html,
     .needs = Needs::Project,
     .details =
         "The page holds the pictures itself and links Resources/maze.css, which is put beside it "
         "where none stands."},
    {.words = "photo",
     .summary = "read a picture of a drawn map into a map's walls",
     .arguments = kPhotoWords,
     .options = kPhotoOptions,
     .run = photo,
     .needs = Needs::Project,
     .details =
         "Floors, events and cells that the picture does not reach stay. Numbers that are not "
         "given are those of the last run, from the settings."},
    {.words = "picture",
     .summary = "tell or convert a picture",
     .arguments = kPictureWords,
     .options = kPictureOptions,
     .run = picture,
     .details = "Any extension but .png saves a 32-bit Windows bitmap."},
};

} // namespace

std::span<const Command> pictureCommands()
{
    return kCommands;
}

} // namespace varn::driver

#include "MapEditor3D/export/MazePage.h"

#include "Game/Database/WizFloor.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/View/MapPicture.h"
#include "Graphics/PngFile.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/TextFile.h"

namespace varn {

namespace {

constexpr WStringView kSettings = u"Resources/Settings.xml";
constexpr WStringView kStyleSheet = u"Resources/maze.css";
constexpr WStringView kTemplateId = u"maze";

constexpr WStringView kDefaultTemplate =
    u"<html>\r\n"
    u"<head>\r\n"
    u"<link rel='stylesheet' href='Resources/maze.css'>\r\n"
    u"<script><!--\r\n"
    u"function showClass(id, className) {\r\n"
    u"\t\tvar elements = document.getElementsByClassName(className);\r\n"
    u"\t\tfor (var i = 0; i < elements.length; ++i)\r\n"
    u"\t\t\telements[i].style.display = 'none';\r\n"
    u"\t\tdocument.getElementById(id).style.display = 'block';\r\n"
    u"\t\treturn false;\r\n"
    u"}\r\n"
    u"function showMaze(id) { return showClass(id, 'maze-container'); }\r\n"
    u"function showEvent(id) { return showClass(id, 'event-container'); }\r\n"
    u"-->\r\n"
    u"</script>\r\n"
    u"</head>\r\n"
    u"<body>\r\n"
    u"%output%\r\n"
    u"</body>\r\n"
    u"</html>\r\n";

WString besideProgram(WStringView path)
{
    return toWide(programFolder()) + WString(path);
}

/// The element that holds the template, or null.
Element* findTemplate(const XMLParser& document)
{
    for (Element* const element : document.elementsByTag(u"Export"))
        if (element->getString(u"id") == kTemplateId)
            return element;
    return nullptr;
}

Element& makeTemplate(XMLParser& document)
{
    Element* const root =
        document.getRootElement() ? document.getRootElement() : document.makeRoot(u"Settings");
    Element* const made = root->addElement(u"Export");
    made->setString(u"type", u"html");
    made->setString(u"id", kTemplateId);
    made->addText(kDefaultTemplate);
    return *made;
}

std::string base64(std::string_view bytes)
{
    static constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8 | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            out.push_back(i <= count ? kDigits[group >> (18 - 6 * i) & 63] : '=');
    }
    return out;
}

WString widenAscii(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

WString escapeCode(WStringView text)
{
    WString out = replaceAll(text, u"&", u"&amp;");
    out = replaceAll(out, u"<", u"&lt;");
    return replaceAll(out, u">", u"&gt;");
}

WizMap& loadMap(WizMap& map, WStringView name)
{
    map.load(WString(kDungeonFolder) + WString(name) + u".map");
    return map;
}

std::string pictureOf(const WizMap& map)
{
    WizMapImage images(MapPictures::Plan);
    images.update(map);
    Graphics surface;
    drawMapPicture(surface, map, images);
    Bitmap& bitmap = surface.getBitmap();
    bitmap.setAlphaChannel(false);
    for (std::size_t at = 3; at < bitmap.byteCount(); at += 4)
        bitmap.getBits()[at] = 255;
    return writePng(bitmap);
}

/// Composes the maps' blocks; event numbers run on over all maps of the page.
class PageBody
{
  public:
    void addSelector(std::span<const WString> names)
    {
        body += u"<div class='maze-select-container'>\r\n"
                u"<select class='maze-select' "
                u"onchange='javascript:showMaze(this.options[this.selectedIndex].value);'>\r\n";
        for (std::size_t i = 0; i < names.size(); ++i)
            body += u"<option value='maze" + number(i) + u"'>" + escapeCode(names[i]) +
                    u"</option>\r\n";
        body += u"</select>\r\n</div>\r\n";
    }

    void addMap(std::size_t index, const WizMap& map)
    {
        body += u"<div id='maze" + number(index) + u"' class='maze-container'>\r\n";
        body += u"<div class='maze-image'>\r\n<img src='";
        const std::string picture = pictureOf(map);
        if (!picture.empty())
            body += u"data:image/png;base64," + widenAscii(base64(picture));
        body += u"'>\r\n";
        const std::size_t firstEvent = nextEvent;
        for (const auto& event : map.events.list())
            addMarker(*event);
        body += u"\r\n</div>\r\n";
        nextEvent = firstEvent;
        for (const auto& event : map.events.list())
            addEvent(*event, map.rows);
        body += u"</div>\r\n";
    }

    const WString& text() const { return body; }

  private:
    static WString number(std::size_t value) { return toDecimal(static_cast<std::int64_t>(value)); }

    static bool liesOnFloor(const GameEvent& event)
    {
        const WizFloorList& types = WizFloorList::instance();
        if (event.priority >= 0)
            return event.priority == static_cast<int>(DisplayPosition::Floor);
        return event.type >= 0 && static_cast<std::size_t>(event.type) < types.size() &&
               types.at(static_cast<std::size_t>(event.type)).getDisplayPosition() ==
                   static_cast<int>(DisplayPosition::Floor);
    }

    void addMarker(const GameEvent& event)
    {
        const int shift = liesOnFloor(event) ? kPrintedCell / 2 : kPrintedCell / 3;
        const int left = event.x * kPrintedCell + kPrintedCell + event.direction.dx() * shift;
        const int top = event.y * kPrintedCell + kPrintedCell + event.direction.dy() * shift;
        body += u"<a class='area' style='left: " + toDecimal(left) + u"px; top: " + toDecimal(top) +
                u"px;' href='#' onclick='showEvent(\"event" + number(nextEvent++) + u"\");";
        if (const auto target = warpTarget(event))
            body +=
                u"showWarp(this, " + toDecimal(target->x) + u", " + toDecimal(target->y) + u");";
        body += u" return false;'></a>\r\n";
    }

    static std::optional<MapCell> warpTarget(const GameEvent& event)
    {
        const WizFloorList& types = WizFloorList::instance();
        const bool known = event.type >= 0 && static_cast<std::size_t>(event.type) < types.size();
        if (!known || !types.at(static_cast<std::size_t>(event.type)).getWarp())
            return std::nullopt;
        return parseWarp(event.script);
    }

    void addEvent(const GameEvent& event, int rows)
    {
        body += u"<div id='event" + number(nextEvent++) + u"' class='event-container'>\r\n" +
                u"<div class='event-title'>" + escapeCode(event.names[0]) + u"( X:" +
                toDecimal(event.x) + u", Y:" + toDecimal(event.y) + u", N:" +
                toDecimal(rows - 1 - event.y) + u" ) </div>\r\n" +
                u"<pre align='left'><code class='js'>" + escapeCode(event.script) +
                u"</code></pre>\r\n</div>\r\n";
    }

    WString body;
    std::size_t nextEvent = 1;
};

/// The page links its style sheet by a relative path: what stands there already is the user's.
void copyStyleSheet(const std::filesystem::path& page)
{
    const std::filesystem::path wanted = page.parent_path() / toUtf8(kStyleSheet);
    std::error_code failure;
    if (std::filesystem::exists(wanted, failure))
        return;
    const auto style = readFile(resolveProjectPath(besideProgram(kStyleSheet)));
    if (style && createDirectories(wanted.parent_path()))
        replaceFile(wanted, asBytes(*style));
}

} // namespace

WString loadMazeTemplate()
{
    XMLParser document;
    const WString path = besideProgram(kSettings);
    if (isFile(path))
        document.load(path);
    if (const Element* const stored = findTemplate(document))
        return stored->collectText();
    const WString text = makeTemplate(document).collectText();
    if (createDirectories(resolveProjectPath(path).parent_path()))
        document.saveAs(
            path); // where the program's folder cannot be written the default still serves
    return text;
}

bool saveMazeTemplate(WStringView text)
{
    XMLParser document;
    const WString path = besideProgram(kSettings);
    if (isFile(path))
        document.load(path);
    Element* const stored = findTemplate(document);
    (stored ? *stored : makeTemplate(document)).setText(text);
    if (createDirectories(resolveProjectPath(path).parent_path()) && document.saveAs(path))
        return true;
    host().showMessage(u"Couldn't save " + path);
    return false;
}

bool saveMapAsImage(WStringView mapName, WStringView path)
{
    WizMap map;
    const std::string picture = pictureOf(loadMap(map, mapName));
    return !picture.empty() && replaceFile(resolveProjectPath(path), asBytes(picture));
}

bool exportMapsAsHtml(std::span<const WString> mapNames, WStringView path,
                      const PageProgress& progress)
{
    PageBody body;
    if (mapNames.size() > 1)
        body.addSelector(mapNames);
    for (std::size_t i = 0; i < mapNames.size(); ++i) {
        if (progress && !progress(i, mapNames.size(), mapNames[i]))
            return false;
        WizMap map;
        body.addMap(i, loadMap(map, mapNames[i]));
    }
    WString page = replaceAll(loadMazeTemplate(), u"%title%", fileNameOf(path));
    page = replaceAll(page, u"%output%", body.text());
    const std::filesystem::path target = resolveProjectPath(path);
    if (!writeTextFile(target, page, Encoding::Unicode))
        return false;
    copyStyleSheet(target);
    return true;
}

} // namespace varn

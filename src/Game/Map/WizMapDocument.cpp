// The file side of a floor: its side document and the pair it makes with the grid.

#include "Game/Database/WizFloor.h"
#include "Game/GameResourceFile.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/WizMap.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"
#include "Util/Host.h"

#include <algorithm>
#include <utility>

namespace varn {

namespace {

/// One attribute of the side document's root.
struct MapField
{
    WStringView key;
    WStringView fallback; ///< what a document without the attribute means
    WString (*text)(const WizMap&);
    void (*take)(WizMap&, WStringView);
};

template <auto Member>
constexpr MapField wide(WStringView key, WStringView fallback = u"")
{
    return {key, fallback, [](const WizMap& map) { return map.*Member; },
            [](WizMap& map, WStringView value) { map.*Member = value; }};
}

template <std::size_t Language>
constexpr MapField displayName(WStringView key)
{
    return {key, u"", [](const WizMap& map) { return widen(map.names[Language]); },
            [](WizMap& map, WStringView value) { map.names[Language] = narrow(value); }};
}

template <auto Member>
constexpr MapField number(WStringView key, WStringView fallback)
{
    return {key, fallback, [](const WizMap& map) { return toDecimal(map.*Member); },
            [](WizMap& map, WStringView value) { map.*Member = parseDecimal(value); }};
}

template <auto Member>
constexpr MapField flag(WStringView key, WStringView fallback)
{
    return {key, fallback, [](const WizMap& map) { return WString(map.*Member ? u"1" : u"0"); },
            [](WizMap& map, WStringView value) { map.*Member = parseDecimal(value) != 0; }};
}

/// "#rrggbb" of a colour 0x00BBGGRR.
WString colourText(std::uint32_t colour)
{
    static constexpr char16_t kDigits[] = u"0123456789abcdef";
    WString text = u"#";
    for (int shift = 0; shift < 24; shift += 8) {
        text += kDigits[colour >> (shift + 4) & 15];
        text += kDigits[colour >> shift & 15];
    }
    return text;
}

int hexDigit(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    const char16_t lower = unit | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// The colour of "#rrggbb"; any other text is black.
std::uint32_t parseColour(WStringView text)
{
    if (text.size() != 7 || text[0] != u'#')
        return 0;
    std::uint32_t colour = 0;
    for (std::size_t i = 0; i < 6; ++i) {
        const int digit = hexDigit(text[1 + i]);
        if (digit < 0)
            return 0;
        const auto shift = static_cast<unsigned>(i / 2 * 8 + (i % 2 == 0 ? 4 : 0));
        colour |= static_cast<std::uint32_t>(digit) << shift;
    }
    return colour;
}

constexpr MapField kVisibleDistance = {
    u"visibleDistance", u"0",
    [](const WizMap& map) {
        return toDecimal(map.getStoredVisibleDistance() < 1 ? 0 : map.getVisibleDistance());
    },
    [](WizMap& map, WStringView value) { map.setVisibleDistance(parseDecimal(value)); }};

constexpr MapField kFogColor = {
    u"fogColor", u"", [](const WizMap& map) { return colourText(map.fogColor); },
    [](WizMap& map, WStringView value) { map.fogColor = parseColour(value); }};

// The document's order: the texts, the pictures, the settings.
constexpr MapField kTexts[] = {
    displayName<0>(u"name"),
    displayName<1>(u"name2"),
    wide<&WizMap::bgm>(u"bgm"),
    wide<&WizMap::bgs>(u"bgs"),
    wide<&WizMap::footstep>(u"footstep", u"footstep.wav"),
    wide<&WizMap::doorSe>(u"doorSe", u"door.wav"),
};

constexpr MapField kSettings[] = {
    number<&WizMap::level>(u"level", u"0"),
    kVisibleDistance,
    number<&WizMap::enemyTableId>(u"enemyTable", u"0"),
    flag<&WizMap::fillDistantView>(u"fillDistantView", u"0"),
    flag<&WizMap::fogEnabled>(u"fogEnabled", u"1"),
    kFogColor,
    flag<&WizMap::teleportable>(u"teleportable", u"1"),
    flag<&WizMap::displayable>(u"displayable", u"1"),
    number<&WizMap::encounterSteps>(u"encounterSteps", u"100"),
};

/// What a picture's attribute means where it names no file that exists.
enum class Missing
{
    Fallback,       ///< the default picture
    NoPicture,      ///< none
    FallbackIfEmpty ///< the default where nothing is named; a named file is kept
};
enum class Part
{
    Plan,
    View
}; ///< a picture of the view is passed over by `skipViewImages`

struct PictureField
{
    WStringView key;
    ImageType type;
    Part part;
    Missing missing;
    WStringView fallback = u"";
};

constexpr PictureField kPictures[] = {
    {u"background2D", ImageType::Background2D, Part::Plan, Missing::NoPicture},
    {u"floor2D", ImageType::Floor2D, Part::Plan, Missing::Fallback, u"Graphics/System/floor2D.png"},
    {u"wall2D", ImageType::Wall2D, Part::Plan, Missing::Fallback, u"Graphics/Dungeon/wall2D.png"},
    {u"background", ImageType::Background, Part::View, Missing::NoPicture},
    {u"floor", ImageType::Floor, Part::View, Missing::NoPicture},
    {u"ceiling", ImageType::Ceiling, Part::View, Missing::NoPicture},
    {u"wall", ImageType::Wall, Part::View, Missing::FallbackIfEmpty, u"Graphics/Dungeon/wall.png"},
    {u"door", ImageType::Door, Part::View, Missing::FallbackIfEmpty, u"Graphics/Dungeon/door.png"},
};

bool resourceExists(WStringView path)
{
    if (isFile(path))
        return true;
    const GameResourceFile* archive = projectArchive();
    return archive != nullptr && archive->getResource(withForwardSlashes(path)) != nullptr;
}

WString pictureName(const PictureField& field, WStringView named)
{
    switch (field.missing) {
    case Missing::Fallback:
        return WString(!named.empty() && resourceExists(named) ? named : field.fallback);
    case Missing::NoPicture:
        return WString(!named.empty() && resourceExists(named) ? named : u"");
    case Missing::FallbackIfEmpty:
        break;
    }
    return WString(named.empty() ? field.fallback : named);
}

WString archiveName(WStringView base, WStringView extension)
{
    return WString(kDungeonFolder) + WString(fileNameOf(base)) + WString(extension);
}

bool loadXml(XMLParser& parser, WStringView base)
{
    const WString path = WString(base) + u".xml";
    if (isFile(path))
        return parser.load(path);
    const WString entry = archiveName(base, u".xml");
    const GameResourceFile* archive = projectArchive();
    const auto* resource = archive == nullptr ? nullptr : archive->getResource(entry);
    if (resource == nullptr)
        return false;
    return parser.loadBytes(resource->content(), entry);
}

} // namespace

std::vector<MapAttribute> WizMap::attributes() const
{
    std::vector<MapAttribute> list;
    for (const MapField& field : kTexts)
        list.push_back({field.key, field.text(*this), u'"'});
    for (const PictureField& field : kPictures)
        list.push_back({field.key, getImageName(field.type), u'"'});
    for (const MapField& field : kSettings)
        list.push_back({field.key, field.text(*this), u'\''});
    return list;
}

WString WizMap::toAttributes() const
{
    WString out;
    for (const MapAttribute& attribute : attributes()) {
        if (!out.empty())
            out += u' ';
        out += attribute.key;
        out += u'=';
        out += attribute.quote;
        appendEscaped(out, attribute.value, EscapeIn::Attribute);
        out += attribute.quote;
    }
    return out;
}

WString WizMap::toXml() const
{
    WString out =
        u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<Map " + toAttributes() + u">\r\n";
    NodeArena arena;
    for (const auto& event : events.list()) {
        event->toXml(arena)->write(out, 0);
        out += u"\r\n";
    }
    for (const AreaModel& area : areas.list()) {
        area.toXml(arena)->write(out, 0);
        out += u"\r\n";
    }
    return out + u"</Map>\r\n";
}

void WizMap::fromXml(const Element& root)
{
    for (const MapField& field : kTexts)
        field.take(*this, root.getString(field.key, field.fallback));
    for (const MapField& field : kSettings)
        field.take(*this, root.getString(field.key, field.fallback));
    for (const PictureField& field : kPictures) {
        if (field.part == Part::Plan || !skipViewImages)
            setImageName(field.type, pictureName(field, root.getString(field.key)));
    }
    for (const Element* child = root.getFirstChild(); child; child = child->getNextSibling()) {
        if (child->getTagName() == u"Event")
            events.addFromXml(*child);
        else if (child->getTagName() == u"Area")
            areas.addFromXml(*child);
    }
}

bool WizMap::save(WStringView name)
{
    const bool hasExtension =
        name.size() >= 4 && equalsIgnoringAsciiCase(name.substr(name.size() - 4), u".map");
    const WString base(hasExtension ? name.substr(0, name.size() - 4) : name);

    const std::string grid = writeMapGrid(cells, cols, rows);
    if (!replaceFile(resolveProjectPath(base + u".map"), asBytes(grid)))
        return false;
    fileName = base;

    const std::filesystem::path sideDocument = resolveProjectPath(base + u".xml");
    if (std::exchange(sideDocumentUnread, false))
        keepAside(sideDocument);
    ByteWriter out;
    out.bytes(byteOrderMark(Encoding::Unicode));
    out.utf16(toXml());
    replaceFile(sideDocument, out.view());
    return true;
}

void WizMap::load(WStringView name)
{
    const WString path = findMapFile(name);
    const WString base(withoutExtension(path));
    clear();

    const auto bytes = readFileOrResource(path, archiveName(base, u".map"));
    if (!bytes)
        throw Exception(u"Couldn't open " + WString(name));
    MapGrid grid = readMapGrid(asBytes(*bytes), path);
    rows = grid.rows;
    cols = grid.cols;
    cells = grid.cells;

    WizFloorList& floors = WizFloorList::instance();
    if (floors.size() == 0)
        floors.load(u"EventFloor.xml", 0);
    loadSideDocument(base);
    fileName = base;
}

void WizMap::loadSideDocument(WStringView base)
{
    XMLParser parser;
    sideDocumentUnread = !loadXml(parser, base);
    if (sideDocumentUnread) {
        const WString path = WString(base) + u".xml";
        host().showMessage(u"Couldn't load this xml file.\n" + path);
        sideDocumentUnread = isFile(path);
        parser.makeRoot(u"Map");
    }
    fromXml(*parser.getRootElement());
}

} // namespace varn

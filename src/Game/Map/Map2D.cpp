#include "Game/Map/Map2D.h"

#include "Game/Map/Torus.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"

#include <algorithm>
#include <new>

namespace varn {

namespace {

constexpr std::string_view kMagic = "MAP2";
constexpr std::string_view kForeignMagic = "\x0ALcfMapUnit"; // a length byte and ten characters
constexpr std::uint8_t kVersion = 1;
constexpr std::uint8_t kBitsPerTile = 16;

/// The chunks of a foreign map unit that matter here.
enum ForeignTag : std::uint8_t
{
    TagWidth = 2,
    TagHeight = 3,
    TagFirstLayer = 71,
    TagSecondLayer = 72
};

[[noreturn]] void failAt(WStringView subject, WStringView what, std::size_t offset)
{
    throw Exception(WString(subject) + u": " + WString(what) + u" at byte " +
                    toDecimal(static_cast<std::int64_t>(offset)));
}

/// A big-endian number of 7 bits a byte; the top bit marks that more follow.
std::uint32_t readBase128(ByteReader& in, WStringView subject)
{
    std::uint64_t value = 0;
    for (;;) {
        const std::size_t at = in.position();
        const std::uint8_t byte = in.u8();
        value = value << 7 | (byte & 0x7Fu);
        if (value > 0x7FFFFFFF)
            failAt(subject, u"a number is too large", at);
        if ((byte & 0x80u) == 0)
            return static_cast<std::uint32_t>(value);
    }
}

std::uint16_t readSize(ByteSpan chunk, WStringView subject, std::size_t offset)
{
    ByteReader in(chunk, subject);
    const std::uint32_t size = readBase128(in, subject);
    if (size > 0xFFFF)
        failAt(subject, u"the map is too large", offset);
    return static_cast<std::uint16_t>(size);
}

} // namespace

std::uint16_t translateForeignTile(std::uint16_t value)
{
    // Blocks of 50 numbers from 4000 on, as column and row of the tile picture; then 0, 0.
    static constexpr struct
    {
        int column, row;
    } kBlocks[] = {{0, 8}, {3, 8}, {0, 12}, {3, 12}, {6, 0},  {9, 0},
                   {6, 4}, {9, 4}, {6, 8},  {9, 8},  {6, 12}, {9, 12}};
    constexpr int kTilesPerRow = 30;

    int tile = 0;
    if (value > 10000) {
        const int place = value - 10000;
        const int n = place / 6 + 8;
        tile = place % 6 + n / 16 * 6 + 18 + n % 16 * kTilesPerRow;
    } else if (value >= 5000 && value < 10000) {
        tile = (value - 5000) % 6 + 12 + kTilesPerRow * ((value - 5000) / 6);
    } else if (value >= 4000 && value < 4000 + 50 * static_cast<int>(std::size(kBlocks))) {
        const auto& block = kBlocks[(value - 4000) / 50];
        tile = block.column + kTilesPerRow * block.row;
    } else if (value / 1000 == 1) {
        tile = 3;
    } else if (value / 1000 == 2) {
        tile = 120;
    }
    return static_cast<std::uint16_t>(tile);
}

bool Map2D::fromBytes(ByteSpan bytes, WStringView subject)
{
    const std::string_view text = asChars(bytes);
    ByteReader in(bytes, subject);
    if (text.starts_with(kMagic)) {
        in.skip(kMagic.size());
        readOwn(in, subject);
        return true;
    }
    if (text.starts_with(kForeignMagic)) {
        in.skip(kForeignMagic.size());
        readForeign(in, subject);
        return true;
    }
    return false;
}

void Map2D::readOwn(ByteReader& in, WStringView subject)
{
    in.skip(1); // version
    const std::uint8_t newEndian = in.u8();
    const std::uint16_t newCol = in.u16();
    const std::uint16_t newRow = in.u16();
    const std::uint8_t newLayer = in.u8();
    const std::size_t bytesPerTile = in.u8() / 8u;
    if (bytesPerTile != 1 && bytesPerTile != 2)
        failAt(subject, u"the size of a tile is not supported", in.position() - 1);
    in.skip(4); // reserved

    const std::size_t count = std::size_t{newLayer} * newCol * newRow;
    const ByteSpan data = in.take(count * bytesPerTile);
    ByteReader values(data, subject);
    std::vector<std::uint16_t> newTiles(count);
    for (std::uint16_t& tile : newTiles)
        tile = bytesPerTile == 2 ? values.u16() : values.u8();

    tiles = std::move(newTiles);
    endian = newEndian;
    col = newCol;
    row = newRow;
    layer = newLayer;
}

void Map2D::readForeign(ByteReader& in, WStringView subject)
{
    std::uint16_t newCol = 0;
    std::uint16_t newRow = 0;
    std::vector<std::uint16_t> newTiles;
    const auto readLayer = [&](ByteSpan chunk, std::size_t index) {
        const std::size_t count = std::size_t{newCol} * newRow;
        ByteReader values(chunk, subject);
        const ByteSpan data = values.take(count * 2); // before the memory is taken
        values = ByteReader(data, subject);
        newTiles.resize(count * 2);
        for (std::size_t i = 0; i < count; ++i)
            newTiles[index * count + i] = translateForeignTile(values.u16());
    };

    bool done = false;
    while (!done && !in.atEnd()) {
        const std::uint8_t tag = in.u8();
        const std::uint32_t length = readBase128(in, subject);
        if (length < 1)
            break;
        const std::size_t offset = in.position();
        const ByteSpan chunk = in.take(length);
        switch (tag) {
        case TagWidth:
            newCol = readSize(chunk, subject, offset);
            break;
        case TagHeight:
            newRow = readSize(chunk, subject, offset);
            break;
        case TagFirstLayer:
            readLayer(chunk, 0);
            break;
        case TagSecondLayer:
            readLayer(chunk, 1);
            done = true;
            break;
        default:
            break;
        }
    }

    // Not made here: a size without its layers would take memory that the file does not back.
    if (newTiles.size() != std::size_t{newCol} * newRow * 2)
        failAt(subject, u"the layers do not have the map's size", in.position());
    tiles = std::move(newTiles);
    col = newCol;
    row = newRow;
    layer = 2;
}

std::string Map2D::toBytes() const
{
    ByteWriter out;
    out.bytes(kMagic);
    out.u8(kVersion);
    out.u8(endian);
    out.u16(col);
    out.u16(row);
    out.u8(layer);
    out.u8(kBitsPerTile);
    out.u32(0);
    for (const std::uint16_t tile : tiles)
        out.u16(tile);
    return out.take();
}

void Map2D::shift(int dx, int dy)
{
    if (dx == dy || tiles.empty())
        return;
    try {
        std::vector<std::uint16_t> moved(tiles.size());
        for (int l = 0; l < layer; ++l) {
            for (int y = 0; y < row; ++y) {
                for (int x = 0; x < col; ++x)
                    moved[indexOf(l, wrapOnRing(std::int64_t{x} + dx, col),
                                  wrapOnRing(std::int64_t{y} + dy, row))] = tiles[indexOf(l, x, y)];
            }
        }
        tiles = std::move(moved);
    } catch (const std::bad_alloc&) {
        throw Exception(u"Error: Lack of Memory. Couldn't resize the map.");
    }
    for (const auto& event : events.list()) {
        event->x = wrapOnRing(std::int64_t{event->x} + dx, col);
        event->y = wrapOnRing(std::int64_t{event->y} + dy, row);
    }
}

void Map2D::rotate()
{
    if (tiles.empty())
        throw Exception(u"Error: MapData is null. Couldn't rotete the map.");
    try {
        std::vector<std::uint16_t> turned;
        turned.reserve(tiles.size());
        for (int l = 0; l < layer; ++l) {
            for (int x = col - 1; x >= 0; --x) {
                for (int y = 0; y < row; ++y)
                    turned.push_back(tiles[indexOf(l, x, y)]);
            }
        }
        tiles = std::move(turned);
    } catch (const std::bad_alloc&) {
        throw Exception(u"Error: Lack of Memory. Couldn't rotete the map.");
    }
    std::swap(col, row);
}

void Map2D::reflect()
{
    for (auto line = tiles.begin(); line != tiles.end(); line += col)
        std::reverse(line, line + col);
}

WString Map2D::toAttributes() const
{
    WString out;
    const auto number = [&](WStringView key, std::int64_t value) {
        out += WString(key) + u"='" + toDecimal(value) + u"' ";
    };
    const auto text = [&](WStringView key, WStringView value) {
        out += WString(key) + u"=\"";
        appendEscaped(out, value, EscapeIn::Attribute);
        out += u'"';
    };
    number(u"col", col);
    number(u"row", row);
    number(u"layer", layer);
    number(u"endian", endian);
    number(u"enemyTableID", enemyTableId);
    number(u"loop", loop);
    // The second name stands under the key of the first, so a reader takes it for the first.
    for (const std::string& name : names) {
        text(u"name", widen(name));
        out += u' ';
    }
    text(u"bgm", bgm);
    out += u' ';

    WString images;
    for (const WString& image : imageNames)
        images += (images.empty() ? u"" : u"|") + image;
    text(u"images", images);
    return out;
}

WString Map2D::toXml() const
{
    WString out =
        u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n\r\n<Map " + toAttributes() + u">\r\n";
    NodeArena arena;
    for (const auto& event : events.list()) {
        event->toXml(arena)->write(out, 1);
        out += u"\r\n";
    }
    for (const AreaModel& area : areas.list()) {
        area.toXml(arena)->write(out, 1);
        out += u"\r\n";
    }
    return out + u"</Map>\r\n";
}

void Map2D::loadAttributes(const Element& root)
{
    enemyTableId = root.getInt(u"enemyTableID");
    loop = static_cast<std::uint8_t>(root.getInt(u"loop"));
    names[0] = root.getNarrowString(u"name");
    bgm = root.getString(u"bgm");
    imageNames.clear();
    if (const WStringView images = root.getString(u"images"); !images.empty()) {
        for (const WStringView image : split(images, u'|'))
            imageNames.emplace_back(image);
    }
    for (const Element* child : root.getChildren()) {
        if (child->getTagName() == u"Event")
            events.addFromXml(*child);
        else if (child->getTagName() == u"Area")
            areas.addFromXml(*child);
    }
}

void Map2D::clear()
{
    tiles.clear();
    col = row = 0;
    layer = 0;
    events.clear();
    areas.clear();
}

bool Map2D::save(WStringView name)
{
    if (tiles.empty()) {
        col = row = 100;
        layer = 1;
        tiles.assign(std::size_t{col} * row, 0);
    }
    const bool holdsExtension = name.find(u".map") != WStringView::npos;
    const WString path = WString(name) + (holdsExtension ? u"" : u".map");
    if (!replaceFile(resolveProjectPath(path), asBytes(toBytes())))
        return false;
    fileName = withoutExtension(path);

    ByteWriter out;
    out.bytes(byteOrderMark(Encoding::Unicode));
    out.utf16(toXml());
    replaceFile(resolveProjectPath(fileName + u".xml"), out.view());
    return true;
}

bool Map2D::load(WStringView name)
{
    clear();
    WString path(name);
    if (!isFile(path))
        path = u"Project2D/" + path;
    const auto bytes = readFile(resolveProjectPath(path));
    if (!bytes || !fromBytes(asBytes(*bytes), path))
        return false;
    fileName = withoutExtension(path);
    XMLParser parser;
    if (parser.load(fileName + u".xml"))
        loadAttributes(*parser.getRootElement());
    return true;
}

} // namespace varn

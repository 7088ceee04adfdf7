#include "Graphics/GifFile.h"

#include <algorithm>
#include <cstring>
#include <gif_lib.h>
#include <memory>
#include <vector>

namespace varn {

namespace {

constexpr int kMostBlocks = 31;
constexpr std::uint8_t kExtension = 0x21;

void skipBlock(ByteReader& in, std::uint8_t label)
{
    in.skip(in.u8());
    if (label == 0xFE)
        in.skip(1);
    if (label == 0xFF)
        for (std::uint8_t size = in.u8(); size != 0; size = in.u8())
            in.skip(size);
}

GifHeader readHeaderBlocks(ByteReader& in)
{
    in.skip(4); // logical size
    const std::uint8_t flags = in.u8();
    in.skip(2); // background index, aspect ratio
    std::vector<std::uint32_t> palette;
    if (flags & 0x80) {
        palette.resize(std::size_t{2} << (flags & 7));
        for (std::uint32_t& entry : palette) {
            entry = static_cast<std::uint32_t>(in.u8()) << 16;
            entry |= static_cast<std::uint32_t>(in.u8()) << 8;
            entry |= in.u8();
        }
    }
    GifHeader header;
    for (int block = 0; block < kMostBlocks && !in.atEnd() && in.u8() == kExtension; ++block) {
        const std::uint8_t label = in.u8();
        if (label != 0xF9) {
            skipBlock(in, label);
            continue;
        }
        in.skip(1); // block size
        const bool transparent = in.u8() & 1;
        in.skip(2); // delay
        const std::uint8_t index = in.u8();
        in.skip(1); // terminator
        header.transparentColour.reset();
        if (transparent)
            header.transparentColour = index < palette.size() ? palette[index] : 0;
    }
    return header;
}

int readFromSpan(GifFileType* gif, GifByteType* out, int count)
{
    auto* const in = static_cast<ByteReader*>(gif->UserData);
    const ByteSpan piece = in->takeUpTo(static_cast<std::size_t>(count));
    std::memcpy(out, piece.data(), piece.size());
    return static_cast<int>(piece.size());
}

struct CloseGif
{
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

/// Moves to the first image; false when there is none. The last graphic control before it wins.
bool findFirstImage(GifFileType* gif, GraphicsControlBlock& control)
{
    for (;;) {
        GifRecordType record = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(gif, &record) == GIF_ERROR || record == TERMINATE_RECORD_TYPE)
            return false;
        if (record == IMAGE_DESC_RECORD_TYPE)
            return DGifGetImageDesc(gif) == GIF_OK;
        if (record != EXTENSION_RECORD_TYPE)
            continue;
        int code = 0;
        GifByteType* block = nullptr;
        if (DGifGetExtension(gif, &code, &block) == GIF_ERROR)
            return false;
        while (block) {
            if (code == GRAPHICS_EXT_FUNC_CODE && block[0] == 4)
                DGifExtensionToGCB(4, block + 1, &control);
            if (DGifGetExtensionNext(gif, &block) == GIF_ERROR)
                return false;
        }
    }
}

/// The rows of an image in the order that the file holds them.
std::vector<int> rowOrder(int height, bool interlaced)
{
    static constexpr int kPasses[][2] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    std::vector<int> order;
    order.reserve(static_cast<std::size_t>(height));
    if (!interlaced) {
        for (int y = 0; y < height; ++y)
            order.push_back(y);
        return order;
    }
    for (const auto& [first, step] : kPasses)
        for (int y = first; y < height; y += step)
            order.push_back(y);
    return order;
}

void paintRow(const std::vector<GifByteType>& line, const ColorMapObject& colours,
              int transparentIndex, int left, int y, Bitmap& into)
{
    if (y < 0 || y >= into.getHeight())
        return;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const int x = left + static_cast<int>(i);
        const int index = line[i];
        if (index == transparentIndex || index >= colours.ColorCount || x >= into.getWidth())
            continue;
        const GifColorType& colour = colours.Colors[index];
        into.setPixelRgb(x, y,
                         static_cast<std::uint32_t>(colour.Blue) |
                             static_cast<std::uint32_t>(colour.Green) << 8 |
                             static_cast<std::uint32_t>(colour.Red) << 16);
    }
}

void fill(Bitmap& bitmap, std::uint32_t colourReference)
{
    const std::uint32_t value = (colourReference >> 16 & 0xFF) | (colourReference & 0xFF00) |
                                (colourReference & 0xFF) << 16;
    for (int y = 0; y < bitmap.getHeight(); ++y)
        for (int x = 0; x < bitmap.getWidth(); ++x)
            bitmap.setPixelRgb(x, y, value);
}

} // namespace

std::optional<GifHeader> readGifHeader(ByteSpan bytes)
{
    ByteReader in(bytes, u"GIF");
    try {
        const std::string_view signature = asChars(in.take(6));
        if (signature != "GIF87a" && signature != "GIF89a")
            return std::nullopt;
        return readHeaderBlocks(in);
    } catch (const Exception&) {
        return std::nullopt; // cut short
    }
}

void readGif(ByteSpan bytes, WStringView path, Bitmap& into)
{
    const Exception refused(WString(path), u"Bitmap::LoadGIFFile");
    const std::optional<GifHeader> header = readGifHeader(bytes);
    if (!header)
        throw refused;
    ByteReader in(bytes, u"GIF");
    int error = 0;
    const std::unique_ptr<GifFileType, CloseGif> gif(DGifOpen(&in, readFromSpan, &error));
    GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
    if (!gif || !findFirstImage(gif.get(), control))
        throw refused;
    const GifImageDesc& image = gif->Image;
    const ColorMapObject* const colours = image.ColorMap ? image.ColorMap : gif->SColorMap;
    const int width = std::max(static_cast<int>(gif->SWidth), image.Left + image.Width);
    const int height = std::max(static_cast<int>(gif->SHeight), image.Top + image.Height);
    if (!colours || image.Width <= 0 || image.Height <= 0 ||
        !isPlausibleSize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height),
                         bytes.size()) ||
        !into.create(width, height) || into.isEmpty())
        throw refused;
    if (header->transparentColour)
        fill(into, *header->transparentColour);

    std::vector<GifByteType> line(static_cast<std::size_t>(image.Width));
    for (const int row : rowOrder(image.Height, image.Interlace)) {
        if (DGifGetLine(gif.get(), line.data(), image.Width) == GIF_ERROR) {
            into.clear();
            throw refused;
        }
        paintRow(line, *colours, control.TransparentColor, image.Left, image.Top + row, into);
    }
    into.setColorKey(header->transparentColour.value_or(into.getPixelColor(0, 0)));
}

} // namespace varn

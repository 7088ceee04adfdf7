#include "Graphics/PngFile.h"

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <png.h>
#include <vector>

namespace varn {

namespace {

constexpr WStringView kLocation = u"Bitmap::LoadPNGFile";

struct Source
{
    ByteSpan bytes;
    std::size_t at;
};

void readFromSpan(png_structp png, png_bytep out, png_size_t count)
{
    auto* const source = static_cast<Source*>(png_get_io_ptr(png));
    if (count > source->bytes.size() - source->at)
        png_error(png, "end of file");
    std::memcpy(out, source->bytes.data() + source->at, count);
    source->at += count;
}

void writeToString(png_structp png, png_bytep data, png_size_t count)
{
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<char*>(data), count);
}

// libpng's own handlers print; ours are silent, the sentence comes from the caller.
[[noreturn]] void fail(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}
void ignoreWarning(png_structp, png_const_charp) {}

/// What the file says and how its rows are to be copied.
struct Header
{
    png_uint_32 width = 0;
    png_uint_32 height = 0;
    int colourType = 0; ///< after palette and transparency are counted in
    int passes = 1;
    std::size_t storedRowBytes = 0; ///< before palette and transparency are expanded
    std::size_t rowBytes = 0;
};

/// Deflate never does better than a length of 258 for two bits; a size beyond that is a lie that
/// would only cost memory.
bool isPlausible(const Header& header, std::size_t fileBytes)
{
    constexpr std::uint64_t kBestRate = 1032;
    return static_cast<std::uint64_t>(header.storedRowBytes) * header.height <=
           kBestRate * fileBytes;
}

// The two functions below hold nothing that a longjmp would leave behind.

bool readHeader(png_structp png, png_infop info, Header& header)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_read_info(png, info);
    int bitDepth = 0;
    png_get_IHDR(png, info, &header.width, &header.height, &bitDepth, &header.colourType, nullptr,
                 nullptr, nullptr);
    header.storedRowBytes = png_get_rowbytes(png, info);
    if (header.colourType == PNG_COLOR_TYPE_PALETTE) {
        png_set_palette_to_rgb(png);
        header.colourType = PNG_COLOR_TYPE_RGB;
    }
    int transparencies = 0;
    png_bytep alphas = nullptr;
    png_color_16p colour = nullptr;
    if (png_get_tRNS(png, info, &alphas, &transparencies, &colour) && transparencies > 0)
        header.colourType = PNG_COLOR_TYPE_RGB_ALPHA;
    if (header.colourType & PNG_COLOR_MASK_COLOR)
        png_set_bgr(png);
    if (png_get_valid(png, info, PNG_INFO_tRNS))
        png_set_tRNS_to_alpha(png);
    header.passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    header.rowBytes = png_get_rowbytes(png, info);
    return true;
}

bool readRow(png_structp png, std::uint8_t* row)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_read_row(png, row, nullptr);
    return true;
}

/// One row of the file into one row of pixels; `row` holds at least `rowBytes`, which may be fewer
/// than the colour type asks for (grey with a transparent shade): the pixels without bytes stay
/// zero.
void copyRow(const Header& header, const std::uint8_t* row, std::uint8_t* pixels)
{
    switch (header.colourType) {
    case PNG_COLOR_TYPE_RGB_ALPHA:
        std::memcpy(pixels, row, std::min<std::size_t>(header.rowBytes, header.width * 4ULL));
        break;
    case PNG_COLOR_TYPE_RGB:
        for (png_uint_32 x = 0; x < header.width; ++x) {
            std::memcpy(pixels + x * 4ULL, row + x * 3ULL, 3);
            pixels[x * 4ULL + 3] = 255;
        }
        break;
    case PNG_COLOR_TYPE_GRAY_ALPHA:
        for (png_uint_32 x = 0; x < header.width; ++x) {
            std::memset(pixels + x * 4ULL, row[x * 2ULL], 3);
            pixels[x * 4ULL + 3] = row[x * 2ULL + 1];
        }
        break;
    default: // grey without alpha has no branch
        break;
    }
}

/// The colour of the first pixel that cannot be seen, else of the first pixel.
std::uint32_t keyOf(const Bitmap& bitmap)
{
    if (bitmap.hasAlphaChannel()) {
        for (int y = 0; y < bitmap.getHeight(); ++y)
            for (int x = 0; x < bitmap.getWidth(); ++x)
                if (bitmap.getPixelValue(x, y) >> 24 == 0)
                    return bitmap.getPixelColor(x, y);
    }
    return bitmap.getPixelColor(0, 0);
}

bool readPixels(png_structp png, const Header& header, Bitmap& into)
{
    const bool interlaced = header.passes > 1;
    std::vector<std::uint8_t> rows(header.rowBytes * (interlaced ? header.height : 1));
    for (int pass = 0; pass < header.passes; ++pass) {
        for (png_uint_32 y = 0; y < header.height; ++y) {
            std::uint8_t* const row = rows.data() + (interlaced ? y * header.rowBytes : 0);
            if (!readRow(png, row))
                return false;
            if (pass + 1 == header.passes)
                copyRow(header, row,
                        into.getBits() + static_cast<std::size_t>(y) * into.getStride());
        }
    }
    return true;
}

} // namespace

void readPng(ByteSpan bytes, WStringView path, Bitmap& into)
{
    const Exception refused(u"Couldn't open " + WString(path), WString(kLocation));
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignoreWarning);
    if (!png)
        throw Exception(u"Failed: png_create_read_struct. " + WString(path), WString(kLocation));
    struct Guard
    {
        png_structp& png;
        png_infop info;
        ~Guard() { png_destroy_read_struct(&png, &info, nullptr); }
    } guard{png, png_create_info_struct(png)};
    if (!guard.info)
        throw Exception(u"Failed: png_create_info_struct. " + WString(path), WString(kLocation));

    Source source{bytes, 0};
    png_set_read_fn(png, &source, readFromSpan);
    Header header;
    if (!readHeader(png, guard.info, header) || !isPlausible(header, bytes.size()))
        throw refused;
    const bool grey = header.colourType == PNG_COLOR_TYPE_GRAY;
    if (!grey)
        into.setAlphaChannel(header.colourType & PNG_COLOR_MASK_ALPHA);
    if (!into.create(static_cast<int>(std::min<png_uint_32>(header.width, Bitmap::kSideLimit)),
                     static_cast<int>(std::min<png_uint_32>(header.height, Bitmap::kSideLimit))) ||
        into.isEmpty())
        throw refused;
    if (grey) // even where an earlier picture left its alpha flag
        std::memset(into.getBits(), 0, into.byteCount());
    if (!readPixels(png, header, into)) {
        into.clear();
        throw refused;
    }
    if (!grey)
        into.setColorKey(keyOf(into));
}

std::string writePng(const Bitmap& bitmap)
{
    std::string out;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignoreWarning);
    if (!png)
        return out;
    png_infop info = png_create_info_struct(png);
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return {};
    }
    png_set_write_fn(png, &out, writeToString, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(bitmap.getWidth()),
                 static_cast<png_uint_32>(bitmap.getHeight()), 8, PNG_COLOR_TYPE_RGB_ALPHA,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    png_set_bgr(png);
    for (int y = 0; y < bitmap.getHeight(); ++y)
        png_write_row(png, bitmap.getBits() + static_cast<std::size_t>(y) * bitmap.getStride());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return out;
}

} // namespace varn

#include "Graphics/BmpFile.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace varn {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;

Bitmap::InfoHeader readInfo(ByteReader& in)
{
    Bitmap::InfoHeader info;
    info.size = in.u32();
    info.width = in.s32();
    info.height = in.s32();
    info.planes = in.u16();
    info.bitCount = in.u16();
    info.compression = in.u32();
    info.imageSize = in.u32();
    info.xPelsPerMeter = in.s32();
    info.yPelsPerMeter = in.s32();
    info.coloursUsed = in.u32();
    info.coloursImportant = in.u32();
    return info;
}

std::uint32_t fromFiveSixFive(std::uint32_t value)
{
    const auto blue = static_cast<std::uint32_t>((value & 31) * 255.0 / 31);
    const std::uint32_t green = (value >> 5 & 63) * 255 / 63;
    const auto red = static_cast<std::uint32_t>((value >> 11 & 31) * 255.0 / 31);
    return blue | green << 8 | red << 16;
}

std::uint32_t littleEndian(const std::byte* bytes, std::size_t count)
{
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;)
        value = value << 8 | static_cast<std::uint8_t>(bytes[i]);
    return value;
}

void convertRow(ByteSpan source, int bits, const std::vector<std::uint32_t>& palette, int width,
                std::uint8_t* row)
{
    const std::size_t pixelBytes = static_cast<std::size_t>(bits) / 8;
    const std::size_t count = std::min<std::size_t>(width, source.size() / pixelBytes);
    for (std::size_t x = 0; x < count; ++x) {
        std::uint32_t value = littleEndian(source.data() + x * pixelBytes, pixelBytes);
        if (bits == 8)
            value = value < palette.size() ? palette[value] : 0;
        else if (bits == 16)
            value = fromFiveSixFive(value);
        std::memcpy(row + x * 4, &value, sizeof value);
    }
}

bool isReadable(const Bitmap::InfoHeader& info, std::size_t fileBytes)
{
    const bool bitsKnown =
        info.bitCount == 32 || info.bitCount == 24 || info.bitCount == 16 || info.bitCount == 8;
    const std::int64_t rows =
        info.height < 0 ? -static_cast<std::int64_t>(info.height) : info.height;
    return bitsKnown && info.width > 0 && info.width < Bitmap::kSideLimit && rows > 0 &&
           rows < Bitmap::kSideLimit &&
           isPlausibleSize(static_cast<std::uint64_t>(info.width), static_cast<std::uint64_t>(rows),
                           fileBytes);
}

} // namespace

void readBmp(ByteSpan bytes, Bitmap& into)
{
    ByteReader in(bytes, u"bitmap");
    if (bytes.size() < kFileHeader + kInfoHeader || asChars(bytes.first(2)) != "BM")
        return;
    in.seek(kFileHeader);
    Bitmap::InfoHeader info = readInfo(in);
    if (!isReadable(info, bytes.size()))
        return;
    const int bits = info.bitCount;
    std::vector<std::uint32_t> palette;
    if (bits == 8) {
        const std::size_t declared = info.coloursUsed == 0 ? 256 : info.coloursUsed;
        for (std::size_t i = 0; i < declared && in.remaining() >= 4; ++i) {
            const std::uint32_t entry = in.u32();
            if (i < 256)
                palette.push_back(entry);
        }
    }
    const int rows = info.height < 0 ? -info.height : info.height;
    info.bitCount = 32;
    info.compression = 0;
    info.height = -rows;
    if (!into.makeSurface(info)) {
        into.errorText = u"Not enough memory for the bitmap.";
        return;
    }
    const std::size_t sourceStride =
        (static_cast<std::size_t>(info.width) * (bits / 8) + 3) / 4 * 4;
    for (int r = 0; r < rows && !in.atEnd(); ++r)
        convertRow(in.takeUpTo(sourceStride), bits, palette, info.width,
                   into.getBits() + static_cast<std::size_t>(rows - r - 1) * into.getStride());
}

std::string writeBmp(const Bitmap& bitmap)
{
    const Bitmap::InfoHeader& info = bitmap.getInfo();
    ByteWriter out;
    out.bytes("BM");
    out.u32(static_cast<std::uint32_t>(bitmap.byteCount() + kFileHeader + kInfoHeader));
    out.u32(0);
    out.u32(kFileHeader + kInfoHeader);
    out.u32(info.size);
    out.u32(static_cast<std::uint32_t>(info.width));
    out.u32(static_cast<std::uint32_t>(info.height));
    out.u16(info.planes);
    out.u16(info.bitCount);
    out.u32(info.compression);
    out.u32(info.imageSize);
    out.u32(static_cast<std::uint32_t>(info.xPelsPerMeter));
    out.u32(static_cast<std::uint32_t>(info.yPelsPerMeter));
    out.u32(info.coloursUsed);
    out.u32(info.coloursImportant);
    out.bytes(std::as_bytes(std::span(bitmap.getBits(), bitmap.byteCount())));
    return out.take();
}

} // namespace varn

#include "PictureBytes.h"

namespace varn::test {

namespace {

void bigEndian(std::string& out, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<char>(value >> shift & 0xFF));
}

std::uint32_t crcOf(std::string_view bytes)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    return ~crc;
}

std::uint32_t adlerOf(std::string_view bytes)
{
    std::uint32_t a = 1, b = 0;
    for (const char byte : bytes) {
        a = (a + static_cast<unsigned char>(byte)) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

void chunk(std::string& out, std::string_view type, std::string_view data)
{
    bigEndian(out, static_cast<std::uint32_t>(data.size()));
    const std::string body = std::string(type) + std::string(data);
    out += body;
    bigEndian(out, crcOf(body));
}

} // namespace

std::string makePng(const PngParts& parts)
{
    std::string header;
    bigEndian(header, parts.width);
    bigEndian(header, parts.height);
    header += {static_cast<char>(parts.depth), static_cast<char>(parts.colourType), 0, 0, 0};
    const auto size = static_cast<std::uint32_t>(parts.rows.size());
    std::string data = {0x78,
                        0x01,
                        1,
                        static_cast<char>(size),
                        static_cast<char>(size >> 8),
                        static_cast<char>(~size),
                        static_cast<char>(~size >> 8)};
    data += parts.rows;
    bigEndian(data, adlerOf(parts.rows));
    std::string out("\x89PNG\r\n\x1A\n", 8);
    chunk(out, "IHDR", header);
    if (!parts.palette.empty())
        chunk(out, "PLTE", parts.palette);
    if (!parts.transparency.empty())
        chunk(out, "tRNS", parts.transparency);
    chunk(out, "IDAT", data);
    chunk(out, "IEND", {});
    return out;
}

std::string makeBmp(const BmpParts& parts)
{
    ByteWriter out;
    out.bytes(parts.signature);
    out.zeros(12);
    out.u32(40);
    out.u32(static_cast<std::uint32_t>(parts.width));
    out.u32(static_cast<std::uint32_t>(parts.height));
    out.u16(1);
    out.u16(parts.bits);
    out.zeros(16);
    out.u32(parts.coloursUsed);
    out.u32(0);
    out.bytes(parts.behindHeader);
    return out.take();
}

std::string makeGif(const GifParts& parts)
{
    ByteWriter out;
    out.bytes("GIF");
    out.bytes(parts.version);
    out.u16(parts.screenWidth);
    out.u16(parts.screenHeight);
    out.bytes(std::string_view("\x80\0\0\xFF\0\0\0\xFF\0", 9)); // two colours, red and green
    out.bytes(std::string_view("!\xF9\4\1\0\0", 6));
    out.u8(parts.transparentIndex);
    out.u8(0);
    out.bytes(",");
    for (const std::uint16_t side : {parts.left, parts.top, parts.width, parts.height})
        out.u16(side);
    out.u8(0);
    out.bytes(parts.data);
    out.u8(0);
    out.bytes(";");
    return out.take();
}

} // namespace varn::test

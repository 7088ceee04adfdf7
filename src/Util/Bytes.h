#pragma once

#include "Util/Exception.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace varn {

using ByteSpan = std::span<const std::byte>;

inline ByteSpan asBytes(std::string_view text) { return std::as_bytes(std::span(text)); }
inline std::string_view asChars(ByteSpan bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Reads little-endian values off a span and cannot run past its end: a read that does not fit throws
/// an Exception that names the subject and the byte offset, and moves nothing.
class ByteReader
{
  public:
    /// @param subject  what is being read, for the message ("B1F.map"); borrowed for the reader's life
    explicit ByteReader(ByteSpan bytes, WStringView subject = u"data") : bytes(bytes), subject(subject) {}

    std::size_t position() const { return at; }
    std::size_t remaining() const { return bytes.size() - at; }
    bool atEnd() const { return at == bytes.size(); }

    std::uint8_t u8() { return static_cast<std::uint8_t>(take(1)[0]); }
    std::uint16_t u16() { return static_cast<std::uint16_t>(littleEndian(take(2))); }
    std::uint32_t u32() { return littleEndian(take(4)); }
    std::int16_t s16() { return static_cast<std::int16_t>(u16()); }
    std::int32_t s32() { return static_cast<std::int32_t>(u32()); }

    /// Exactly `count` bytes, a view into the span.
    ByteSpan take(std::size_t count)
    {
        if (count > remaining())
            throwTooShort(count);
        const ByteSpan taken = bytes.subspan(at, count);
        at += count;
        return taken;
    }
    /// At most `count` bytes: what is left when fewer remain.
    ByteSpan takeUpTo(std::size_t count);
    void skip(std::size_t count) { take(count); }
    /// @throws Exception  the position lies behind the end; the end itself is a position
    void seek(std::size_t position);

  private:
    [[noreturn]] void throwTooShort(std::size_t wanted) const;
    static std::uint32_t littleEndian(ByteSpan few)
    {
        std::uint32_t value = 0;
        for (std::size_t i = few.size(); i-- > 0;)
            value = value << 8 | static_cast<std::uint8_t>(few[i]);
        return value;
    }

    ByteSpan bytes;
    WStringView subject;
    std::size_t at = 0;
};

/// Composes a file in memory, little-endian.
class ByteWriter
{
  public:
    void u8(std::uint32_t value) { buffer.push_back(static_cast<char>(value)); }
    void u16(std::uint32_t value)
    {
        u8(value);
        u8(value >> 8);
    }
    void u32(std::uint32_t value)
    {
        u16(value);
        u16(value >> 16);
    }
    void zeros(std::size_t count) { buffer.append(count, '\0'); }
    void bytes(ByteSpan more) { buffer.append(asChars(more)); }
    void bytes(std::string_view more) { buffer.append(more); }
    /// UTF-16 little-endian, without a mark.
    void utf16(WStringView text);

    std::size_t size() const { return buffer.size(); }
    ByteSpan view() const { return asBytes(buffer); }
    std::string take() { return std::move(buffer); }

  private:
    std::string buffer;
};

} // namespace varn

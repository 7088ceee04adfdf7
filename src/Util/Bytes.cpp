#include "Util/Bytes.h"

#include <algorithm>

namespace varn {

ByteSpan ByteReader::takeUpTo(std::size_t count)
{
    return take(std::min(count, remaining()));
}

void ByteReader::seek(std::size_t position)
{
    if (position > bytes.size())
        throw Exception(
            WString(subject) + u": byte " + toDecimal(static_cast<std::int64_t>(position)) +
            u" lies behind the end, at byte " + toDecimal(static_cast<std::int64_t>(bytes.size())));
    at = position;
}

void ByteReader::throwTooShort(std::size_t wanted) const
{
    throw Exception(WString(subject) + u": the data ends too early: at byte " +
                    toDecimal(static_cast<std::int64_t>(at)) + u", " +
                    toDecimal(static_cast<std::int64_t>(wanted)) + u" bytes are wanted and " +
                    toDecimal(static_cast<std::int64_t>(remaining())) + u" are left");
}

void ByteWriter::utf16(WStringView text)
{
    buffer.reserve(buffer.size() + text.size() * 2);
    for (const char16_t unit : text)
        u16(unit);
}

} // namespace varn

#include "Util/TextFile.h"

#include <cstdlib>

// The first byte picks a forced encoding, the rest is a text file. It decodes whatever it is; and
// an encoding that has replaced what it lacks holds what is left: written and read again, it is the
// same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    if (size == 0)
        return 0;
    const ByteSpan bytes = std::as_bytes(std::span(data + 1, size - 1));
    WString text = decodeBytes(bytes, static_cast<Encoding>(data[0] % 11 - 1)).text;
    text.resize(std::min(text.find(u'\0'), text.size())); // UTF-16 ends there
    for (int number = 0; number <= 9; ++number) {
        const auto encoding = static_cast<Encoding>(number);
        const auto first = encodeText(text, encoding);
        if (!first || encoding == Encoding::EucJp) // that one writes more than it reads
            continue;
        const WString again = decodeBytes(asBytes(*first), encoding).text;
        const bool looksMarked =
            decodeBytes(asBytes(*first), Encoding::Binary).encoding != Encoding::Binary;
        const bool holdsEscapes =
            encoding == Encoding::Iso2022Jp && text.find(u'\x1B') != WString::npos;
        if (!looksMarked && !holdsEscapes && encodeText(again, encoding) != first)
            std::abort();
    }
    return 0;
}

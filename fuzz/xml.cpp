// The parser reads any text as the plain state machine does, and what it writes it reads as the
// same.
#include "../tests/Parser/XmlReference.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    XMLParser file;
    file.loadBytes(asBytes(bytes), u"fuzz.xml");

    const WString text = fromUtf8(bytes);
    if (const auto both = test::parseBothWays(text); both.expected != both.actual)
        std::abort();
    XMLParser first, second;
    if (first.tryParse(text) || test::isMixed(*first.getRootElement()))
        return 0;
    if (second.tryParse(first.compose()) || first.compose() != second.compose())
        std::abort();
    return 0;
}

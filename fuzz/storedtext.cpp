// Decoding takes any text, and a text that is escaped and parsed comes back.
#include "Parser/StoredText.h"
#include "Parser/XMLParser.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    const WString text = fromUtf8({reinterpret_cast<const char*>(data), size});
    if (decodeText(text, LineBreaks::Drop).size() > text.size() ||
        decodeText(text, LineBreaks::Keep).size() > 2 * text.size())
        std::abort();
    if (std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit <= 32; }))
        return 0; // no text node
    XMLParser parser;
    parser.makeRoot(u"a")->setText(text);
    if (XMLParser again;
        again.tryParse(parser.compose()) || again.getRootElement()->collectText() != text)
        std::abort();
    return 0;
}

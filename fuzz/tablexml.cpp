#include "Game/Database/GameDatabase.h"
#include "Game/Database/StateModel.h"
#include "Parser/XMLParser.h"

namespace {

varn::WString readAndCompose(varn::GameTable& table, const varn::Element* root)
{
    table.load(root, 1);
    return table.compose();
}

} // namespace

// A document is read into every table. What a table wrote once, it writes again after reading it;
// only the states' messages are decoded anew at each reading.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    XMLParser parser, again;
    if (!parser.loadBytes(std::as_bytes(std::span(data, size)), u"fuzz.xml"))
        return 0;
    for (GameTable* const table : knownTables()) {
        readAndCompose(*table, parser.getRootElement());
        if (!again.parse(table->compose()))
            std::abort();
        const WString written = readAndCompose(*table, again.getRootElement());
        if (!again.parse(written))
            std::abort();
        if (readAndCompose(*table, again.getRootElement()) != written &&
            table != &StateDatabase::instance())
            std::abort();
    }
    return 0;
}

#include "Game/Database/GameDatabase.h"
#include "Util/Exception.h"

// The first byte picks a table, the rest is a file of its binary form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace varn;
    if (size == 0)
        return 0;
    GameTable& table = *knownTables()[data[0] % knownTables().size()];
    table.clear();
    try {
        table.readDat(std::as_bytes(std::span(data + 1, size - 1)));
    } catch (const Exception&) {
    }
    if (table.compose().empty())
        std::abort();
    return 0;
}

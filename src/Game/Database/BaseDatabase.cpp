#include "Game/Database/BaseDatabase.h"

#include "Parser/XMLParser.h"

namespace varn {

bool BaseDatabase::load(WStringView fileName, std::size_t minRows)
{
    clear();
    XMLParser parser;
    if (readDocument(parser, fileName)) {
        if (findTableElement(*parser.getRootElement()))
            return load(parser.getRootElement(), minRows);
        refused = true;
    }
    loaded();
    return false;
}

bool BaseDatabase::load(const Element* root, std::size_t minRows)
{
    clear();
    refused = false;
    fileName.clear();
    const Element* const table = root ? findTableElement(*root) : nullptr;
    if (table)
        readRows(*table);
    pad(minRows);
    loaded();
    return table != nullptr;
}

} // namespace varn

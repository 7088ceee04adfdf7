#include "Game/Database/ToolFile.h"

#include "Util/File.h"

namespace varn {

bool loadToolFile(XMLParser& parser, WStringView fileName)
{
    return parser.load(fileName) || parser.load(toWide(programFolder()).append(fileName));
}

} // namespace varn

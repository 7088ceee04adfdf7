#include "Game/Map/WizMap.h"
#include "Parser/XMLParser.h"
#include "Util/TextFile.h"

#include <cstddef>
#include <cstdint>

// Any bytes as a floor's side document: what is written of it is read back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::XMLParser parser;
    if (parser.tryParse(varn::decodeBytes(std::as_bytes(std::span(data, size))).text))
        return 0;
    varn::WizMap map;
    map.fromXml(*parser.getRootElement());
    for (const auto& event : map.events.list())
        varn::parseWarp(event->script);
    const varn::WString text = map.toXml();

    varn::XMLParser own;
    if (own.tryParse(text))
        __builtin_trap();
    varn::WizMap again;
    again.fromXml(*own.getRootElement());
    if (again.toXml() != text)
        __builtin_trap();
    return 0;
}

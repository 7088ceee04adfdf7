#include "Game/Map/GameResourceManager.h"
#include "Parser/XMLParser.h"

#include <cstddef>
#include <cstdint>

// Any bytes as "ResourceManager.xml": a catalogue whose document is read back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    varn::XMLParser parser;
    if (parser.tryParse(varn::decodeBytes(std::as_bytes(std::span(data, size))).text))
        return 0;
    varn::GameResourceManager manager;
    manager.fromElement(*parser.getRootElement());
    const varn::WString text = manager.toDocument();
    for (const varn::WString& path : manager.usedFiles()) {
        if (path.find_first_of(u"\r\n") != varn::WString::npos)
            return 0; // an attribute does not keep line breaks
    }

    varn::XMLParser own;
    if (own.tryParse(text))
        __builtin_trap();
    varn::GameResourceManager again;
    again.fromElement(*own.getRootElement());
    if (again.usedFiles() != manager.usedFiles())
        __builtin_trap();
    return 0;
}

#pragma once

#include "Parser/Element.h"
#include "Parser/TagIndex.h"
#include "Parser/XMLParser.h"

namespace varn {

/// What a parse yields. It is built aside and taken over when it stands.
struct XmlDocument
{
    NodeArena arena;
    Element* root = nullptr;
    TagIndex elements;
    WString declaration; ///< normalised; empty: the source has none
    XmlEncoding encoding = XmlEncoding::None;
};

/// Where and why a pass over a text stopped.
struct XmlFault
{
    const char16_t* place;
    ParserException::Kind kind;
    WString message;
};

} // namespace varn

#pragma once

#include "Parser/XmlDocument.h"

#include <span>

namespace varn {

/// Takes the attributes of `<?xml ... ?>` over into the document: its encoding and the normalised
/// text.
/// @param detected  what the bytes looked like; None: not known, and nothing is compared
/// @throws ParserException  a part is missing, or the encoding is not known or not the detected
/// one;
///                          what was declared stands in the document nevertheless
void takeDeclaration(XmlDocument& document, std::span<const Attribute> attributes,
                     XmlEncoding detected);

/// The encoding and the declaration, without its line break, with which a document is saved.
Encoding encodingForSaving(const XmlDocument& document);
WStringView declarationForSaving(const XmlDocument& document);

} // namespace varn

#pragma once

#include "Parser/XmlDocument.h"

#include <unordered_map>

namespace varn {

/// The attributes of the tag being read: setting a name again keeps its place.
class TagAttributes
{
  public:
    void clear();
    void set(WStringView name, WStringView value);
    std::span<const Attribute> items() const { return attributes; }

  private:
    Attribute* find(WStringView name);

    std::vector<Attribute> attributes;
    std::uint64_t seen =
        0; // a bit per length and first unit: most names are new and need no search
    std::unordered_map<WStringView, std::size_t> places; // only of a tag with very many
};

/// One pass over a document's text, building its tree.
///
/// The dialect is defined by a state machine over single units (docs/xml.md has its table). This is
/// the same language read construct by construct: each search runs to the unit that ends the
/// construct, so the text in between is never looked at unit by unit. Nothing is an error at the
/// end of the text; what is still open there is dropped.
class XmlScanner
{
  public:
    /// @param text  lies in the document's arena: the tree views it
    XmlScanner(XmlDocument& document, WStringView text, XmlEncoding detected);

    /// @throws XmlFault
    void run();

  private:
    enum class TagKind
    {
        Declaration,
        Empty,
        Open,
        Close
    };

    // Each reads one construct from `at` on and leaves `at` behind it; false: the text ended in it.
    bool readText();
    bool readMarkup();
    bool readTag(TagKind kind);
    bool readAttribute();
    bool readCloseOfCurrent();
    bool readBang();
    bool readCData();
    bool skipBehind(const char16_t* closing, std::size_t length);
    WStringView readName();
    bool skipBlanks();

    void finishTag(TagKind kind, WStringView name);
    Element* openElement(WStringView name);
    void closeElement(WStringView name);
    Element* makeNode(Element::Kind kind, WStringView text);
    WStringView decodeEntities(WStringView raw);

    [[noreturn]] void refuse(WString message = {},
                             ParserException::Kind kind = ParserException::Syntax) const;

    XmlDocument& document;
    NodeArena::Blocks& memory;
    const char16_t* at;
    const char16_t* const end;
    const XmlEncoding detected;
    Element* current = nullptr; // the innermost open element
    TagAttributes attributes;
};

} // namespace varn

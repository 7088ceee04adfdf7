#include "Parser/XmlDeclaration.h"

namespace varn {

namespace {

/// The encodings a declaration can name, by letters and digits in capitals.
struct DeclarableEncoding
{
    WStringView name;
    XmlEncoding encoding;
};
constexpr DeclarableEncoding kDeclarable[] = {
    {u"EUCJP", XmlEncoding::EucJp},
    {u"SHIFTJIS", XmlEncoding::ShiftJis},
    {u"UTF8", XmlEncoding::Utf8},
    {u"UTF16", XmlEncoding::Utf16},
};

WString lettersAndDigitsInCapitals(WStringView name)
{
    WString bare;
    for (const char16_t unit : name) {
        if (unit >= u'a' && unit <= u'z')
            bare += static_cast<char16_t>(unit - 32);
        else if ((unit >= u'0' && unit <= u'9') || isLetter(unit))
            bare += unit;
    }
    return bare;
}

XmlEncoding findDeclarable(WStringView name)
{
    const WString bare = lettersAndDigitsInCapitals(name);
    for (const DeclarableEncoding& row : kDeclarable) {
        if (row.name == bare)
            return row.encoding;
    }
    throw ParserException{WString(name) + u": This encoding is not supported",
                          ParserException::EncodingMismatch};
}

WStringView valueOf(std::span<const Attribute> attributes, WStringView name)
{
    for (const Attribute& attribute : attributes) {
        if (attribute.name == name)
            return attribute.value;
    }
    return {};
}

WStringView required(std::span<const Attribute> attributes, WStringView name)
{
    const WStringView value = valueOf(attributes, name);
    if (value.empty())
        throw ParserException{WString(name) + u" attribute is empty", ParserException::Semantic};
    return value;
}

ParserException mismatch(WStringView declaration, WStringView declared, XmlEncoding detected)
{
    WString text(declaration);
    text += u"\r\n" + WString(50, u'-') +
            u"\r\n"
            u"Something is wrong with the xml encoding.\r\n"
            u"Please edit the encoding in the xml file.\r\n"
            u"\r\n";
    text += WString(declared) + u" (xml)   !=   ";
    text += encodingName(toFileEncoding(detected, false));
    text += u" (detected)";
    return {text, ParserException::EncodingMismatch};
}

/// Values are escaped, so that what is written can be read; as texts, for a line feed must come
/// back.
void appendAttribute(WString& out, WStringView name, WStringView value)
{
    out += u' ';
    out += name;
    out += u"=\"";
    appendEscaped(out, value, EscapeIn::Text);
    out += u'"';
}

} // namespace

XmlEncoding toXmlEncoding(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Ansi:
        return XmlEncoding::Ansi;
    case Encoding::Unicode:
        return XmlEncoding::Utf16;
    case Encoding::Utf8:
    case Encoding::Utf8Bom:
        return XmlEncoding::Utf8;
    case Encoding::ShiftJis:
        return XmlEncoding::ShiftJis;
    case Encoding::EucJp:
        return XmlEncoding::EucJp;
    default:
        return XmlEncoding::None;
    }
}

Encoding toFileEncoding(XmlEncoding encoding, bool withMark)
{
    switch (encoding) {
    case XmlEncoding::Ansi:
        return Encoding::Ansi;
    case XmlEncoding::Utf8:
        return withMark ? Encoding::Utf8Bom : Encoding::Utf8;
    case XmlEncoding::EucJp:
        return Encoding::EucJp;
    case XmlEncoding::ShiftJis:
        return Encoding::ShiftJis;
    default:
        return Encoding::Unicode;
    }
}

void takeDeclaration(XmlDocument& document, std::span<const Attribute> attributes,
                     XmlEncoding detected)
{
    WString text = u"<?xml";
    appendAttribute(text, u"version", required(attributes, u"version"));
    const WStringView declared = required(attributes, u"encoding");
    appendAttribute(text, u"encoding", declared);
    for (const auto& [name, value] : attributes) {
        if (name == u"encoding") {
            document.encoding = findDeclarable(declared);
            if (detected != XmlEncoding::None && detected != document.encoding)
                throw mismatch(text, declared, detected);
        } else if (name != u"version") {
            appendAttribute(text, name, value);
        }
    }
    document.declaration = text + u"?>";
}

Encoding encodingForSaving(const XmlDocument& document)
{
    XmlEncoding encoding = document.encoding;
    if (document.declaration.find(u"Shift_JIS") != WString::npos)
        encoding = XmlEncoding::ShiftJis;
    if (document.declaration.find(u"UTF-8") != WString::npos)
        encoding = XmlEncoding::Utf8;
    return toFileEncoding(encoding, true);
}

WStringView declarationForSaving(const XmlDocument& document)
{
    if (!document.declaration.empty())
        return document.declaration;
    return u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>";
}

} // namespace varn

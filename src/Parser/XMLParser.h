#pragma once

#include "Parser/Element.h"
#include "Util/Bytes.h"
#include "Util/TextFile.h"

#include <optional>
#include <span>

namespace varn {

/// Encodings by the document scale: what a declaration can name.
enum class XmlEncoding : int
{
    None = 0,
    Ansi = 1,
    Utf8 = 2,
    Utf16 = 3,
    EucJp = 4,
    ShiftJis = 5
};
XmlEncoding toXmlEncoding(Encoding encoding);
Encoding toFileEncoding(XmlEncoding encoding, bool withMark);

/// Why and where a document was refused. Not an Exception: the parser repairs or reports it itself.
struct ParserException
{
    enum Kind
    {
        Semantic = 0,
        NoRoot = 1,
        Syntax = 2,
        EncodingMismatch = 4
    };
    WString message; ///< of `tryParse`: the whole report, or, with NoRoot, one sentence
    Kind kind = Syntax;
};

/// A document and its tree: reads, repairs, reports and writes.
///
/// The document's text is kept once; names, values and texts are views into it unless an entity had
/// to be decoded. A parse that fails leaves the tree of the parse before. docs/xml.md tells the
/// dialect.
class XMLParser
{
  public:
    XMLParser();
    ~XMLParser();
    XMLParser(XMLParser&&) noexcept;
    XMLParser& operator=(XMLParser&&) noexcept;

    /// Reads a project file: detection, parse, and where that fails a second parse in the encoding
    /// that the document declares. False: missing or empty (silent), not to be opened (told), or
    /// refused (the report was shown).
    bool load(WStringView path);
    /// The same for a file already in memory; `name` stands in the report.
    bool loadBytes(ByteSpan bytes, WStringView name);
    /// The same for a text that was decoded elsewhere: no declaration contradicts it.
    bool loadText(WString text, WStringView name);
    /// A text in memory. False: refused (the report was shown), or without a root (silent).
    bool parse(WString text);
    /// As `parse`, but silent: the report comes back, and nothing when the tree stands.
    std::optional<ParserException> tryParse(WString text);

    /// Composes the document as saving would: declaration, "\r\n", tree. Asserts a root. Throws
    /// Exception where the indentation of a very deep tree would make it larger than a gigabyte.
    WString compose() const;
    /// The bytes of the file: mark and text in the document's encoding.
    std::string composeBytes() const;
    /// Replaces the file. False: no root (the fault is shown) or not writable.
    bool saveAs(WStringView path) const;

    Element* getRootElement() const;
    /// A new document's root, made in this parser's arena.
    Element* makeRoot(WStringView tagName);
    Element* findElement(WStringView tagName) const;
    /// Every element with that name, in document order, as of the last parse.
    std::span<Element* const> elementsByTag(WStringView tagName) const;
    NodeArena& getArena();

    /// What the document declares.
    XmlEncoding getEncoding() const;
    const WString& getFileName() const;
    /// The normalised declaration, empty when the source has none.
    const WString& getDeclaration() const;

  private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace varn

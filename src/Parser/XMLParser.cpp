#include "Parser/XMLParser.h"

#include "Parser/ElementWriter.h"
#include "Parser/LargePages.h"
#include "Parser/NodeBlocks.h"
#include "Parser/UnitSearch.h"
#include "Parser/XmlDeclaration.h"
#include "Parser/XmlDocument.h"
#include "Parser/XmlReport.h"
#include "Parser/XmlScanner.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>
#include <cassert>
#include <new>

namespace varn {

namespace {

constexpr WStringView kNoRoot = u"Couldn't retrieve the root element.";

/// A file in memory, with a zero unit behind its bytes.
struct FileBytes
{
    explicit FileBytes(std::size_t size)
        : memory(new (std::nothrow) std::byte[size + sizeof(char16_t)]), size(size)
    {
        if (memory != nullptr)
            preferLargePages(memory.get(), size);
    }
    std::span<std::byte> span() const { return {memory.get(), size}; }
    void cutTo(std::size_t count)
    {
        size = count;
        memory[size] = memory[size + 1] = std::byte{0};
    }

    std::unique_ptr<std::byte[]> memory; // null: there was not enough
    std::size_t size;
};

std::optional<FileBytes> readWhole(const std::filesystem::path& path)
{
    File file;
    if (!file.open(path))
        return std::nullopt;
    FileBytes bytes(file.getSize());
    const auto got = bytes.memory != nullptr ? file.read(bytes.span()) : std::nullopt;
    if (!got)
        return std::nullopt;
    bytes.cutTo(*got);
    return bytes;
}

/// A text and the document that a pass over it builds.
struct Reading
{
    XmlDocument document;
    WStringView text; // lies in the document's arena
    Encoding encoding = Encoding::Undefine;
    std::optional<XmlFault> fault;

    bool stands() const { return !fault && document.root != nullptr; }
    void run(XmlEncoding detected)
    {
        try {
            XmlScanner(document, text, detected).run();
        } catch (XmlFault& raised) {
            fault = std::move(raised);
        }
    }
};

} // namespace

struct XMLParser::State
{
    XmlDocument document;
    WString fileName;
    std::size_t sourceUnits = 0; ///< of the last text parsed

    static void place(Reading& reading, WString text);
    static void placeInPlace(Reading& reading, FileBytes bytes);
    static Reading decode(FileBytes& bytes, Encoding forced);
    void adopt(Reading reading);
    /// Room for the document as it is written, line ends and tabs included.
    std::size_t expectedUnits() const { return sourceUnits + sourceUnits / 8 + 256; }
    bool loadFrom(FileBytes bytes, WStringView name);
};

void XMLParser::State::place(Reading& reading, WString text)
{
    WString& kept = reading.document.arena.blocks->document;
    kept = std::move(text);
    reading.text = kept;
}

/// Takes little-endian UTF-16, which is what the system writes, as it lies in memory, without a
/// copy: behind its mark and up to its first zero unit.
void XMLParser::State::placeInPlace(Reading& reading, FileBytes bytes)
{
    const auto* const units = reinterpret_cast<const char16_t*>(bytes.memory.get());
    const char16_t* const last = units + (bytes.size + 1) / sizeof(char16_t);
    const char16_t* const end = findUnit(units + 1, last, u'\0');
    reading.text = {units + 1, end};
    reading.encoding = Encoding::Unicode;
    reading.document.arena.blocks->file = std::move(bytes.memory);
}

/// `bytes` lose their memory where the text is taken in place.
Reading XMLParser::State::decode(FileBytes& bytes, Encoding forced)
{
    Reading reading;
    if (asChars(bytes.span()).starts_with(byteOrderMark(Encoding::Unicode))) {
        placeInPlace(reading, std::move(bytes));
    } else {
        DecodedText decoded = decodeBytes(bytes.span(), forced);
        place(reading, std::move(decoded.text));
        reading.encoding = decoded.encoding;
    }
    reading.document.arena.blocks->expect(reading.text.size());
    return reading;
}

void XMLParser::State::adopt(Reading reading)
{
    sourceUnits = reading.text.size();
    document = std::move(reading.document);
}

/// The first reading goes by what the bytes look like. If it fails, the declaration is trusted.
bool XMLParser::State::loadFrom(FileBytes bytes, WStringView name)
{
    Reading first = decode(bytes, Encoding::Undefine);
    if (first.text.empty())
        return false;
    fileName = name;
    first.run(toXmlEncoding(first.encoding));
    if (first.stands()) {
        adopt(std::move(first));
        return true;
    }
    const XmlEncoding declared = first.document.encoding;
    if (declared != XmlEncoding::None && bytes.memory != nullptr) {
        Reading second = decode(bytes, toFileEncoding(declared, false));
        if (second.encoding != first.encoding)
            second.run(toXmlEncoding(second.encoding));
        if (second.stands()) {
            adopt(std::move(second));
            return true;
        }
    }
    if (first.fault)
        showReport(fileName, composeReport(fileName, first.text, *first.fault));
    else
        host().showMessage(kNoRoot);
    return false;
}

XMLParser::XMLParser() : state(std::make_unique<State>()) {}
XMLParser::~XMLParser() = default;
XMLParser::XMLParser(XMLParser&&) noexcept = default;
XMLParser& XMLParser::operator=(XMLParser&&) noexcept = default;

bool XMLParser::load(WStringView path)
{
    auto bytes = readWhole(resolveProjectPath(path));
    if (bytes)
        return state->loadFrom(std::move(*bytes), path);
    if (isFile(path))
        host().showMessage(u"Couldn't open " + WString(path));
    return false;
}

bool XMLParser::loadBytes(ByteSpan bytes, WStringView name)
{
    FileBytes copy(bytes.size());
    if (copy.memory == nullptr)
        return false;
    std::copy(bytes.begin(), bytes.end(), copy.span().begin());
    copy.cutTo(bytes.size());
    return state->loadFrom(std::move(copy), name);
}

bool XMLParser::loadText(WString text, WStringView name)
{
    state->fileName = name;
    return parse(std::move(text));
}

std::optional<ParserException> XMLParser::tryParse(WString text)
{
    Reading reading;
    State::place(reading, std::move(text));
    reading.run(XmlEncoding::None);
    if (reading.fault)
        return ParserException{composeReport(state->fileName, reading.text, *reading.fault),
                               reading.fault->kind};
    if (!reading.stands())
        return ParserException{WString(kNoRoot), ParserException::NoRoot};
    state->adopt(std::move(reading));
    return std::nullopt;
}

bool XMLParser::parse(WString text)
{
    const auto fault = tryParse(std::move(text));
    if (fault && fault->kind != ParserException::NoRoot)
        showReport(state->fileName, fault->message);
    return !fault;
}

WString XMLParser::compose() const
{
    assert(state->document.root != nullptr);
    WString text;
    text.reserve(state->expectedUnits());
    preferLargePages(text.data(), text.capacity() * sizeof(char16_t));
    text += declarationForSaving(state->document);
    text += u"\r\n";
    writeTree(text, *state->document.root, 0);
    return text;
}

std::string XMLParser::composeBytes() const
{
    assert(state->document.root != nullptr);
    const Encoding encoding = encodingForSaving(state->document);
    std::string bytes(byteOrderMark(encoding));
    if (encoding != Encoding::Unicode)
        return bytes + encodeText(compose(), encoding).value();
    bytes.reserve(state->expectedUnits() * sizeof(char16_t));
    preferLargePages(bytes.data(), bytes.capacity());
    bytes += encodeText(declarationForSaving(state->document), encoding).value();
    bytes += encodeText(u"\r\n", encoding).value();
    writeTree(bytes, *state->document.root, 0);
    return bytes;
}

bool XMLParser::saveAs(WStringView path) const
{
    if (state->document.root == nullptr) {
        host().showMessage(
            u"XMLParser.saveAs() is called, but mRootElement is null so couldn't save xml "
            u"file.\nIt may be a kind of bag.");
        return false;
    }
    return replaceFile(resolveProjectPath(path), asBytes(composeBytes()));
}

Element* XMLParser::getRootElement() const
{
    return state->document.root;
}

Element* XMLParser::makeRoot(WStringView tagName)
{
    state->sourceUnits = 0;
    XmlDocument& document = state->document;
    document.root = document.arena.makeElement(tagName);
    document.elements = {};
    document.declaration.clear();
    document.encoding = XmlEncoding::None;
    return document.root;
}

Element* XMLParser::findElement(WStringView tagName) const
{
    return state->document.root == nullptr ? nullptr : state->document.root->findElement(tagName);
}

std::span<Element* const> XMLParser::elementsByTag(WStringView tagName) const
{
    return state->document.elements.find(tagName);
}

NodeArena& XMLParser::getArena()
{
    return state->document.arena;
}

XmlEncoding XMLParser::getEncoding() const
{
    return state->document.encoding;
}

const WString& XMLParser::getFileName() const
{
    return state->fileName;
}

const WString& XMLParser::getDeclaration() const
{
    return state->document.declaration;
}

} // namespace varn

#include "Game/Database/GameTable.h"

#include "Game/Database/Language.h"
#include "Parser/XMLParser.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <cassert>
#include <utility>

namespace varn {

namespace {

constexpr WStringView kXml = u".xml";
constexpr WStringView kLineEnd = u"\r\n";
constexpr WStringView kDeclaration = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n";
constexpr char16_t kByteOrderMark = u'\uFEFF';

WString dataFile(WStringView name)
{
    return WString(GameDataIO::dataPath).append(name);
}

/// The file is there and holds something, so a load that read nothing refused it.
bool hasContent(WStringView path)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(resolveProjectPath(path), error);
    return !error && size > 0;
}

void show(const Faults& faults)
{
    for (const WString& fault : faults)
        host().showMessage(fault);
}

} // namespace

WString TableFile::compose() const
{
    WString out(kDeclaration);
    composeRoot(out);
    return out;
}

WString TableFile::composeElement() const
{
    WString out;
    composeRoot(out);
    out.resize(out.size() - kLineEnd.size());
    return out;
}

bool TableFile::writeFile(WStringView fileName) const
{
    WString out(1, kByteOrderMark);
    out += kDeclaration;
    composeRoot(out);
    createDirectories(resolveProjectPath(GameDataIO::dataPath));
    return replaceFile(resolveProjectPath(dataFile(fileName)), std::as_bytes(std::span(out)));
}

bool TableFile::readDocument(XMLParser& parser, WStringView fileName)
{
    const WString path = dataFile(fileName);
    const bool read = parser.load(path);
    refused = !read && hasContent(path);
    return read;
}

bool GameTable::load(WStringView name, std::size_t minRows)
{
    clear();
    refused = false;
    bool result = true;
    fileName = name;
    if (fileName.find(kXml) == WString::npos)
        fileName = WString(getTagName()).append(kXml);
    if (fileName == name || isFile(dataFile(fileName))) {
        result = readXml(minRows);
    } else {
        loadDat(name);
        pad(minRows);
    }
    loaded();
    return result;
}

bool GameTable::load(const Element* root, std::size_t minRows)
{
    clear();
    refused = false;
    fileName.clear();
    const Element* const table = root ? findTableElement(*root) : nullptr;
    if (table) {
        readRows(*table);
        pad(minRows);
    }
    loaded();
    return table != nullptr;
}

/// A document that cannot be read leaves blank rows, one without the table leaves none.
bool GameTable::readXml(std::size_t minRows)
{
    assert(datas.empty());
    XMLParser parser;
    if (readDocument(parser, fileName)) {
        const Element* const table = findTableElement(*parser.getRootElement());
        if (!table) {
            refused = true;
            return false;
        }
        readRows(*table);
    }
    pad(minRows);
    return true;
}

const Element* GameTable::findTableElement(const Element& root) const
{
    return getTagName().empty() ? &root : root.findElement(getTagName());
}

void GameTable::readRows(const Element& table)
{
    Faults faults;
    for (const Element* child = table.getFirstChild(); child; child = child->getNextSibling()) {
        if (child->getTagName().empty())
            continue;
        append(newRow());
        datas.back()->fromElement(*child, faults);
    }
    show(faults);
}

void GameTable::pad(std::size_t minRows)
{
    while (datas.size() < minRows)
        appendBlank();
}

void GameTable::loadDat(WStringView datName)
{
    assert(datas.empty());
    const std::optional<std::string> bytes = readFile(resolveProjectPath(dataFile(datName)));
    if (!bytes)
        return;
    try {
        readDat(asBytes(*bytes));
    } catch (const Exception& fault) {
        refused = true;
        host().showMessage(fault.getMessage());
    }
}

void GameTable::readDat(ByteSpan bytes)
{
    ByteReader reader(bytes, u".dat file");
    if (reader.remaining() < 2)
        return;
    const std::size_t expected = getFieldTable().recordSize;
    const std::size_t stored = reader.u16();
    if (expected == 0)
        throw Exception(u"Exception: .dat file is not supported.");
    if (stored != expected)
        throw Exception(u"Exception: dataSize is different. " + toDecimal(stored) + u" != " +
                        toDecimal(expected));
    while (!reader.atEnd()) {
        append(newRow());
        readRecord(*datas.back(), reader.takeUpTo(expected));
    }
}

bool GameTable::save()
{
    if (!fileName.empty())
        return writeFile(fileName);
    if (getTagName().empty()) {
        host().showMessage(u"Exception: database fileName and tagName are empty.");
        return false;
    }
    return writeFile(WString(getTagName()).append(kXml));
}

/// A table without a tag that was never loaded by name is named after the file it usually has.
WString GameTable::rootName() const
{
    WStringView name = fileName.empty() ? getTagName() : WStringView(fileName);
    if (name.empty())
        name = info.fileName;
    return WString(name.substr(0, name.rfind(u'.')));
}

void GameTable::composeRoot(WString& out) const
{
    composeRows(out, rootName(), 0);
}

void GameTable::composeRows(WString& out, WStringView elementName, std::size_t depth) const
{
    out.append(depth, u'\t').append(u"<").append(elementName).append(u">").append(kLineEnd);
    NodeArena arena;
    for (const std::unique_ptr<GameRow>& row : datas) {
        arena.reset();
        row->toElement(arena)->write(out, depth + 1);
        out += kLineEnd;
    }
    out.append(depth, u'\t').append(u"</").append(elementName).append(u">").append(kLineEnd);
}

GameRow* GameTable::findRow(std::int64_t index)
{
    return const_cast<GameRow*>(std::as_const(*this).findRow(index));
}

const GameRow* GameTable::findRow(std::int64_t index) const
{
    const bool inside = index >= 0 && static_cast<std::uint64_t>(index) < datas.size();
    return inside ? datas[static_cast<std::size_t>(index)].get() : nullptr;
}

std::optional<std::size_t> GameTable::findByName(WStringView name) const
{
    for (const int tried : {0, 1}) {
        const LanguageScope scope(tried);
        for (std::size_t i = 0; i < datas.size(); i++)
            if (datas[i]->getName() == name)
                return i;
    }
    return std::nullopt;
}

void GameTable::resize(std::size_t count)
{
    if (count > kMaximumRows)
        throw Exception(u"Exception: Too much data");
    if (count < datas.size())
        datas.resize(count);
    pad(count);
}

} // namespace varn

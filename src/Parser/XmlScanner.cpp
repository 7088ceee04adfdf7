#include "Parser/XmlScanner.h"

#include "Parser/Entities.h"
#include "Parser/NodeBlocks.h"
#include "Parser/UnitSearch.h"
#include "Parser/XmlDeclaration.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace varn {

namespace {

enum UnitClass : std::uint8_t
{
    kNamePart = 1,
    kNameStart = 2
};

constexpr auto kAsciiClasses = [] {
    std::array<std::uint8_t, 128> classes = {};
    for (char c = 'A'; c <= 'Z'; ++c)
        classes[c] = classes[c + 32] = kNameStart | kNamePart;
    for (char c = '0'; c <= '9'; ++c)
        classes[c] = kNamePart;
    classes[':'] = classes['_'] = kNameStart | kNamePart;
    classes['-'] = classes['.'] = kNamePart;
    return classes;
}();

bool isNameStart(char16_t unit)
{
    return unit < 128 ? (kAsciiClasses[unit] & kNameStart) != 0 : isLetter(unit);
}

bool isNamePart(char16_t unit)
{
    return unit < 128 ? (kAsciiClasses[unit] & kNamePart) != 0 : isLetter(unit);
}

/// White space is everything up to the blank, zero units too.
bool isBlank(char16_t unit)
{
    return unit <= u' ';
}

bool beginsWith(const char16_t* at, const char16_t* end, WStringView text)
{
    return static_cast<std::size_t>(end - at) >= text.size() &&
           WStringView(at, text.size()) == text;
}

} // namespace

void TagAttributes::clear()
{
    attributes.clear();
    seen = 0;
    if (!places.empty())
        places.clear();
}

void TagAttributes::set(WStringView name, WStringView value)
{
    const auto bit = std::uint64_t{1}
                     << ((name.front() + name.back() * 3u + name.size() * 7u) & 63u);
    if ((seen & bit) != 0) {
        if (Attribute* const present = find(name); present != nullptr) {
            present->value = value;
            return;
        }
    }
    seen |= bit;
    attributes.push_back({name, value});
}

Attribute* TagAttributes::find(WStringView name)
{
    constexpr std::size_t kFew = 32;
    if (attributes.size() <= kFew) {
        const auto found = std::find_if(attributes.begin(), attributes.end(),
                                        [&](const Attribute& a) { return a.name == name; });
        return found == attributes.end() ? nullptr : &*found;
    }
    while (places.size() < attributes.size())
        places.emplace(attributes[places.size()].name, places.size());
    const auto found = places.find(name);
    return found == places.end() ? nullptr : &attributes[found->second];
}

XmlScanner::XmlScanner(XmlDocument& document, WStringView text, XmlEncoding detected)
    : document(document), memory(*document.arena.blocks), at(text.data()),
      end(text.data() + text.size()), detected(detected)
{}

void XmlScanner::run()
{
    while (readText() && readMarkup()) {
    }
}

void XmlScanner::refuse(WString message, ParserException::Kind kind) const
{
    throw XmlFault{at, kind, std::move(message)};
}

// Between tags

/// A text node up to the next `<`; white space alone gives none, nor does a text outside the root.
bool XmlScanner::readText()
{
    const char16_t* const begin = at;
    if (!skipBlanks())
        return false;
    if (*at == u'<') { // line break and indentation: the usual case
        ++at;
        return true;
    }
    const char16_t* hit = findEither(at, end, u'<', u'&');
    const bool hasEntities = hit != end && *hit == u'&';
    if (hasEntities)
        hit = findUnit(hit, end, u'<');
    if (hit == end)
        return false;
    at = hit + 1;
    if (current == nullptr)
        return true;
    WStringView text(begin, static_cast<std::size_t>(hit - begin));
    if (hasEntities)
        text = decodeEntities(text);
    if (!hasEntities || !std::all_of(text.begin(), text.end(), isBlank))
        current->link(makeNode(Element::kText, text));
    return true;
}

/// What stands behind a `<`.
bool XmlScanner::readMarkup()
{
    if (at == end)
        return false;
    if (isNameStart(*at))
        return readTag(TagKind::Open);
    switch (*at) {
    case u'/':
        ++at;
        return readCloseOfCurrent() || readTag(TagKind::Close);
    case u'?':
        ++at;
        return readTag(TagKind::Declaration);
    case u'!':
        ++at;
        return readBang();
    default:
        refuse();
    }
}

/// What stands behind `<!`. Anything unknown swallows the rest of the document.
bool XmlScanner::readBang()
{
    if (beginsWith(at, end, u"--")) {
        const char16_t* const close = findTriple(at + 2, end, u'-', u'>');
        at = close == end ? end : close + 3;
        return close != end;
    }
    if (beginsWith(at, end, u"[CDATA["))
        return readCData();
    if (beginsWith(at, end, u"DOCTYPE")) {
        at = findUnit(at, end, u'>');
        return at != end && (++at, true);
    }
    return false;
}

bool XmlScanner::readCData()
{
    const char16_t* const begin = at + 7;
    const char16_t* const close = findTriple(begin, end, u']', u'>');
    if (close == end)
        return false;
    if (current != nullptr)
        current->link(makeNode(Element::kCData, {begin, static_cast<std::size_t>(close - begin)}));
    at = close + 3;
    return true;
}

// Tags

bool XmlScanner::skipBlanks()
{
    while (at != end && isBlank(*at))
        ++at;
    return at != end;
}

WStringView XmlScanner::readName()
{
    const char16_t* const begin = at;
    while (at != end && isNamePart(*at))
        ++at;
    return {begin, static_cast<std::size_t>(at - begin)};
}

/// `</name>` of the open element as it is mostly written. False: something else, and nothing was
/// read.
bool XmlScanner::readCloseOfCurrent()
{
    if (current == nullptr)
        return false;
    const WStringView name = current->getContent();
    if (static_cast<std::size_t>(end - at) <= name.size() || at[name.size()] != u'>' ||
        WStringView(at, name.size()) != name)
        return false;
    at += name.size() + 1;
    current = current->parent;
    return true;
}

/// A tag from its name on: to its `>`, or to the `/` or `?` that only a `>` may follow.
bool XmlScanner::readTag(TagKind kind)
{
    attributes.clear();
    const WStringView name = readName();
    if (at == end)
        return false;
    const bool bareDeclaration = kind == TagKind::Declaration && name == u"xml" && *at == u'?';
    if (!isBlank(*at) && !bareDeclaration && *at != u'>' && (*at != u'/' || kind != TagKind::Open))
        refuse();
    for (;;) {
        if (!skipBlanks())
            return false;
        if (isNameStart(*at)) {
            if (!readAttribute())
                return false;
            continue;
        }
        if (*at == u'>')
            break;
        const bool closes =
            (*at == u'/' && kind == TagKind::Open) || (*at == u'?' && kind == TagKind::Declaration);
        if (!closes)
            refuse(WString(1, *at) + u" is an invalid character.");
        if (kind == TagKind::Open)
            kind = TagKind::Empty;
        if (++at == end)
            return false;
        if (*at != u'>')
            refuse();
        break;
    }
    finishTag(kind, name);
    ++at;
    return true;
}

bool XmlScanner::readAttribute()
{
    const WStringView name = readName();
    if (at == end)
        return false;
    if (*at != u'=')
        refuse();
    if (++at == end)
        return false;
    const char16_t quote = *at;
    if (quote != u'"' && quote != u'\'')
        refuse();
    const char16_t* const begin = ++at;
    const char16_t* hit = findEither(begin, end, quote, u'&');
    const bool hasEntities = hit != end && *hit == u'&';
    if (hasEntities)
        hit = findUnit(hit, end, quote);
    if (hit == end)
        return false;
    const WStringView value(begin, static_cast<std::size_t>(hit - begin));
    attributes.set(name, hasEntities ? decodeEntities(value) : value);
    at = hit + 1;
    return true;
}

/// `at` is the tag's `>`, where its faults are reported.
void XmlScanner::finishTag(TagKind kind, WStringView name)
{
    switch (kind) {
    case TagKind::Open:
        current = openElement(name);
        break;
    case TagKind::Empty:
        openElement(name)->selfClosing = true;
        break;
    case TagKind::Close:
        closeElement(name);
        break;
    case TagKind::Declaration:
        if (name != u"xml")
            break;
        try {
            takeDeclaration(document, attributes.items(), detected);
        } catch (ParserException& fault) {
            refuse(std::move(fault.message), fault.kind);
        }
    }
}

Element* XmlScanner::openElement(WStringView name)
{
    Element* const element = makeNode(Element::kElement, name);
    if (const auto items = attributes.items(); !items.empty())
        element->attributes = Element::AttributeList::make(memory, items, items.size());
    if (current != nullptr)
        current->link(element);
    else
        document.root = element; // a second root replaces the first
    document.elements.add(name, element);
    return element;
}

void XmlScanner::closeElement(WStringView name)
{
    if (current == nullptr)
        refuse(u"要素", ParserException::Semantic);
    if (name != current->getContent())
        refuse(u"タグの対応が間違っています。終了タグが必要です:\r\n" + WString(name) + u" -> " +
                   WString(current->getContent()),
               ParserException::Semantic);
    current = current->parent;
}

Element* XmlScanner::makeNode(Element::Kind kind, WStringView text)
{
    return new (memory.allocate(sizeof(Element))) Element(memory, kind, text);
}

/// An entity begins at an `&` and ends at a `;` or a blank, which is kept. One that is not known
/// stays as written, and so does one that the text's end cuts off.
WStringView XmlScanner::decodeEntities(WStringView raw)
{
    char16_t* const begin = memory.beginText(raw.size()); // never longer than what it is written as
    char16_t* out = begin;
    const char16_t* from = raw.data();
    const char16_t* const last = from + raw.size();
    const auto copyUpTo = [&](const char16_t* to) {
        out = std::copy(from, to, out);
        from = to;
    };
    for (;;) {
        copyUpTo(findUnit(from, last, u'&'));
        const char16_t* close = from;
        while (close != last && *close != u';' && !isBlank(*close))
            ++close;
        if (close == last)
            break;
        if (const auto unit = lookUpEntity({from + 1, close}); unit) {
            *out++ = *unit;
            from = close + (*close == u';' ? 1 : 0);
        } else {
            copyUpTo(close + 1);
        }
    }
    copyUpTo(last);
    return memory.finishText(begin, out);
}

} // namespace varn

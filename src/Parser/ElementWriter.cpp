#include "Parser/ElementWriter.h"

#include "Parser/UnitSearch.h"
#include "Util/Exception.h"

#include <algorithm>
#include <cstring>

namespace varn {

static_assert(std::endian::native == std::endian::little,
              "documents are copied out as they lie in memory");

namespace {

constexpr char16_t kLineBreak[] = u"\r\n";
/// No unit is written as more than this.
constexpr std::size_t kLongestEscape = 6;
/// In bytes. Indentation makes a text as long as the square of its depth, so that a small file of
/// nested tags could fill any memory.
constexpr std::size_t kLongestText = std::size_t{1} << 30;

/// What a special unit is written as; copied whole, `length` of it count.
struct Escape
{
    char16_t units[8];
    std::size_t length;

    template <std::size_t N>
    constexpr Escape(const char16_t (&text)[N]) : units{}, length(N - 1)
    {
        static_assert(N - 1 <= kLongestEscape);
        std::copy(text, text + N, units);
    }
};

/// The special units of a text or an attribute value.
struct EscapeSet
{
    AnyUnitOf<6> special;
    Escape written[6];

    const Escape& writtenFor(char16_t unit) const
    {
        return written[std::find(std::begin(special.units), std::end(special.units), unit) -
                       std::begin(special.units)];
    }
};

constexpr EscapeSet kTextEscapes = {
    {{u'&', u'<', u'>', u'"', u'\'', u'\''}},
    {u"&amp;", u"&lt;", u"&gt;", u"&quot;", u"&apos;", u"&apos;"},
};
constexpr EscapeSet kAttributeEscapes = {
    {{u'&', u'<', u'>', u'"', u'\n', u'\r'}},
    {u"&amp;", u"&lt;", u"&gt;", u"&quot;", u"\\n", u""},
};

/// Short copies without a call.
inline void copyUnits(char* to, const char16_t* from, std::size_t count)
{
    constexpr std::size_t kUnit = sizeof(char16_t);
    if (count > 16) {
        std::memcpy(to, from, count * kUnit);
    } else if (count >= 8) {
        std::memcpy(to, from, 8 * kUnit);
        std::memcpy(to + (count - 8) * kUnit, from + count - 8, 8 * kUnit);
    } else if (count >= 4) {
        std::memcpy(to, from, 4 * kUnit);
        std::memcpy(to + (count - 4) * kUnit, from + count - 4, 4 * kUnit);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(to + i * kUnit, from + i, kUnit);
    }
}

/// Appends to a string of units or bytes. Between calls the string is longer than what was written;
/// the destructor cuts it.
template <class Text>
class UnitSink
{
  public:
    explicit UnitSink(Text& out)
        : out(out), before(sizeOf(out)), at(bytesOf(out) + before), limit(at)
    {}
    ~UnitSink() { out.resize(written() / sizeof(typename Text::value_type)); }
    UnitSink(const UnitSink&) = delete;
    UnitSink& operator=(const UnitSink&) = delete;

    void put(WStringView text)
    {
        ensure(text.size());
        copyUnits(at, text.data(), text.size());
        at += text.size() * sizeof(char16_t);
    }
    template <std::size_t N>
    void put(const char16_t (&literal)[N])
    {
        ensure(N - 1);
        std::memcpy(at, literal, (N - 1) * sizeof(char16_t));
        at += (N - 1) * sizeof(char16_t);
    }
    void putTabs(std::size_t count)
    {
        for (; count > 0; --count)
            put(u"\t");
    }
    void putEscaped(WStringView text, const EscapeSet& escapes)
    {
        constexpr std::size_t kPiece = 2048; // so that the room ahead stays small beside the text
        for (; text.size() > kPiece; text.remove_prefix(kPiece))
            putEscapedPiece(text.substr(0, kPiece), escapes);
        putEscapedPiece(text, escapes);
    }

  private:
    static char* bytesOf(Text& text) { return reinterpret_cast<char*>(text.data()); }
    static std::size_t sizeOf(const Text& text)
    {
        return text.size() * sizeof(typename Text::value_type);
    }
    std::size_t written() { return static_cast<std::size_t>(at - bytesOf(out)); }

    void ensure(std::size_t units)
    {
        if (units * sizeof(char16_t) > static_cast<std::size_t>(limit - at))
            grow(units * sizeof(char16_t));
    }
    /// The string fills what it grows by, so it grows by little at first, and never by more than
    /// stays in the caches until it is written.
    void grow(std::size_t bytes)
    {
        constexpr std::size_t kLeast = 256, kMost = 65536;
        const std::size_t now = written();
        if (now - before > kLongestText)
            throw Exception(u"The document is too large to be written.");
        const std::size_t step = std::max(bytes, std::clamp(now - before, kLeast, kMost));
        out.resize((now + step) / sizeof(typename Text::value_type) + 1);
        at = bytesOf(out) + now;
        limit = bytesOf(out) + sizeOf(out);
    }
    /// Copies and looks for specials in one go: what a copied vector holds behind its first special
    /// is written over.
    void putEscapedPiece(WStringView text, const EscapeSet& escapes)
    {
        ensure(text.size() * kLongestEscape + 8);
        const char16_t* from = text.data();
        const char16_t* const end = from + text.size();
        char* to = at;
#ifdef __SSE2__
        while (end - from >= 8) {
            const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to), units);
            const auto mask = static_cast<unsigned>(_mm_movemask_epi8(escapes.special(units)));
            if (mask == 0) {
                from += 8;
                to += 16;
                continue;
            }
            const int clean = std::countr_zero(mask);
            from += clean / 2;
            to = putEscape(to + clean, *from++, escapes);
        }
#endif
        for (; from != end; ++from) {
            if (escapes.special(*from)) {
                to = putEscape(to, *from, escapes);
                continue;
            }
            std::memcpy(to, from, sizeof(char16_t));
            to += sizeof(char16_t);
        }
        at = to;
    }
    static char* putEscape(char* to, char16_t unit, const EscapeSet& escapes)
    {
        const Escape& escape = escapes.writtenFor(unit);
        std::memcpy(to, escape.units, sizeof(escape.units));
        return to + escape.length * sizeof(char16_t);
    }

    Text& out;
    const std::size_t before; // bytes
    char* at;
    char* limit;
};

template <class Text>
void putText(UnitSink<Text>& sink, WStringView text, EscapeIn where)
{
    if (where == EscapeIn::Text) {
        sink.putEscaped(text, kTextEscapes);
        return;
    }
    if (text.ends_with(u'\n'))
        text.remove_suffix(1);
    sink.putEscaped(text, kAttributeEscapes);
}

template <class Text>
void putStartTag(UnitSink<Text>& sink, const Element& node)
{
    if (node.isTextNode()) {
        putText(sink, node.getText(), EscapeIn::Text);
        return;
    }
    if (node.isCData()) {
        sink.put(u"<![CDATA[");
        sink.put(node.getText());
        sink.put(u"]]>");
        return;
    }
    sink.put(u"<");
    sink.put(node.getTagName());
    for (const Attribute& attribute : node.getAttributes()) {
        sink.put(u" ");
        sink.put(attribute.name);
        sink.put(u"=\"");
        putText(sink, attribute.value, EscapeIn::Attribute);
        sink.put(u"\"");
    }
    if (node.isSelfClosing() && node.getFirstChild() == nullptr)
        sink.put(u" />");
    else
        sink.put(u">");
}

template <class Text>
void putEndTag(UnitSink<Text>& sink, const Element& node)
{
    sink.put(u"</");
    sink.put(node.getTagName());
    sink.put(u">");
}

bool isElement(const Element& node)
{
    return !node.isTextNode() && !node.isCData();
}

/// An element whose first child is a text stands on one line; else its children have lines of their
/// own.
bool isOneLine(const Element& node)
{
    return node.getFirstChild()->isTextNode();
}

template <class Text>
void putTree(UnitSink<Text>& sink, const Element& top, std::size_t depth)
{
    for (const Element* node = &top;;) {
        if (!node->isTextNode())
            sink.putTabs(depth);
        putStartTag(sink, *node);
        if (node->getFirstChild() != nullptr) {
            if (!isOneLine(*node))
                sink.put(kLineBreak);
            node = node->getFirstChild();
            ++depth;
            continue;
        }
        if (isElement(*node) && !node->isSelfClosing())
            putEndTag(sink, *node);
        for (;; --depth) { // up to the next node that has a sibling
            if (node == &top)
                return;
            if (!node->isTextNode())
                sink.put(kLineBreak);
            if (node->getNextSibling() != nullptr)
                break;
            node = node->getParent();
            if (!isOneLine(*node))
                sink.putTabs(depth - 1);
            putEndTag(sink, *node);
        }
        node = node->getNextSibling();
    }
}

} // namespace

void writeTree(WString& out, const Element& element, std::size_t depth)
{
    UnitSink sink(out);
    putTree(sink, element, depth);
}

void writeTree(std::string& out, const Element& element, std::size_t depth)
{
    UnitSink sink(out);
    putTree(sink, element, depth);
}

void appendEscaped(WString& out, WStringView text, EscapeIn where)
{
    UnitSink sink(out);
    putText(sink, text, where);
}

WString Element::getStartTagString() const
{
    WString tag;
    UnitSink sink(tag);
    putStartTag(sink, *this);
    return tag;
}

WString Element::toString() const
{
    std::size_t depth = 0;
    for (const Element* above = parent; above != nullptr; above = above->parent)
        ++depth;
    WString text;
    write(text, depth);
    return text;
}

void Element::write(WString& out, std::size_t depth) const
{
    writeTree(out, *this, depth);
}

} // namespace varn

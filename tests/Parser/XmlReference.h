#pragma once

#include "Parser/Element.h"
#include "Parser/Entities.h"
#include "Parser/XMLParser.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace varn::test {

/// The dialect as it is defined: a state machine over single units, straight from its table
/// (docs/xml.md), slow and plain. What the parser reads in other ways must come out as it does
/// here.
class XmlReference
{
  public:
    struct Node
    {
        WString tagName, text;
        bool cdata = false, selfClosing = false;
        std::vector<std::pair<WString, WString>> attributes;
        Node* parent = nullptr;
        std::vector<std::unique_ptr<Node>> children;
    };

    /// The report of a fault, or nothing.
    std::optional<WString> parse(WStringView text);

    const Node* root = nullptr;
    WString declaration;
    std::map<WString, std::size_t> countsByTag;

  private:
    struct Fault
    {
        WString message;
    };
    enum State
    {
        Text,
        AfterLess,
        TagName,
        AfterBang,
        TagEnd,
        InTag,
        AttributeName,
        BeforeValue,
        Value,
        Comment,
        CommentDash,
        CommentTwoDashes,
        CData,
        CDataOne,
        CDataTwo,
        DocType
    };
    enum Kind
    {
        Declaration,
        Bang,
        Empty,
        Open,
        Close
    };

    static bool isName(char16_t c)
    {
        return isNameStart(c) || (c >= u'0' && c <= u'9') || c == u'-' || c == u'.';
    }
    static bool isNameStart(char16_t c) { return isLetter(c) || c == u':' || c == u'_'; }

    void feed(char16_t c);
    void feedMarkup(char16_t c);
    void feedTag(char16_t c);
    void feedBang(char16_t c);
    void feedEntity(char16_t c);
    void finishName(WString& name) { name = std::exchange(token, {}); }
    void handleTag();
    void handleDeclaration();
    void open();
    void close();
    void addNode(WString text, bool cdata);

    State state = Text;
    Kind kind = Open;
    char16_t quote = 0;
    WString token, entity, tagName, attributeName;
    std::vector<std::pair<WString, WString>> attributes;
    Node* current = nullptr;
    std::vector<std::unique_ptr<Node>> roots;
};

inline std::optional<WString> XmlReference::parse(WStringView text)
{
    std::size_t row = 1, column = 0, lineStart = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        try {
            feed(text[i]);
            if (entity.starts_with(u'E')) {
                token += entity.substr(1);
                entity.clear();
                feed(text[i]);
            }
        } catch (const Fault& fault) {
            const WString rule = WString(41, u'-') + u"\r\n";
            return u"Exception at : Row:" + toDecimal(static_cast<std::int64_t>(row)) + u". Col:" +
                   toDecimal(static_cast<std::int64_t>(column)) + u".\r\n" + rule +
                   WString(text.substr(lineStart, column + 10)) + u"  <--- Please fix here.\r\n" +
                   rule + fault.message;
        }
        ++column;
        if (text[i] == u'\n') {
            ++row;
            column = 0;
            lineStart = i + 1;
        }
    }
    return std::nullopt;
}

inline void XmlReference::feed(char16_t c)
{
    switch (state) {
    case Text:
        if (c != u'<')
            return feedEntity(c);
        if (!entity.empty()) {
            entity.insert(0, u"E");
            return;
        }
        addNode(std::exchange(token, {}), false);
        attributes.clear();
        state = AfterLess;
        return;
    case AfterLess:
    case TagName:
    case TagEnd:
        return feedMarkup(c);
    case InTag:
    case AttributeName:
    case BeforeValue:
        return feedTag(c);
    case Value:
        if (c != quote)
            return feedEntity(c);
        if (!entity.empty()) {
            entity.insert(0, u"E");
            return;
        }
        for (auto& [name, value] : attributes) {
            if (name == attributeName) {
                value = std::exchange(token, {});
                state = InTag;
                return;
            }
        }
        attributes.emplace_back(attributeName, std::exchange(token, {}));
        state = InTag;
        return;
    default:
        return feedBang(c);
    }
}

inline void XmlReference::feedEntity(char16_t c)
{
    if (entity.empty()) {
        (c == u'&' ? entity : token) += c;
        return;
    }
    if (c != u';' && c > 32) {
        entity += c;
        return;
    }
    const auto unit = lookUpEntity(WStringView(entity).substr(1));
    if (!unit) {
        entity.insert(0, u"E");
        return;
    }
    token += *unit;
    if (c != u';')
        token += c;
    entity.clear();
}

inline void XmlReference::feedMarkup(char16_t c)
{
    if (state == AfterLess) {
        state = TagName;
        if (isNameStart(c)) {
            token = c;
            kind = Open;
        } else if (c == u'/') {
            kind = Close;
        } else if (c == u'?') {
            kind = Declaration;
        } else if (c == u'!') {
            kind = Bang;
            state = AfterBang;
        } else {
            throw Fault{};
        }
    } else if (state == TagEnd) {
        if (c != u'>')
            throw Fault{};
        handleTag();
        state = Text;
    } else if (isName(c)) {
        token += c;
    } else if (c == u'>') {
        finishName(tagName);
        handleTag();
        state = Text;
    } else if (c == u'/') {
        finishName(tagName);
        if (kind != Open)
            throw Fault{};
        kind = Empty;
        state = TagEnd;
    } else if (c < 33) {
        finishName(tagName);
        state = InTag;
    } else if (c == u'?' && kind == Declaration && token == u"xml") {
        finishName(tagName);
        state = TagEnd;
    } else {
        throw Fault{};
    }
}

inline void XmlReference::feedTag(char16_t c)
{
    if (state == BeforeValue) {
        if (c != u'"' && c != u'\'')
            throw Fault{};
        quote = c;
        state = Value;
    } else if (state == AttributeName) {
        if (isName(c)) {
            token += c;
        } else if (c == u'=') {
            finishName(attributeName);
            state = BeforeValue;
        } else {
            throw Fault{};
        }
    } else if (isNameStart(c)) {
        token = c;
        state = AttributeName;
    } else if (c == u'>') {
        handleTag();
        state = Text;
    } else if ((c == u'?' && kind == Declaration) || (c == u'/' && kind == Open)) {
        if (kind == Open)
            kind = Empty;
        state = TagEnd;
    } else if (c >= 33) {
        throw Fault{WString(1, c) + u" is an invalid character."};
    }
}

inline void XmlReference::feedBang(char16_t c)
{
    const auto step = [&](State ifHit, bool hit, State otherwise) {
        state = hit ? ifHit : otherwise;
    };
    switch (state) {
    case AfterBang:
        token += c;
        if (token == u"--") {
            token.clear();
            state = Comment;
        } else if (token == u"[CDATA[") {
            state = CData;
        } else if (token == u"DOCTYPE") {
            state = DocType;
        }
        return;
    case Comment:
        return step(CommentDash, c == u'-', Comment);
    case CommentDash:
        return step(CommentTwoDashes, c == u'-', Comment);
    case CommentTwoDashes:
        return c == u'-' ? void() : step(Text, c == u'>', Comment);
    case CData:
        token += c;
        return step(CDataOne, c == u']', CData);
    case CDataOne:
        token += c;
        return step(CDataTwo, c == u']', CData);
    case CDataTwo:
        if (c == u'>') {
            addNode(token.substr(7, token.size() - 9), true);
            token.clear();
            state = Text;
            return;
        }
        token += c;
        return step(CDataTwo, c == u']', CData);
    default: // DocType
        if (c == u'>') {
            token.clear();
            state = Text;
        }
    }
}

inline void XmlReference::addNode(WString text, bool cdata)
{
    const bool blank = std::all_of(text.begin(), text.end(), [](char16_t c) { return c <= 32; });
    if (current == nullptr || (!cdata && blank))
        return;
    auto node = std::make_unique<Node>();
    node->text = std::move(text);
    node->cdata = cdata;
    current->children.push_back(std::move(node));
}

inline void XmlReference::handleTag()
{
    if (kind == Declaration) {
        if (tagName == u"xml")
            handleDeclaration();
        return;
    }
    if (kind != Close)
        open();
    if (kind != Open)
        close();
}

inline void XmlReference::open()
{
    auto node = std::make_unique<Node>();
    node->tagName = tagName;
    node->attributes = attributes;
    node->parent = current;
    ++countsByTag[tagName];
    Node* const made = node.get();
    if (current == nullptr)
        root = made;
    (current == nullptr ? roots : current->children).push_back(std::move(node));
    current = made;
}

inline void XmlReference::close()
{
    if (current == nullptr)
        throw Fault{u"要素"};
    if (current->tagName != tagName)
        throw Fault{u"タグの対応が間違っています。終了タグが必要です:\r\n" + tagName + u" -> " +
                    current->tagName};
    if (kind == Empty)
        current->selfClosing = true;
    current = current->parent;
}

inline void XmlReference::handleDeclaration()
{
    WString version, encoding, others;
    for (const auto& [name, value] : attributes) {
        if (name == u"version") {
            version = value;
        } else if (name == u"encoding") {
            encoding = value;
        } else {
            others += u" " + name + u"=\"";
            appendEscaped(others, value, EscapeIn::Text);
            others += u"\"";
        }
    }
    for (const auto& [name, value] :
         {std::pair(u"version", version), std::pair(u"encoding", encoding)}) {
        if (value.empty())
            throw Fault{name + WString(u" attribute is empty")};
    }
    WString bare;
    for (const char16_t c : encoding) {
        if (isLetter(c) || (c >= u'0' && c <= u'9'))
            bare += c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
    }
    if (bare != u"EUCJP" && bare != u"SHIFTJIS" && bare != u"UTF8" && bare != u"UTF16")
        throw Fault{encoding + u": This encoding is not supported"};
    declaration = u"<?xml version=\"";
    appendEscaped(declaration, version, EscapeIn::Text);
    declaration += u"\" encoding=\"";
    appendEscaped(declaration, encoding, EscapeIn::Text);
    declaration += u"\"" + others + u"?>";
}

/// Both kinds of tree in one notation.
inline WString dump(const XmlReference::Node& node)
{
    WString out = node.cdata             ? u"[" + node.text + u"]"
                  : node.tagName.empty() ? u"{" + node.text + u"}"
                                         : u"(" + node.tagName;
    if (node.tagName.empty())
        return out;
    for (const auto& [name, value] : node.attributes)
        out += u" " + name + u"=<" + value + u">";
    out += node.selfClosing ? u"/" : u"";
    for (const auto& child : node.children)
        out += dump(*child);
    return out + u")";
}

inline WString dump(const Element& node)
{
    const WString text(node.getText()), tagName(node.getTagName());
    if (node.isCData() || node.isTextNode())
        return node.isCData() ? u"[" + text + u"]" : u"{" + text + u"}";
    WString out = u"(" + tagName;
    for (const Attribute& attribute : node.getAttributes())
        out += u" " + WString(attribute.name) + u"=<" + WString(attribute.value) + u">";
    out += node.isSelfClosing() ? u"/" : u"";
    for (const Element* child : node.getChildren())
        out += dump(*child);
    return out + u")";
}

/// All that a parse of `text` yields, by the definition and by the parser.
struct Outcomes
{
    WString expected, actual;
};

inline Outcomes parseBothWays(const WString& text)
{
    Outcomes both;
    XmlReference reference;
    if (const auto report = reference.parse(text); report)
        both.expected = *report;
    else if (reference.root == nullptr)
        both.expected = u"Couldn't retrieve the root element.";
    else
        both.expected = reference.declaration + dump(*reference.root);

    XMLParser parser;
    if (const auto fault = parser.tryParse(text); fault) {
        both.actual = fault->message;
        return both;
    }
    both.actual = parser.getDeclaration() + dump(*parser.getRootElement());
    for (const auto& [name, count] : reference.countsByTag) {
        both.expected += u" " + name + toDecimal(static_cast<std::int64_t>(count));
        both.actual +=
            u" " + name + toDecimal(static_cast<std::int64_t>(parser.elementsByTag(name).size()));
    }
    return both;
}

/// True where an element holds text beside other nodes: its layout adds white space to the text.
inline bool isMixed(const Element& top)
{
    bool text = false, other = false;
    for (const Element* child : top.getChildren()) {
        (child->isTextNode() ? text : other) = true;
        if (isMixed(*child))
            return true;
    }
    return text && other;
}

} // namespace varn::test

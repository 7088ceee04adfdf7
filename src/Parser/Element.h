#pragma once

#include "Util/Text.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace varn {

class Element;

/// Owns the nodes of trees, and the texts they view, in a few large blocks that are freed together.
/// A node lives exactly as long as its arena: nothing is freed one by one, and what is unlinked
/// from a tree only stops being reachable. Nodes of different arenas never link to each other.
class NodeArena
{
  public:
    NodeArena();
    ~NodeArena();
    NodeArena(NodeArena&&) noexcept;
    NodeArena& operator=(NodeArena&&) noexcept;

    Element* makeElement(WStringView tagName);
    Element* makeText(WStringView text);
    Element* makeCData(WStringView text);
    /// A deep copy of a tree of any arena, unlinked.
    Element* clone(const Element& other);

    /// A copy of the text that lives as long as the arena.
    WStringView keep(WStringView text);
    /// Makes everything unreachable and keeps one block for what comes next.
    void reset();

  private:
    friend class Element;
    friend class XMLParser;
    friend class XmlScanner;
    struct Blocks; // NodeBlocks.h
    std::unique_ptr<Blocks> blocks;
};

/// One attribute as written: its name and its value with entities decoded.
struct Attribute
{
    WStringView name;
    WStringView value;
};

/// The links of the tree: a singly linked chain of children with a pointer to its last. Walking,
/// searching, copying and writing follow these links and take no stack, however deep the tree.
class Node
{
  public:
    Element* getParent() const { return parent; }
    Element* getFirstChild() const { return firstChild; }
    Element* getNextSibling() const { return nextSibling; }

  protected:
    Element* parent = nullptr;
    Element* firstChild = nullptr;
    Element* lastChild = nullptr;
    Element* nextSibling = nullptr;
};

/// A node of a document: an element with attributes and children, a text node (no tag name), or a
/// CDATA section (no tag name, `isCData`). Texts given to it are copied into its arena; views it
/// gives live as long as the arena. Only elements have children and attributes.
class Element : public Node
{
  public:
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    WStringView getTagName() const { return kind == kElement ? getContent() : WStringView(); }
    /// Naming a text node makes it an element with that text as its child; an empty name makes an
    /// element a text node.
    void setTagName(WStringView name);
    /// Text of a text node or CDATA section; an element's own is empty, its texts are children.
    WStringView getText() const { return kind == kElement ? WStringView() : getContent(); }
    bool isCData() const { return kind == kCData; }
    bool isTextNode() const { return kind == kText; }
    /// The tag was written as empty; writing keeps that as long as there are no children.
    bool isSelfClosing() const { return selfClosing; }
    void setSelfClosing(bool value) { selfClosing = value; }
    /// On after construction. Off: an attribute look-up that fails tries again ignoring case.
    void setCaseSensitive(bool value) { caseSensitive = value; }

    // Attributes, in the order of first insertion; setting one again keeps its place.
    bool hasAttribute(WStringView name) const { return findAttribute(name) != nullptr; }
    const Attribute* findAttribute(WStringView name) const;
    std::size_t attributeCount() const;
    const Attribute& attributeAt(std::size_t index) const;
    std::span<const Attribute> getAttributes() const;
    WStringView getString(WStringView name, WStringView fallback = {}) const;
    std::string getNarrowString(WStringView name, std::string_view fallback = {}) const;
    /// Decimal; present but not numeric gives 0.
    std::int32_t getInt(WStringView name, std::int32_t fallback = 0) const;
    void setString(WStringView name, WStringView value);
    void setNarrowString(WStringView name, std::string_view value);
    void setInt(WStringView name, std::int32_t value);
    void removeAttribute(WStringView name);

    // Children.
    std::vector<Element*> getChildren() const;
    /// Descendants with that name, depth first, this element itself left out.
    void findAll(WStringView tagName, std::vector<Element*>& out) const;
    /// This element or the first descendant with that name, depth first; an empty name finds
    /// nothing.
    Element* findElement(WStringView tagName);
    const Element* findElement(WStringView tagName) const;
    /// The first direct child with that name.
    Element* findChild(WStringView tagName) const;
    /// Links an unlinked node of the same arena behind the last child.
    void appendChild(Element* node);
    /// Makes an element behind the last child.
    Element* addElement(WStringView tagName);
    /// Adds a text node; an empty text adds nothing.
    void addText(WStringView text);
    /// Adds a CDATA section; each `]]>` of the text becomes `]]&gt;`. An empty one is kept.
    void addCData(WStringView text);
    /// A CDATA section's or text node's own text; on an element its first text child, or a new one.
    void setText(WStringView text);
    /// The same for CDATA sections; a text node becomes one.
    void setCData(WStringView text);
    /// The texts of this node and its descendants, one behind the other.
    WString collectText() const;
    /// Becomes a deep copy of `other`: text, name, attributes, flags, children; unlinked from its
    /// parent.
    void assign(const Element& other);

    // Writing.
    WString getStartTagString() const;
    /// The element as a saved document holds it at its depth (a tab per ancestor), its last line
    /// without a line break.
    WString toString() const;
    /// The same, appended; `depth` replaces the number of ancestors.
    void write(WString& out, std::size_t depth) const;

    NodeArena& getArena() const;

  private:
    friend class NodeArena;
    friend class XmlScanner;
    struct AttributeList; // NodeBlocks.h
    enum Kind : std::uint64_t
    {
        kElement,
        kText,
        kCData
    };

    Element(NodeArena::Blocks& home, Kind kind, WStringView content);
    WStringView getContent() const { return {content, length}; }
    void setContent(WStringView kept);
    Attribute* findExact(WStringView name) const;
    void growAttributes();
    void link(Element* node);
    void unlink();
    void copyFrom(const Element& other);
    Element* findTextChild(Kind wanted) const;

    // Packed so that a node fills one cache line.
    const char16_t* content; // tag name of an element, else the text
    std::uint64_t length : 56;
    Kind kind : 2;
    bool selfClosing : 1 = false;
    bool caseSensitive : 1 = true;
    AttributeList* attributes = nullptr;
    NodeArena::Blocks* home;
};

enum class EscapeIn
{
    Text,
    Attribute
};
/// What a text becomes in a document: `& < > "` and, in text, `'` as entities; in an attribute
/// CR is dropped, LF written `\n`, an LF at the very end dropped.
void appendEscaped(WString& out, WStringView text, EscapeIn where);

} // namespace varn

#include "Parser/Element.h"

#include "Parser/NodeBlocks.h"
#include "Parser/TreeWalk.h"

#include <algorithm>
#include <cassert>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace varn {

static_assert(std::is_trivially_destructible_v<Element>, "an arena frees its nodes unseen");
static_assert(sizeof(void*) != 8 || sizeof(Element) == 64);

Element::Element(NodeArena::Blocks& home, Kind kind, WStringView kept) : kind(kind), home(&home)
{
    setContent(kept);
}

void Element::setContent(WStringView kept)
{
    content = kept.data();
    length = kept.size();
}

NodeArena& Element::getArena() const
{
    return *home->arena;
}

void Element::setTagName(WStringView name)
{
    const WStringView text = getContent();
    const Kind before = kind;
    kind = name.empty() ? kText : kElement;
    setContent(home->keep(name));
    if (before == kText && kind == kElement)
        addText(text);
}

// Attributes

Attribute* Element::findExact(WStringView name) const
{
    if (attributes == nullptr)
        return nullptr;
    Attribute* const items = attributes->items();
    for (std::size_t i = 0; i < attributes->count; ++i) {
        if (items[i].name == name)
            return &items[i];
    }
    return nullptr;
}

const Attribute* Element::findAttribute(WStringView name) const
{
    if (const Attribute* exact = findExact(name); exact != nullptr || caseSensitive)
        return exact;
    for (const Attribute& attribute : getAttributes()) {
        if (equalsIgnoringCase(attribute.name, name))
            return &attribute;
    }
    return nullptr;
}

std::span<const Attribute> Element::getAttributes() const
{
    if (attributes == nullptr)
        return {};
    return {attributes->items(), attributes->count};
}

std::size_t Element::attributeCount() const
{
    return getAttributes().size();
}

const Attribute& Element::attributeAt(std::size_t index) const
{
    assert(index < attributeCount());
    return getAttributes()[index];
}

WStringView Element::getString(WStringView name, WStringView fallback) const
{
    const Attribute* found = findAttribute(name);
    return found == nullptr ? fallback : found->value;
}

std::string Element::getNarrowString(WStringView name, std::string_view fallback) const
{
    const Attribute* found = findAttribute(name);
    return found == nullptr ? std::string(fallback) : narrow(found->value);
}

std::int32_t Element::getInt(WStringView name, std::int32_t fallback) const
{
    const Attribute* found = findAttribute(name);
    return found == nullptr ? fallback : parseDecimal(found->value);
}

void Element::setString(WStringView name, WStringView value)
{
    const WStringView kept = home->keep(value);
    if (Attribute* present = findExact(name); present != nullptr) {
        present->value = kept;
        return;
    }
    if (attributes == nullptr || attributes->count == attributes->capacity)
        growAttributes();
    new (attributes->items() + attributes->count++) Attribute{home->keep(name), kept};
}

void Element::setNarrowString(WStringView name, std::string_view value)
{
    setString(name, widen(value));
}

void Element::setInt(WStringView name, std::int32_t value)
{
    setString(name, toDecimal(value));
}

void Element::removeAttribute(WStringView name)
{
    Attribute* const found = findExact(name);
    if (found == nullptr)
        return;
    std::copy(found + 1, attributes->items() + attributes->count, found);
    --attributes->count;
}

void Element::growAttributes()
{
    const std::size_t count = attributeCount();
    attributes = AttributeList::make(*home, getAttributes(), count == 0 ? 4 : count * 2);
}

Element::AttributeList* Element::AttributeList::make(NodeArena::Blocks& home,
                                                     std::span<const Attribute> items,
                                                     std::size_t capacity)
{
    void* const memory = home.allocate(sizeof(AttributeList) + capacity * sizeof(Attribute));
    auto* const list = new (memory) AttributeList{items.size(), capacity};
    std::uninitialized_copy(items.begin(), items.end(), list->items());
    return list;
}

// Children

void Element::link(Element* node)
{
    node->parent = this;
    (lastChild == nullptr ? firstChild : lastChild->nextSibling) = node;
    lastChild = node;
}

void Element::unlink()
{
    if (parent == nullptr)
        return;
    Element* before = nullptr;
    for (Element* node = parent->firstChild; node != this; node = node->nextSibling)
        before = node;
    (before == nullptr ? parent->firstChild : before->nextSibling) = nextSibling;
    if (parent->lastChild == this)
        parent->lastChild = before;
    parent = nullptr;
    nextSibling = nullptr;
}

void Element::appendChild(Element* node)
{
    assert(kind == kElement && node->parent == nullptr && node->home == home);
    link(node);
}

Element* Element::addElement(WStringView tagName)
{
    Element* const made = getArena().makeElement(tagName);
    appendChild(made);
    return made;
}

void Element::addText(WStringView text)
{
    if (!text.empty())
        appendChild(getArena().makeText(text));
}

void Element::addCData(WStringView text)
{
    appendChild(getArena().makeCData(text));
}

Element* Element::findTextChild(Kind wanted) const
{
    Element* child = firstChild;
    while (child != nullptr && child->kind != wanted)
        child = child->nextSibling;
    return child;
}

void Element::setText(WStringView text)
{
    if (kind == kCData)
        setCData(text);
    else if (kind == kText)
        setContent(home->keep(text));
    else if (Element* const child = findTextChild(kText); child != nullptr)
        child->setText(text);
    else
        addText(text);
}

void Element::setCData(WStringView text)
{
    if (kind == kElement) {
        if (Element* const child = findTextChild(kCData); child != nullptr)
            child->setCData(text);
        else
            addCData(text);
        return;
    }
    kind = kCData;
    constexpr WStringView kEnd = u"]]>"; // would end the section early
    if (text.find(kEnd) == WStringView::npos)
        setContent(home->keep(text));
    else
        setContent(home->keep(replaceAll(text, kEnd, u"]]&gt;")));
}

std::vector<Element*> Element::getChildren() const
{
    std::vector<Element*> children;
    for (Element* child = firstChild; child != nullptr; child = child->nextSibling)
        children.push_back(child);
    return children;
}

Element* Element::findChild(WStringView tagName) const
{
    Element* child = firstChild;
    while (child != nullptr && (child->kind != kElement || child->getContent() != tagName))
        child = child->nextSibling;
    return child;
}

void Element::findAll(WStringView tagName, std::vector<Element*>& out) const
{
    for (Element* node = firstChild; node != nullptr; node = nextInTree(node, this)) {
        if (node->kind == kElement && node->getContent() == tagName)
            out.push_back(node);
    }
}

Element* Element::findElement(WStringView tagName)
{
    return const_cast<Element*>(std::as_const(*this).findElement(tagName));
}

const Element* Element::findElement(WStringView tagName) const
{
    if (tagName.empty())
        return nullptr;
    const Element* node = this;
    while (node != nullptr && (node->kind != kElement || node->getContent() != tagName))
        node = nextInTree(node, this);
    return node;
}

WString Element::collectText() const
{
    WString all;
    for (const Element* node = this; node != nullptr; node = nextInTree(node, this))
        all += node->getText();
    return all;
}

// Copying

/// Everything but the links.
void Element::copyFrom(const Element& other)
{
    const bool sameArena = other.home == home; // its texts live as long as ours
    const auto take = [&](WStringView text) { return sameArena ? text : home->keep(text); };
    setContent(take(other.getContent()));
    kind = other.kind;
    selfClosing = other.selfClosing;
    caseSensitive = other.caseSensitive;
    attributes = nullptr;
    if (other.attributeCount() == 0)
        return;
    attributes = AttributeList::make(*home, other.getAttributes(), other.attributeCount());
    for (std::size_t i = 0; i < attributes->count; ++i) {
        Attribute& item = attributes->items()[i];
        item = {take(item.name), take(item.value)};
    }
}

void Element::assign(const Element& other)
{
    if (&other == this)
        return;
    unlink();
    const Element* source = other.firstChild;
    Element* old = firstChild;
    copyFrom(other);
    firstChild = lastChild = nullptr;
    // Both trees are walked side by side: `target` is the copy of the parent of `source`.
    Element* target = this;
    while (source != nullptr) {
        Element* const copy = new (home->allocate(sizeof(Element))) Element(*home, kText, {});
        copy->copyFrom(*source);
        target->link(copy);
        if (source->firstChild != nullptr) {
            source = source->firstChild;
            target = copy;
            continue;
        }
        while (source != nullptr && source->nextSibling == nullptr) {
            source = source->parent == &other ? nullptr : source->parent;
            target = target->parent;
        }
        if (source != nullptr)
            source = source->nextSibling;
    }
    while (old != nullptr) { // only now: `other` may stand among them
        Element* const next = old->nextSibling;
        old->parent = old->nextSibling = nullptr;
        old = next;
    }
}

} // namespace varn

#include "Parser/LargePages.h"
#include "Parser/NodeBlocks.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>

namespace varn {

void* NodeArena::Blocks::allocateInNewBlock(std::size_t bytes)
{
    const std::size_t size = std::max(bytes, nextSize);
    blocks.push_back({std::make_unique_for_overwrite<std::byte[]>(size), size});
    std::byte* const memory = blocks.back().memory.get();
    preferLargePages(memory, size);
    nextSize = std::min(std::max(nextSize, size) * 2, kLargestBlock);
    const std::size_t left = size - bytes;
    if (left >= static_cast<std::size_t>(limit - at)) {
        front = memory;
        at = memory + bytes;
        limit = memory + size;
    }
    return memory;
}

void NodeArena::Blocks::expect(std::size_t bytes)
{
    nextSize = std::clamp(bytes, nextSize, kLargestBlock);
}

WStringView NodeArena::Blocks::finishText(char16_t* begin, const char16_t* end)
{
    const auto units = static_cast<std::size_t>(end - begin);
    auto* const bytes = reinterpret_cast<std::byte*>(begin);
    const std::less<const std::byte*> before;
    if (!before(bytes, front) && before(bytes, at)) // else it filled a block of its own
        at = bytes + roundUp(units * sizeof(char16_t));
    return {begin, units};
}

WStringView NodeArena::Blocks::keep(WStringView text)
{
    if (text.empty())
        return {};
    char16_t* const copy = beginText(text.size());
    std::memcpy(copy, text.data(), text.size() * sizeof(char16_t));
    return {copy, text.size()};
}

void NodeArena::Blocks::reset()
{
    document = {};
    file.reset();
    if (blocks.empty())
        return;
    const auto largest =
        std::max_element(blocks.begin(), blocks.end(),
                         [](const Block& a, const Block& b) { return a.size < b.size; });
    std::swap(blocks.front(), *largest);
    blocks.resize(1);
    front = at = blocks.front().memory.get();
    limit = at + blocks.front().size;
}

NodeArena::NodeArena() : blocks(std::make_unique<Blocks>())
{
    blocks->arena = this;
}

NodeArena::~NodeArena() = default;

NodeArena::NodeArena(NodeArena&& other) noexcept : blocks(std::move(other.blocks))
{
    if (blocks != nullptr)
        blocks->arena = this;
}

NodeArena& NodeArena::operator=(NodeArena&& other) noexcept
{
    blocks = std::move(other.blocks);
    if (blocks != nullptr)
        blocks->arena = this;
    return *this;
}

Element* NodeArena::makeElement(WStringView tagName)
{
    const auto kind = tagName.empty() ? Element::kText : Element::kElement;
    return new (blocks->allocate(sizeof(Element))) Element(*blocks, kind, keep(tagName));
}

Element* NodeArena::makeText(WStringView text)
{
    return new (blocks->allocate(sizeof(Element))) Element(*blocks, Element::kText, keep(text));
}

Element* NodeArena::makeCData(WStringView text)
{
    Element* const node =
        new (blocks->allocate(sizeof(Element))) Element(*blocks, Element::kCData, {});
    node->setCData(text);
    return node;
}

Element* NodeArena::clone(const Element& other)
{
    Element* const copy = makeElement({});
    copy->assign(other);
    return copy;
}

WStringView NodeArena::keep(WStringView text)
{
    return blocks->keep(text);
}

void NodeArena::reset()
{
    blocks->reset();
}

} // namespace varn

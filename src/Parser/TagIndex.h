#pragma once

#include "Util/Text.h"

#include <cstdint>
#include <span>
#include <vector>

namespace varn {

class Element;

/// The elements of a document by tag name, in document order. Views the names it is given.
class TagIndex
{
  public:
    void add(WStringView tagName, Element* element)
    {
        entryOf(tagName).elements.push_back(element);
    }
    std::span<Element* const> find(WStringView tagName) const;

  private:
    struct Entry
    {
        WStringView name;
        std::vector<Element*> elements;
    };

    Entry& entryOf(WStringView name)
    {
        if (!entries.empty() &&
            entries[last].name == name) // rows of a table stand behind each other
            return entries[last];
        return findOrMake(name);
    }
    Entry& findOrMake(WStringView name);
    std::size_t slotOf(WStringView name) const;
    void enlarge();

    std::vector<Entry> entries;
    std::vector<std::uint32_t>
        slots; // open addressing: number of an entry plus 1, or 0; a power of two
    std::size_t last = 0;
};

} // namespace varn

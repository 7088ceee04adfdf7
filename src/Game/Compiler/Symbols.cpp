#include "Game/Compiler/Symbols.h"

#include <algorithm>

namespace varn {

ClassInterface* Symbol::nativeClass()
{
    if (!classSought) {
        classSought = true;
        foundClass = GlobalClassTable::instance().find(name);
    }
    return foundClass;
}

GlobalFunction Symbol::nativeFunction()
{
    if (!functionSought) {
        functionSought = true;
        foundFunction = findGlobalFunction(name);
    }
    return foundFunction;
}

SymbolTable::SymbolTable() : slots(256)
{
    for (const Keyword& keyword : kKeywords)
        intern(keyword.spelling)->keyword = keyword.kind;
}

Symbol* SymbolTable::intern(std::string_view text)
{
    std::uint32_t hash = kHashStart;
    for (const char c : text)
        hash = hashStep(hash, static_cast<unsigned char>(c));
    return intern(WString(text.begin(), text.end()), hash);
}

Symbol* SymbolTable::intern(WStringView text, std::uint32_t hash)
{
    const std::size_t mask = slots.size() - 1;
    std::size_t at = (hash ^ hash >> 15) & mask;
    for (; slots[at]; at = (at + 1) & mask) {
        const Symbol& known = *slots[at];
        if (known.hash == hash &&
            std::equal(text.begin(), text.end(), known.name.begin(), known.name.end()))
            return slots[at];
    }
    char* spelling = static_cast<char*>(arena.allocate(text.size()));
    std::transform(text.begin(), text.end(), spelling,
                   [](char16_t unit) { return static_cast<char>(unit); });
    Symbol* made = new (arena.allocate(sizeof(Symbol))) Symbol;
    made->name = {spelling, text.size()};
    made->hash = hash;
    slots[at] = made;
    if (++used * 2 > slots.size())
        grow();
    return made;
}

void SymbolTable::grow()
{
    std::vector<Symbol*> before(slots.size() * 2);
    before.swap(slots);
    const std::size_t mask = slots.size() - 1;
    for (Symbol* symbol : before) {
        if (!symbol)
            continue;
        std::size_t at = (symbol->hash ^ symbol->hash >> 15) & mask;
        while (slots[at])
            at = (at + 1) & mask;
        slots[at] = symbol;
    }
}

} // namespace varn

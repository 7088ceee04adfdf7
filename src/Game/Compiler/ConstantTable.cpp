#include "Game/Compiler/ConstantTable.h"

#include "Game/Compiler/Objects.h"

#include <bit>
#include <cstring>

namespace varn {

std::uint32_t ConstantTable::addNumber(double value)
{
    const auto index = static_cast<std::uint32_t>(program.numbers.size());
    const auto [known, added] = numbers.try_emplace(std::bit_cast<std::uint64_t>(value), index);
    if (added)
        program.numbers.push_back(value);
    return known->second;
}

std::uint32_t ConstantTable::addText(WStringView text)
{
    const auto known = texts.find(text);
    if (known != texts.end())
        return known->second;
    const auto length = static_cast<std::uint32_t>(text.size());
    auto* buffer =
        new (program.texts.allocate(sizeof(StringBuffer) + text.size() * sizeof(char16_t)))
            StringBuffer;
    buffer->type = HeapObject::Type::String;
    buffer->marked = true; // for good: the collector neither follows nor frees it
    buffer->count = length;
    buffer->capacity = length;
    std::memcpy(buffer->units(), text.data(), text.size() * sizeof(char16_t));
    const auto index = static_cast<std::uint32_t>(program.strings.size());
    program.strings.push_back(OperandData::string(buffer, length));
    texts.emplace(program.strings.back().asText(), index);
    return index;
}

} // namespace varn

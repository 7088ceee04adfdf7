#include "Game/Compiler/classes/StringClass.h"

#include "Game/Compiler/SQClassDef.h"

#include <algorithm>
#include <stdexcept>

namespace varn {
namespace {

int length(SCString text)
{
    return static_cast<int>(text.wide.size());
}

bool isEmpty(SCString text)
{
    return text.wide.empty();
}

std::size_t checkedIndex(SCString text, int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= text.wide.size())
        throw std::out_of_range("invalid string position");
    return static_cast<std::size_t>(index);
}

int charCodeAt(SCString text, int index)
{
    return text.wide[checkedIndex(text, index)];
}

WStringView charAt(SCString text, int index)
{
    return text.wide.substr(checkedIndex(text, index), 1);
}

int indexOfFrom(SCString text, WStringView wanted, int from)
{
    const std::size_t found = text.wide.find(wanted, static_cast<std::size_t>(std::max(from, 0)));
    return found == WStringView::npos ? -1 : static_cast<int>(found);
}

int indexOf(SCString text, WStringView wanted)
{
    return indexOfFrom(text, wanted, 0);
}

/// Negative places are 0; places in the wrong order change.
WStringView substringTo(SCString text, int from, int to)
{
    const auto first = static_cast<std::size_t>(std::max(std::min(from, to), 0));
    const auto last = static_cast<std::size_t>(std::max(std::max(from, to), 0));
    return text.wide.substr(first, last - first);
}

WStringView substring(SCString text, int from)
{
    return text.wide.substr(static_cast<std::size_t>(std::max(from, 0)));
}

} // namespace

void registerString()
{
    auto made = std::make_unique<SQClassDef<SCString>>("String");
    made->addFunc<&charAt>("charAt");
    made->addFunc<&indexOfFrom>("indexOf");
    made->addFunc<&indexOf>("indexOf");
    made->addFunc<&substringTo>("substring");
    made->addFunc<&substring>("substring");
    made->addFunc<&isEmpty>("isEmpty");
    made->addFunc<&charCodeAt>("charCodeAt");
    made->addFunc<&length>("length");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn

#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Game/Compiler/classes/Registrations.h"
#include "Game/Compiler/classes/WidthConversion.h"
#include "Parser/Regexp/CRegexpT.h"

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

/// A place where `room` more units follow; another one throws.
std::size_t checkedPlace(SCString text, int index, std::size_t room)
{
    if (index < 0 || static_cast<std::size_t>(index) + room > text.wide.size())
        throw std::out_of_range("invalid string position");
    return static_cast<std::size_t>(index);
}

/// A count of units; a negative one means all that follow.
std::size_t countOf(int count)
{
    return count < 0 ? WStringView::npos : static_cast<std::size_t>(count);
}

int positionOf(std::size_t found)
{
    return found == WStringView::npos ? -1 : static_cast<int>(found);
}

int charCodeAt(SCString text, int index)
{
    return text.wide[checkedPlace(text, index, 1)];
}

WStringView charAt(SCString text, int index)
{
    return text.wide.substr(checkedPlace(text, index, 1), 1);
}

int indexOfFrom(SCString text, WStringView wanted, int from)
{
    return positionOf(text.wide.find(wanted, static_cast<std::size_t>(std::max(from, 0))));
}

int indexOf(SCString text, WStringView wanted)
{
    return positionOf(text.wide.find(wanted));
}

/// Nothing begins at a negative place or before it.
int lastIndexOfFrom(SCString text, WStringView wanted, int from)
{
    return from < 0 ? -1 : positionOf(text.wide.rfind(wanted, static_cast<std::size_t>(from)));
}

int lastIndexOf(SCString text, WStringView wanted)
{
    return positionOf(text.wide.rfind(wanted));
}

/// Only the end may be negative: it counts from the text's end then.
WStringView sliceTo(SCString text, int from, int to)
{
    const std::int64_t end = to < 0 ? std::int64_t{length(text)} + to : to;
    if (from >= 0 && end < from)
        return {};
    const std::size_t first = checkedPlace(text, from, 0);
    return text.wide.substr(first, static_cast<std::size_t>(end) - first);
}

WStringView slice(SCString text, int from)
{
    return text.wide.substr(checkedPlace(text, from, 0));
}

WStringView substr(SCString text, int from, int count)
{
    return text.wide.substr(checkedPlace(text, from, 0), countOf(count));
}

/// Negative places are 0; places in the wrong order change.
WStringView substringTo(SCString text, int from, int to)
{
    const auto [first, last] = std::minmax({std::max(from, 0), std::max(to, 0)});
    return text.wide.substr(checkedPlace(text, first, 0), static_cast<std::size_t>(last - first));
}

WStringView substring(SCString text, int from)
{
    return slice(text, std::max(from, 0));
}

WString replace(SCString text, int position, int count, WStringView inserted)
{
    const std::size_t first = checkedPlace(text, position, 0);
    return WString(text.wide).replace(first, countOf(count), inserted);
}

/// The expression of the last call on this thread: a loop asks for the same one again and again.
struct LastPattern
{
    WString pattern;
    CRegexpT regexp;
    CContext context; // kept for its stacks

    void take(WStringView wanted)
    {
        if (!regexp.isEmpty() && pattern == wanted)
            return;
        pattern = wanted;
        regexp.compile(wanted, CRegexpT::kMultiLine);
        context = regexp.prepareMatch({});
    }
};

/// A pattern that does not compile gives an empty text.
WString replaceAllMatches(SCString text, WStringView pattern, WStringView replacement)
{
    constexpr std::size_t kLongText = 1 << 16; // the stacks of a longer one are not worth keeping
    thread_local LastPattern last;
    last.take(pattern);
    if (text.wide.size() > kLongText)
        return last.regexp.replace(text.wide, replacement);
    last.context.setText(text.wide);
    return last.regexp.replace(last.context, replacement);
}

/// How many pieces a call of `split` asks for.
std::size_t pieceLimit(SCString text, const Interpreter& vm)
{
    const int limit = vm.getTop() > 1 ? vm.getInt(1) : -1;
    return limit < 0 ? WStringView::npos
                     : std::min(static_cast<std::size_t>(limit), text.wide.size());
}

void splitUnits(WStringView text, std::size_t limit, Heap& heap, Array& pieces)
{
    for (std::size_t i = 0; i < std::min(limit, text.size()); ++i)
        heap.push(pieces, heap.makeString(text.substr(i, 1)));
}

void splitAt(WStringView text, WStringView separator, std::size_t limit, Heap& heap, Array& pieces)
{
    for (; limit > 0; --limit) {
        const std::size_t found = text.find(separator);
        heap.push(pieces, heap.makeString(text.substr(0, found)));
        if (found == WStringView::npos)
            return;
        text.remove_prefix(found + separator.size());
    }
}

/// split(separator = "", limit = all): the limit counts the pieces; what is behind them is dropped.
OperandData splitText(SCString text, Interpreter& vm)
{
    const WString separator = vm.getTop() > 0 ? vm.getString(0) : WString();
    const std::size_t limit = pieceLimit(text, vm);
    Array* pieces = vm.heap().makeArray();
    if (separator.empty())
        splitUnits(text.wide, limit, vm.heap(), *pieces);
    else
        splitAt(text.wide, separator, limit, vm.heap(), *pieces);
    return OperandData::array(pieces);
}

template <char16_t (*map)(char16_t)>
WString mapUnits(SCString text)
{
    WString mapped(text.wide);
    std::transform(mapped.begin(), mapped.end(), mapped.begin(), map);
    return mapped;
}

WString fullWidth(SCString text)
{
    return toFullWidth(text.wide);
}

WString halfWidth(SCString text)
{
    return toHalfWidth(text.wide);
}

WString fromCharCode(int code)
{
    return WString(1, static_cast<char16_t>(code));
}

} // namespace

void registerString()
{
    auto made = std::make_unique<SQClassDef<SCString>>("String");
    made->addFunc<&splitText>("split");
    made->addFunc<&charAt>("charAt");
    made->addFunc<&indexOfFrom>("indexOf");
    made->addFunc<&indexOf>("indexOf");
    made->addFunc<&lastIndexOfFrom>("lastIndexOf");
    made->addFunc<&lastIndexOf>("lastIndexOf");
    made->addFunc<&sliceTo>("slice");
    made->addFunc<&slice>("slice");
    made->addFunc<&substr>("substr");
    made->addFunc<&substringTo>("substring");
    made->addFunc<&substring>("substring");
    made->addFunc<&isEmpty>("isEmpty");
    made->addFunc<&charCodeAt>("charCodeAt");
    made->addFunc<&length>("length");
    made->addFunc<&replace>("replace");
    made->addFunc<&replaceAllMatches>("replaceAll");
    made->addFunc<&mapUnits<&toSmallLetter>>("toLowerCase");
    made->addFunc<&mapUnits<&toCapitalLetter>>("toUpperCase");
    made->addFunc<&fullWidth>("toFullWidth");
    made->addFunc<&halfWidth>("toHalfWidth");
    made->addStaticFunc<&fromCharCode>("fromCharCode");
    GlobalClassTable::instance().registerClass(std::move(made));
}

} // namespace varn

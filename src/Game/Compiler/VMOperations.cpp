#include "Game/Compiler/InterpreterVM.h"

#include "Game/Compiler/ClassInterface.h"
#include "Game/Compiler/Interpreter.h"
#include "Game/Compiler/SQClassDef.h"
#include "Util/Host.h"

#include <algorithm>
#include <array>
#include <new>

// Of InterpreterVM: set-up, faults, and the instructions' slower halves.

namespace varn {

using interpreter::InterpreterException;
static std::size_t registersOf(const FunctionCode& function)
{
    return function.frameBytes / kRegisterStep;
}

using Severity = InterpreterException::Severity;

namespace {

/// The script ended, or was stopped, in a function that a native called.
struct RunOver
{};

} // namespace

InterpreterVM::InterpreterVM(Interpreter& owner, Heap& heap, Program& program,
                             const std::atomic<bool>& stopRequested)
    : owner(owner), heap(heap), program(program), stopRequested(stopRequested),
      top(*program.functions.front()), stack(std::make_unique<OperandData[]>(kFirstCells)),
      cells(kFirstCells)
{
    usable = stack.get() + kClearStep;
    enterTopLevel();
}

InterpreterVM::~InterpreterVM() = default;

void InterpreterVM::enterTopLevel()
{
    nesting = 0;
    outgrown.clear();
    stack[0].head = top.headerWord();
    frame = stack.get() + kHeader;
    const std::size_t registers = registersOf(top);
    if (frame + registers > usable)
        frame = makeRoom(frame, top);
    std::fill_n(frame, registers, OperandData::integer(0));
    pc = top.start;
    reached = State::Running;
}

void InterpreterVM::restart(StackContents contents)
{
    if (cells > kFirstCells) { // a deep recursion's
        stack = std::make_unique<OperandData[]>(kFirstCells);
        cells = kFirstCells;
        usable = stack.get() + kClearStep;
    } else if (contents == StackContents::HeapValues) {
        std::fill(stack.get(), usable, OperandData());
    }
    enterTopLevel();
}

InterpreterVM::State InterpreterVM::run(std::uint64_t budget)
{
    while (reached == State::Running) {
        try {
            const bool counted = budget != kUnlimited;
            reached = counted ? interpret<true>(budget) : interpret<false>(budget);
            if (reached == State::Running)
                break; // the budget is used up
        } catch (const RunOver&) {
            break;
        } catch (const InterpreterException& fault) {
            if (reached != State::Running)
                throw; // it was told where it happened
            if (fault.isFatal() || !inNative())
                end(fault.getMessage(), fault.getFunction());
            recover(fault.getMessage(), fault.getFunction());
        } catch (const std::bad_alloc&) {
            end(u"Exception: out of memory", {});
        } catch (const Exception& fault) {
            if (!inNative())
                end(fault.getMessage(), fault.getLocation());
            recover(fault.getMessage(), fault.getLocation());
        } catch (const std::exception& fault) {
            if (!inNative())
                end(fromUtf8(fault.what()), {});
            recover(fromUtf8(fault.what()), {});
        }
    }
    return reached;
}

bool InterpreterVM::inNative() const
{
    return pc->opcode == Opcode::CallMethod || pc->opcode == Opcode::CallStatic ||
           pc->opcode == Opcode::CallNative;
}

/// Shows what a native threw; the run goes on behind the call with the integer of `_ret`.
void InterpreterVM::recover(const WString& text, const WString& function)
{
    owner.call = nullptr;
    const auto extra = static_cast<std::size_t>(pc[1].wide());
    const bool global = pc->opcode == Opcode::CallNative;
    WString name = function;
    if (name.empty() && global)
        name = widen(program.natives[extra].name);
    else if (name.empty())
        name =
            (program.sites[extra].declared ? program.sites[extra].declared->getClassName() + u"::"
                                           : WString()) +
            widen(program.names[program.sites[extra].method]);
    host().showMessage((global ? WString(u"GlobalFunctionCallException: ")
                               : WString(u"ClassMethodCallException:")) +
                       u"\n===\n" + name + u"()\n===\n" + text);
    frame[(global ? pc->b : pc[1].a) / kRegisterStep] = fallbackResult();
    pc += 2;
}

WString InterpreterVM::place() const
{
    const SourcePosition at = program.positions[static_cast<std::size_t>(pc - program.code.data())];
    const WString file =
        at.file < program.files.size() ? program.files[at.file] : owner.getScriptName();
    return u"\"" + file + u"\"(" + toDecimal(at.line) + u")";
}

/// The run is over; tells script and line.
void InterpreterVM::end(const WString& text, const WString& function)
{
    owner.call = nullptr;
    reached = State::Ended;
    const auto line = program.positions[static_cast<std::size_t>(pc - program.code.data())].line;
    throw InterpreterException(u"Error: " + place() + u": " + text, function,
                               static_cast<int>(line), Severity::Fatal);
}

void InterpreterVM::fail(WStringView text) const
{
    throw InterpreterException(WString(text), {}, 0, Severity::Fatal);
}

void InterpreterVM::failOutside(const OperandData& array, std::int32_t index) const
{
    const auto at = static_cast<std::uint32_t>(pc - program.code.data());
    const auto named = std::lower_bound(program.selectedNames.begin(), program.selectedNames.end(),
                                        std::pair(at, 0U));
    const WString name = named != program.selectedNames.end() && named->first == at
                             ? widen(program.names[named->second])
                             : WString();
    const WString text = u"the index " + toDecimal(index) +
                         u" is outside of the array, its length is " +
                         toDecimal(array.asArray()->size());
    host().showMessage(u"Exception: symbol name: " + name + u"\n" + text);
    throw InterpreterException(text, u"Interpreter::getArrayOperand", 0, Severity::Fatal);
}

std::size_t InterpreterVM::liveCells() const
{
    return static_cast<std::size_t>(frame - stack.get()) + registersOf(currentFunction());
}

/// Makes the registers of a function usable; `base` is where they begin, the answer where they do
/// then.
OperandData* InterpreterVM::makeRoom(OperandData* base, const FunctionCode& function)
{
    const auto position = static_cast<std::size_t>(base - stack.get());
    const std::size_t needed = position + registersOf(function);
    if (needed > kMaxCells)
        fail(u"the calls are nested too deeply");
    if (needed > cells) {
        const std::size_t grown = std::min(kMaxCells, std::max(needed, cells * 2));
        auto moved = std::make_unique<OperandData[]>(grown);
        std::copy(stack.get(), usable, moved.get());
        frame = moved.get() + (frame - stack.get());
        if (nesting > 0)
            outgrown.push_back(std::move(stack));
        else
            outgrown.clear();
        stack = std::move(moved);
        cells = grown;
    }
    usable = stack.get() + std::min(cells, needed + kClearStep);
    return stack.get() + position;
}

/// Values above the frame are dead but may name what is freed now, so they are cleared; no further
/// than frames reached since the last time.
void InterpreterVM::collect()
{
    const std::size_t live = liveCells();
    heap.collect([this](Marker& marker) { owner.markRoots(marker); });
    std::fill(stack.get() + live, std::max(usable, stack.get() + live), OperandData());
    usable = stack.get() + std::min(cells, live + kClearStep);
}

void InterpreterVM::markRoots(Marker& marker)
{
    marker.mark(std::span(stack.get(), liveCells()));
}

OperandData InterpreterVM::add(const OperandData& left, const OperandData& right)
{
    if (left.is(ValueKind::Int))
        return OperandData::integer(wrap(std::int64_t{left.asInt()} + right.toInt()));
    if (left.is(ValueKind::Number))
        return OperandData::number(left.asNumber() + right.toNumber());
    if (!left.is(ValueKind::String))
        return left;
    const auto append = [&](WStringView text) {
        if (heap.wantsCollection((left.textLength() + text.size()) * 2 * sizeof(char16_t)))
            collect();
        return heap.concat(left, text);
    };
    return right.is(ValueKind::String) ? append(right.asText()) : append(right.toString());
}

OperandData InterpreterVM::divide(const OperandData& left, const OperandData& right) const
{
    if (!left.is(ValueKind::Int) || !right.is(ValueKind::Int))
        return OperandData::number(left.toNumber() / right.toNumber());
    if (right.asInt() == 0)
        fail(u"division by zero");
    return OperandData::integer(wrap(std::int64_t{left.asInt()} / right.asInt()));
}

/// The element, or the base itself where an index means nothing.
OperandData* InterpreterVM::elementPlace(OperandData& base, const OperandData& index)
{
    if (!base.is(ValueKind::Array) || index.is(ValueKind::Selector))
        return &base;
    const std::int32_t at = index.toInt();
    if (static_cast<std::uint32_t>(at) >= base.asArray()->size())
        failOutside(base, at);
    return &(*base.asArray())[static_cast<std::uint32_t>(at)];
}

/// The member, made when new, or the base itself where a name means nothing.
OperandData* InterpreterVM::memberPlace(OperandData& base, std::uint32_t name)
{
    if (!base.is(ValueKind::Table))
        return &base;
    OperandData* known = base.asTable()->find(name);
    return known ? known : &heap.ensureMember(*base.asTable(), name);
}

/// The same, leaving a hint behind the instruction.
OperandData* InterpreterVM::memberAt(OperandData& base, std::uint32_t name)
{
    OperandData* member = memberPlace(base, name);
    if (base.is(ValueKind::Table))
        program.code[static_cast<std::size_t>(pc - program.code.data()) + 1].setWide(
            base.asTable()->positionOf(name));
    return member;
}

/// Several selectors in turn; one that means nothing leaves what was reached.
OperandData* InterpreterVM::chainPlace(OperandData& base, const OperandData* selectors,
                                       std::uint32_t count)
{
    OperandData* at = &base;
    for (std::uint32_t i = 0; i < count; ++i)
        at = selectors[i].is(ValueKind::Selector) ? memberPlace(*at, selectors[i].asSelector())
                                                  : elementPlace(*at, selectors[i]);
    return at;
}

void InterpreterVM::newArray(OperandData& target, const OperandData* first, std::uint32_t count)
{
    if (heap.wantsCollection())
        collect();
    target = OperandData::array(heap.makeArray(std::span(first, count)));
}

void InterpreterVM::appendArray(const OperandData& target, const OperandData* first,
                                std::uint32_t count)
{
    heap.append(*target.asArray(), std::span(first, count));
}

/// A class of the source has no instances: its value is the number of arguments.
void InterpreterVM::newObject(OperandData& target, const OperandData* first, std::uint32_t count,
                              const ClassReference& wanted)
{
    if (heap.wantsCollection())
        collect();
    if (!wanted.native) {
        target = OperandData::integer(static_cast<std::int32_t>(count));
        return;
    }
    NativeCall call{owner, heap, {}, first, static_cast<int>(count)};
    switch (wanted.makes) {
    case ValueKind::String:
        target = heap.makeString({});
        return;
    case ValueKind::Array:
        call.receiver = OperandData::array(heap.makeArray());
        if (count > 0)
            wanted.native->invoke(call, "constructor");
        target = call.receiver;
        return;
    case ValueKind::Table:
        target = OperandData::table(heap.makeTable());
        return;
    default:
        target = heap.makeObject(*wanted.native, wanted.native->create(call));
    }
}

bool InterpreterVM::isOfClass(const OperandData& value, const ClassReference& wanted) const
{
    if (value.isBoxed())
        return value.asBox()->classInterface == wanted.native && wanted.native;
    return value.className() == wanted.name;
}

OperandData InterpreterVM::kindNameOf(const OperandData& value)
{
    if (heap.wantsCollection())
        collect();
    return heap.makeString(value.kindName());
}

/// Looks a method up for a receiver and remembers it at the site. False: no overload takes the
/// call. A declared class the receiver is no instance of gives way to the receiver's own.
bool InterpreterVM::findMethod(CallSite& site, const OperandData& receiver)
{
    ClassInterface* owning = site.declared;
    if (!site.isStatic && (!owning || !owning->isInstance(receiver)))
        owning = receiver.isBoxed() ? receiver.asBox()->classInterface
                                    : GlobalClassTable::instance().find(receiver.className());
    if (!owning || !(site.isStatic || owning->isInstance(receiver)))
        return false;
    for (const NativeFunction* each = owning->findMethod(program.names[site.method]); each;
         each = each->next) {
        if (!each->accepts(static_cast<int>(site.count)) || (site.isStatic && !each->isStatic))
            continue;
        site.cached = each;
        site.cachedKey = site.isStatic ? 0
                         : receiver.isBoxed()
                             ? reinterpret_cast<std::uint64_t>(receiver.asBox()->classInterface)
                             : static_cast<std::uint64_t>(receiver.getKind());
        return true;
    }
    return false;
}

/// The function that a table holds under the method's name, or null.
const FunctionCode* InterpreterVM::memberFunction(const CallSite& site,
                                                  const OperandData& receiver) const
{
    if (site.isStatic || !receiver.is(ValueKind::Table))
        return nullptr;
    const OperandData* member = receiver.asTable()->find(site.method);
    return member && member->is(ValueKind::Function) ? member->asFunction() : nullptr;
}

/// No overload takes the call: says so; the run goes on with the integer of `_ret`.
OperandData InterpreterVM::refuse(const CallSite& site, const OperandData& receiver)
{
    const std::string owning = site.declared ? site.declared->scriptName() : receiver.className();
    host().showMessage(widen(owning + "." + program.names[site.method]) +
                       u" is passed invalidate args");
    return fallbackResult();
}

/// The result is in `_ret` then.
void InterpreterVM::callNative(const NativeReference& native, const OperandData* first, int count)
{
    NativeCall call{owner, heap, {}, first, count};
    {
        const NativeFrame entered(call);
        native.function(owner);
    }
    if (heap.wantsCollection())
        collect();
}

OperandData InterpreterVM::callFunction(const FunctionCode& function,
                                        std::span<const OperandData> arguments)
{
    const Instruction* const caller = pc;
    NativeCall* const served = owner.call;
    const std::size_t header = liveCells();
    OperandData* base = stack.get() + header + kHeader;
    if (base + registersOf(function) > usable)
        base = makeRoom(base, function);
    for (std::uint32_t i = 0; i < function.parameters; ++i)
        base[i] = i < arguments.size() ? arguments[i] : OperandData::integer(0);

    // Where the function returns to: the end of this run. What stands before tells, as behind any
    // call, how far the header lies from the registers below.
    std::array<Instruction, 2> landing{};
    landing[0].a = static_cast<std::uint16_t>(
        (header - static_cast<std::size_t>(frame - stack.get())) * kRegisterStep);
    landing[1].opcode = Opcode::Halt;
    base[-1].head = function.headerWord();
    base[-1].bits = reinterpret_cast<std::uint64_t>(&landing[1]);
    frame = base;
    pc = function.start;
    ++nesting;
    run(kUnlimited);
    --nesting;
    if (reached != State::Ended || pc != &landing[1])
        throw RunOver();
    reached = State::Running;
    pc = caller;
    owner.call = served;
    return stack[header];
}

} // namespace varn

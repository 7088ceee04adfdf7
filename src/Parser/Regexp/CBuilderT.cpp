#include "Parser/Regexp/CBuilderT.h"

#include <algorithm>
#include <atomic>

namespace varn::regexp {

namespace {

std::uint64_t filterOf(const UnitSet& set)
{
    std::uint64_t filter = 0;
    for (const UnitRange& range : set.getRanges()) {
        if (range.last - range.first >= 63)
            return ~std::uint64_t{0};
        for (int unit = range.first; unit <= range.last; ++unit)
            filter |= std::uint64_t{1} << (unit & 63);
    }
    return filter;
}

bool isDisjoint(const UnitSet& a, const UnitSet& b)
{
    return (a & b).isEmpty();
}

bool hasSearchStart(const Pattern& pattern)
{
    return std::any_of(pattern.nodes.begin(), pattern.nodes.end(), [](const Node& node) {
        return node.kind == NodeKind::Boundary && node.boundary == BoundaryKind::SearchStart;
    });
}

std::uint64_t nextSerial()
{
    static std::atomic<std::uint64_t> serial{0};
    return ++serial;
}

} // namespace

CBuilderT::CBuilderT(const Pattern& pattern, Direction direction)
    : pattern(pattern), facts(gatherFacts(pattern)), direction(direction),
      contextFree(!facts[pattern.root].readsGroups && !facts[pattern.root].calls &&
                  !hasSearchStart(pattern))
{}

Program CBuilderT::build()
{
    program.serial = nextSerial();
    program.direction = direction;
    program.groupCount = pattern.getGroupCount();
    program.groupNumbers = pattern.groupNumbers;
    program.registerCount = 2 * (static_cast<std::uint32_t>(program.groupCount) + 1);
    program.minLength = static_cast<int>(facts[pattern.root].minLength);
    const Direction main = direction;
    emit(pattern.root, UnitSet::all());
    add({.op = Op::Accept});
    emitSubroutines();
    direction = main;
    const UnitSet first = firstOf(pattern.root, UnitSet::all());
    program.start = planStart(pattern, program, first, tableOf(first));
    return std::move(program);
}

// ---- elements

void CBuilderT::emit(NodeId id, const UnitSet& follow)
{
    const Node& node = pattern.nodes[id];
    switch (node.kind) {
    case NodeKind::Empty:
        return;
    case NodeKind::Literal:
        return emitLiteral(node.text);
    case NodeKind::Set:
        return emitSet(node.set);
    case NodeKind::Sequence:
        return emitSequence(node, follow);
    case NodeKind::Alternation:
        return emitAlternation(node, follow);
    case NodeKind::Repeat:
        return emitRepeat(node, follow);
    case NodeKind::Group:
        return emitGroup(node, id, follow);
    case NodeKind::Atomic:
        return emitAtomic(node.children[0]);
    case NodeKind::Look:
        return emitLook(node);
    case NodeKind::Backreference:
        add({.op = sided(Op::Backreference),
             .flag = node.ignoreCase,
             .a = static_cast<std::uint32_t>(node.number)});
        return;
    case NodeKind::Call:
        return emitCall(node);
    case NodeKind::Condition:
        return emitCondition(node, follow);
    case NodeKind::Boundary:
        return emitBoundary(node.boundary);
    }
}

void CBuilderT::emitLiteral(const WString& text)
{
    if (text.size() == 1) {
        add({.op = sided(Op::Unit), .units = {text[0], 0}});
        return;
    }
    const auto place = static_cast<std::uint32_t>(program.texts.size());
    program.texts += text;
    add({.op = sided(Op::Text), .a = place, .b = static_cast<std::uint32_t>(text.size())});
}

void CBuilderT::emitSet(const UnitSet& set)
{
    if (set.count() != 2) {
        add({.op = sided(Op::Set), .a = tableOf(set)});
        return;
    }
    add({.op = sided(Op::Pair),
         .units = {set.getRanges().front().first, set.getRanges().back().last}});
}

void CBuilderT::emitSequence(const Node& node, const UnitSet& follow)
{
    std::vector<NodeId> order = node.children;
    if (direction == Direction::Backward)
        std::reverse(order.begin(), order.end());
    std::vector<UnitSet> follows(order.size(), follow);
    for (std::size_t i = order.size() - 1; i > 0; --i)
        follows[i - 1] = firstOf(order[i], follows[i]);
    for (std::size_t i = 0; i < order.size(); ++i)
        emit(order[i], follows[i]);
}

void CBuilderT::emitAlternation(const Node& node, const UnitSet& follow)
{
    const std::size_t count = node.children.size();
    std::vector<std::uint64_t> filters(count);
    for (std::size_t i = 0; i < count; ++i)
        filters[i] = filterOf(firstOf(node.children[i], follow));
    std::vector<std::uint64_t> others(count, 0); // of the branches behind each
    for (std::size_t i = count - 1; i > 0; --i)
        others[i - 1] = others[i] | filters[i];

    // Where a branch failed, those before it have failed too: the branches share their memory.
    const std::uint32_t memory = newMemory();
    std::vector<std::uint32_t> jumps;
    for (std::size_t i = 0; i < count; ++i) {
        if (i + 1 == count) {
            emit(node.children[i], follow);
            break;
        }
        const std::uint32_t branch = addBranch(false, filters[i], others[i], memory);
        emit(node.children[i], follow);
        jumps.push_back(add({.op = Op::Jump}));
        setTarget(branch);
    }
    for (const std::uint32_t jump : jumps)
        setTarget(jump);
}

/// A group that is read while it is open, or called from within itself, keeps its beginning aside:
/// its two registers change together.
void CBuilderT::emitGroup(const Node& node, NodeId id, const UnitSet& follow)
{
    const auto group = static_cast<std::uint32_t>(node.number);
    const bool forward = direction == Direction::Forward;
    if (!facts[id].readsGroups && !facts[pattern.root].calls) {
        add({.op = Op::Save, .a = 2 * group + (forward ? 0 : 1)});
        emit(node.children[0], follow);
        add({.op = Op::Save, .a = 2 * group + (forward ? 1 : 0)});
        return;
    }
    const std::uint32_t opened = newRegister();
    add({.op = Op::Save, .a = opened});
    kept.push_back(opened);
    emit(node.children[0], follow);
    kept.pop_back();
    add({.op = sided(Op::CloseGroup), .a = group, .b = opened});
}

void CBuilderT::emitBoundary(BoundaryKind kind)
{
    static constexpr Op kOps[] = {Op::TextBegin,      Op::TextEnd,    Op::LastLineEnd,
                                  Op::LineBegin,      Op::LineEnd,    Op::WordBoundary,
                                  Op::NoWordBoundary, Op::SearchStart};
    add({.op = kOps[static_cast<std::size_t>(kind)]});
}

// ---- parts that are cut

void CBuilderT::emitAtomic(NodeId child)
{
    ++forgetfulParts;
    add({.op = Op::Enter});
    emit(child, UnitSet::all());
    add({.op = Op::LeaveAtomic});
    --forgetfulParts;
}

std::uint32_t CBuilderT::emitLookBody(const Node& look)
{
    const Direction outer = direction;
    direction = look.behind ? Direction::Backward : Direction::Forward;
    ++forgetfulParts;
    const std::uint32_t enter = add({.op = Op::Enter});
    emit(look.children[0], UnitSet::all());
    --forgetfulParts;
    direction = outer;
    return enter;
}

void CBuilderT::emitLook(const Node& node)
{
    if (const std::optional<UnitSet> set = asSet(node.children[0])) {
        const Op op = node.negated ? Op::PeekNotSet : Op::PeekSet;
        const Op back = node.negated ? Op::PeekNotSetBack : Op::PeekSetBack;
        add({.op = node.behind ? back : op, .a = tableOf(*set)});
        return;
    }
    const std::uint32_t enter = emitLookBody(node);
    add({.op = node.negated ? Op::LeaveNegated : Op::LeaveLook});
    if (node.negated)
        setTarget(enter);
}

void CBuilderT::emitCondition(const Node& node, const UnitSet& follow)
{
    const bool byGroup = node.number != 0;
    const NodeId yes = node.children[byGroup ? 0 : 1];
    const NodeId no = node.children[byGroup ? 1 : 2];
    if (byGroup) {
        const std::uint32_t test =
            add({.op = Op::TestGroup, .b = static_cast<std::uint32_t>(node.number)});
        emit(yes, follow);
        const std::uint32_t jump = add({.op = Op::Jump});
        setTarget(test);
        emit(no, follow);
        setTarget(jump);
        return;
    }
    // The body's failure leads to Enter's target, its success behind the Leave or to its target.
    const Node& look = pattern.nodes[node.children[0]];
    const std::uint32_t enter = emitLookBody(look);
    const std::uint32_t leave = add({.op = look.negated ? Op::LeaveNegated : Op::LeaveLook});
    if (look.negated)
        setTarget(enter);
    emit(yes, follow);
    const std::uint32_t jump = add({.op = Op::Jump});
    setTarget(look.negated ? leave : enter);
    emit(no, follow);
    setTarget(jump);
}

// ---- calls

void CBuilderT::emitCall(const Node& node)
{
    const auto list = static_cast<std::uint32_t>(program.keptRegisters.size());
    program.keptRegisters.insert(program.keptRegisters.end(), kept.begin(), kept.end());
    checkSize(program.keptRegisters.size());
    const std::uint32_t call =
        add({.op = Op::Call, .b = list, .c = static_cast<std::uint32_t>(kept.size())});
    const Subroutine subroutine{node.number, direction};
    if (subroutines.emplace(subroutine, kNone).second)
        pending.push_back(subroutine);
    calls.emplace_back(call, subroutine);
}

void CBuilderT::emitSubroutines()
{
    while (!pending.empty()) {
        const Subroutine subroutine = pending.back();
        pending.pop_back();
        subroutines[subroutine] = here();
        direction = subroutine.direction;
        emit(pattern.groups[static_cast<std::size_t>(subroutine.group)], UnitSet::all());
        add({.op = Op::Return});
    }
    for (const auto& [call, subroutine] : calls)
        program.code[call].a = subroutines[subroutine];
}

// ---- loops

void CBuilderT::emitRepeat(const Node& node, const UnitSet& follow)
{
    if (node.max == 0)
        return;
    const NodeId child = node.children[0];
    if (node.min == 1 && node.max == 1)
        return node.greed == Greed::Possessive ? emitAtomic(child) : emit(child, follow);
    if (const std::optional<UnitSet> set = asSet(child))
        return emitRun(node, *set, follow);
    const bool possessive = node.greed == Greed::Possessive;
    if (possessive) {
        ++forgetfulParts;
        add({.op = Op::Enter});
    }
    const UnitSet after = possessive ? UnitSet::all() : follow;
    if (node.min == 0 && node.max == 1)
        emitOptional(node, after);
    else if (node.min <= 1 && node.max == kUnlimited)
        emitUnlimited(node, after);
    else
        emitCounted(node, after);
    if (possessive) {
        add({.op = Op::LeaveAtomic});
        --forgetfulParts;
    }
}

/// Where nothing of the set can follow, giving back is in vain, and so is taking less.
void CBuilderT::emitRun(const Node& node, const UnitSet& set, const UnitSet& follow)
{
    Run run{.set = tableOf(set), .min = node.min, .max = node.max};
    const bool possessive =
        node.greed == Greed::Possessive || node.min == node.max || isDisjoint(set, follow);
    const bool reluctant = !possessive && node.greed == Greed::Reluctant;
    if (!possessive && !follow.isAll()) {
        run.follow = tableOf(follow);
        if (reluctant)
            run.stop = tableOf(follow | set.complement());
    }
    if (!possessive)
        run.memory = newMemory();
    if (node.max == kUnlimited && isRemembering() && direction == Direction::Forward)
        run.stretch = program.stretchCount++;
    const Op op = possessive ? Op::RunPossessive : reluctant ? Op::RunReluctant : Op::RunGreedy;
    add({.op = sided(op), .a = static_cast<std::uint32_t>(program.runs.size())});
    program.runs.push_back(run);
}

void CBuilderT::emitOptional(const Node& node, const UnitSet& follow)
{
    const NodeId child = node.children[0];
    const std::uint32_t branch =
        addBranch(node.greed == Greed::Reluctant, filterOf(firstOf(child, follow)),
                  filterOf(follow), newMemory());
    emit(child, follow);
    setTarget(branch);
}

/// What may come behind one turn of a loop: another turn, or what follows the loop.
UnitSet CBuilderT::followOfTurn(NodeId child, const UnitSet& follow) const
{
    return widened(facts[child].own[sideOf(direction)] | follow);
}

void CBuilderT::emitUnlimited(const Node& node, const UnitSet& follow)
{
    const NodeId child = node.children[0];
    const UnitSet behind = followOfTurn(child, follow);
    const std::uint64_t again = filterOf(firstOf(child, behind));
    const std::uint64_t leave = filterOf(follow);
    const bool reluctant = node.greed == Greed::Reluctant;
    const std::uint32_t skip =
        node.min == 0 ? addBranch(reluctant, again, leave, newMemory()) : kNone;
    const std::uint32_t turn = here();
    const std::uint32_t begun = facts[child].minLength == 0 ? newRegister() : kNone;
    if (begun != kNone) {
        add({.op = Op::Save, .a = begun});
        kept.push_back(begun);
    }
    emit(child, behind);
    std::uint32_t empty = kNone;
    if (begun != kNone) {
        kept.pop_back();
        empty = add({.op = Op::LeaveIfEmpty, .b = begun});
    }
    const std::uint32_t loop = addBranch(!reluctant, leave, again, newMemory());
    program.code[loop].a = turn;
    if (empty != kNone)
        setTarget(empty);
    if (skip != kNone)
        setTarget(skip);
}

void CBuilderT::emitCounted(const Node& node, const UnitSet& follow)
{
    const NodeId child = node.children[0];
    const std::uint32_t counter = newRegister();
    const std::uint32_t begun = facts[child].minLength == 0 ? newRegister() : kNone;
    ++forgetfulParts;
    add({.op = Op::SetCounter, .a = counter});
    const std::uint32_t head = add({.op = Op::CountedHead,
                                    .flag = node.greed == Greed::Reluctant,
                                    .b = counter,
                                    .here = static_cast<std::uint64_t>(node.min),
                                    .there = static_cast<std::uint64_t>(node.max)});
    kept.push_back(counter);
    if (begun != kNone) {
        add({.op = Op::Save, .a = begun});
        kept.push_back(begun);
    }
    emit(child, followOfTurn(child, follow));
    if (begun != kNone)
        kept.pop_back();
    kept.pop_back();
    add({.op = Op::CountedNext, .a = head, .b = counter, .c = begun});
    setTarget(head);
    --forgetfulParts;
}

// ---- pieces

void CBuilderT::checkSize(std::size_t size)
{
    if (size >= kLargestProgram)
        throw PatternException(u"The pattern's program is too big", 0);
}

std::uint32_t CBuilderT::add(Instruction instruction)
{
    checkSize(program.code.size());
    program.code.push_back(instruction);
    return here() - 1;
}

std::uint32_t CBuilderT::addBranch(bool targetFirst, std::uint64_t here, std::uint64_t there,
                                   std::uint32_t memory)
{
    return add(
        {.op = sided(Op::Branch), .flag = targetFirst, .c = memory, .here = here, .there = there});
}

Op CBuilderT::sided(Op op) const
{
    return direction == Direction::Forward ? op : static_cast<Op>(static_cast<int>(op) + 1);
}

std::uint32_t CBuilderT::tableOf(const UnitSet& set)
{
    const auto [place, isNew] =
        tables.emplace(set.getRanges(), static_cast<std::uint32_t>(program.tables.size()));
    if (isNew)
        program.tables.emplace_back(set);
    return place->second;
}

std::uint32_t CBuilderT::newMemory()
{
    return isRemembering() ? ++program.memoryCount : 0;
}

UnitSet CBuilderT::firstOf(NodeId id, const UnitSet& follow) const
{
    return firstUnits(facts[id], direction, follow);
}

/// The units of a node that takes just one and does nothing else.
std::optional<UnitSet> CBuilderT::asSet(NodeId id) const
{
    const Node& node = pattern.nodes[id];
    if (node.kind == NodeKind::Set)
        return node.set;
    if (node.kind == NodeKind::Literal && node.text.size() == 1)
        return UnitSet::of(node.text[0]);
    return std::nullopt;
}

} // namespace varn::regexp

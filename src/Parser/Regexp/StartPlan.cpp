#include "Parser/Regexp/StartPlan.h"

#include "Parser/Regexp/Program.h"
#include "Parser/Regexp/Vector.h"

#include <algorithm>

namespace varn::regexp {

namespace {

constexpr std::size_t kLongestPrefix = 32;
constexpr int kMostVisits = 10000;

// ---- the sets that every match begins with

/// The leading places of a match at which the set of units is known, up to the first element of
/// variable length.
class Prefix
{
  public:
    explicit Prefix(const Pattern& pattern) : pattern(pattern) {}

    std::vector<UnitSet> collect()
    {
        std::vector<UnitSet> places;
        collect(pattern.root, places);
        return places;
    }

  private:
    /// Appends the places of a node; false when what follows the node has no fixed place.
    bool collect(NodeId id, std::vector<UnitSet>& places);
    bool collectBranches(const Node& node, std::vector<UnitSet>& places);
    bool collectRepeat(const Node& node, std::vector<UnitSet>& places);

    const Pattern& pattern;
    int visits = 0;
};

bool Prefix::collect(NodeId id, std::vector<UnitSet>& places)
{
    const Node& node = pattern.nodes[id];
    if (places.size() >= kLongestPrefix || ++visits > kMostVisits)
        return false;
    switch (node.kind) {
    case NodeKind::Literal:
        for (const char16_t unit : node.text)
            if (places.size() < kLongestPrefix)
                places.push_back(UnitSet::of(unit));
        return true;
    case NodeKind::Set:
        places.push_back(node.set);
        return true;
    case NodeKind::Sequence:
        return std::all_of(node.children.begin(), node.children.end(),
                           [&](NodeId child) { return collect(child, places); });
    case NodeKind::Group:
    case NodeKind::Atomic:
        return collect(node.children[0], places);
    case NodeKind::Alternation:
        return collectBranches(node, places);
    case NodeKind::Repeat:
        return collectRepeat(node, places);
    case NodeKind::Empty:
    case NodeKind::Look:
    case NodeKind::Boundary:
        return true;
    case NodeKind::Backreference:
    case NodeKind::Call:
    case NodeKind::Condition:
        return false;
    }
    return false;
}

bool Prefix::collectBranches(const Node& node, std::vector<UnitSet>& places)
{
    std::vector<UnitSet> common;
    bool complete = true;
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        std::vector<UnitSet> branch;
        complete = collect(node.children[i], branch) && complete;
        if (i == 0) {
            common = std::move(branch);
            continue;
        }
        complete = complete && branch.size() == common.size();
        common.resize(std::min(common.size(), branch.size()));
        for (std::size_t place = 0; place < common.size(); ++place)
            common[place] = widened(common[place] | branch[place]);
        if (common.empty())
            return false;
    }
    places.insert(places.end(), common.begin(), common.end());
    return complete;
}

bool Prefix::collectRepeat(const Node& node, std::vector<UnitSet>& places)
{
    for (int turn = 0; turn < node.min; ++turn) {
        const std::size_t before = places.size();
        if (!collect(node.children[0], places))
            return false;
        if (places.size() == before)
            break;
    }
    return node.min == node.max;
}

// ---- which of them to search for

/// How often a unit stands in texts of our kind, about, in ten thousand.
int frequencyOf(char16_t unit)
{
    // Letters by their share in English prose.
    static constexpr int kLetters[] = {500, 90,  170, 260, 760, 130, 120, 340, 420,
                                       10,  50,  240, 150, 420, 450, 120, 10,  360,
                                       380, 540, 170, 60,  140, 10,  120, 10};
    if (unit >= u'a' && unit <= u'z')
        return kLetters[unit - u'a'];
    if (unit == u' ')
        return 1500;
    if (unit == u'\n' || unit == u'\r')
        return 200;
    if (unit < 0x80)
        return 60;
    const bool kana = unit >= 0x3041 && unit <= 0x30FF;
    return kana ? 150 : 10;
}

int frequencyOf(const UnitSet& set)
{
    int sum = 0;
    for (const UnitRange& range : set.getRanges())
        for (int unit = range.first; unit <= range.last && sum < 10000; ++unit)
            sum += frequencyOf(static_cast<char16_t>(unit));
    return std::min(sum, 10000);
}

Probe::Place placeOf(const std::vector<UnitSet>& places, std::size_t offset)
{
    Probe::Place place;
    place.offset = static_cast<int>(offset);
    for (const UnitRange& range : places[offset].getRanges())
        for (int unit = range.first; unit <= range.last; ++unit)
            place.units[place.count++] = static_cast<char16_t>(unit);
    return place;
}

/// The two rarest places; none when the first units alone promise fewer false hits.
std::optional<Probe> chooseProbe(const std::vector<UnitSet>& places, const UnitSet& firstUnits)
{
    struct Candidate
    {
        int frequency;
        std::size_t offset;
    };
    std::vector<Candidate> candidates;
    for (std::size_t offset = 0; offset < places.size(); ++offset) {
        const int units = places[offset].count();
        if (units > 0 && units <= static_cast<int>(Probe::kMostUnits))
            candidates.push_back({frequencyOf(places[offset]), offset});
    }
    if (candidates.empty())
        return std::nullopt;
    std::stable_sort(
        candidates.begin(), candidates.end(),
        [](const Candidate& a, const Candidate& b) { return a.frequency < b.frequency; });
    const Candidate& rare = candidates[0];
    const Candidate& second = candidates[candidates.size() > 1 ? 1 : 0];
    if (candidates.size() == 1 && rare.frequency >= frequencyOf(firstUnits))
        return std::nullopt;
    Probe probe;
    probe.first = placeOf(places, std::min(rare.offset, second.offset));
    probe.second = placeOf(places, std::max(rare.offset, second.offset));
    probe.length = probe.second.offset + 1;
    return probe;
}

// ---- what the code begins with

/// Units that an instruction takes, if it always takes as many and goes on to the next.
std::optional<int> unitsOf(const Instruction& instruction)
{
    switch (instruction.op) {
    case Op::Save:
    case Op::TextBegin:
    case Op::LineBegin:
    case Op::LastLineEnd:
    case Op::LineEnd:
    case Op::TextEnd:
    case Op::WordBoundary:
    case Op::NoWordBoundary:
    case Op::PeekSet:
    case Op::PeekSetBack:
    case Op::PeekNotSet:
    case Op::PeekNotSetBack:
        return 0;
    case Op::Unit:
    case Op::Pair:
    case Op::Set:
        return 1;
    case Op::Text:
        return static_cast<int>(instruction.b);
    default:
        return std::nullopt;
    }
}

void planLeadingRun(const Program& program, StartPlan& plan)
{
    int taken = 0;
    auto at = program.code.begin();
    for (; const std::optional<int> units = unitsOf(*at); ++at)
        taken += *units;
    if (at->op != Op::RunGreedy && at->op != Op::RunReluctant && at->op != Op::RunPossessive)
        return;
    plan.leadingStretch = program.runs[at->a].stretch;
    plan.leadingUnits = taken;
}

StartPlan::Kind kindOf(const Program& program, const UnitSet& firstUnits)
{
    const auto first = std::find_if(program.code.begin(), program.code.end(),
                                    [](const Instruction& i) { return i.op != Op::Save; });
    switch (first->op) {
    case Op::TextBegin:
        return StartPlan::Kind::TextBegin;
    case Op::SearchStart:
        return StartPlan::Kind::SearchStart;
    case Op::LineBegin:
        return StartPlan::Kind::LineBegin;
    case Op::WordBoundary:
        if (program.minLength > 0 && (firstUnits & wordUnits().complement()).isEmpty())
            return StartPlan::Kind::WordBegin;
        break;
    default:
        break;
    }
    return firstUnits.isAll() ? StartPlan::Kind::Everywhere : StartPlan::Kind::FirstUnit;
}

} // namespace

StartPlan planStart(const Pattern& pattern, const Program& program, const UnitSet& firstUnits,
                    std::uint32_t firstUnitsTable)
{
    StartPlan plan;
    plan.firstUnits = firstUnitsTable;
    if (program.direction == Direction::Backward) {
        if (!firstUnits.isAll())
            plan.kind = StartPlan::Kind::FirstUnit;
        return plan;
    }
    planLeadingRun(program, plan);
    plan.kind = kindOf(program, firstUnits);
    if (plan.kind == StartPlan::Kind::TextBegin || plan.kind == StartPlan::Kind::SearchStart)
        return plan;
    if (const std::optional<Probe> probe = chooseProbe(Prefix(pattern).collect(), firstUnits)) {
        plan.kind = StartPlan::Kind::Probe;
        plan.probe = *probe;
    }
    return plan;
}

// ---- searching

namespace {

using Place = Probe::Place;

bool stands(const Place& place, const char16_t* start)
{
    const char16_t unit = start[place.offset];
    return std::find(place.units.begin(), place.units.begin() + place.count, unit) !=
           place.units.begin() + place.count;
}

template <std::size_t kFirst, std::size_t kSecond>
const char16_t* findLanes(const Probe& probe, const char16_t* from, const char16_t* end)
{
    vector::Units firsts[kFirst];
    vector::Units seconds[kSecond];
    for (std::size_t i = 0; i < kFirst; ++i)
        firsts[i] = vector::repeat(probe.first.units[i]);
    for (std::size_t i = 0; i < kSecond; ++i)
        seconds[i] = vector::repeat(probe.second.units[i]);
    for (; end - from >= probe.length - 1 + vector::kLanes; from += vector::kLanes) {
        const vector::Units a = vector::load(from + probe.first.offset);
        const vector::Units b = vector::load(from + probe.second.offset);
        vector::Units first = vector::isEqual(a, firsts[0]);
        for (std::size_t i = 1; i < kFirst; ++i)
            first = vector::either(first, vector::isEqual(a, firsts[i]));
        vector::Units second = vector::isEqual(b, seconds[0]);
        for (std::size_t i = 1; i < kSecond; ++i)
            second = vector::either(second, vector::isEqual(b, seconds[i]));
        if (const unsigned lanes = vector::lanesOf(vector::both(first, second)))
            return from + vector::firstLane(lanes);
    }
    return probe.findPlain(from, end);
}

using FindLanes = const char16_t* (*)(const Probe&, const char16_t*, const char16_t*);

template <std::size_t... kPairs>
constexpr std::array<FindLanes, sizeof...(kPairs)> makeFindLanes(std::index_sequence<kPairs...>)
{
    return {&findLanes<kPairs / Probe::kMostUnits + 1, kPairs % Probe::kMostUnits + 1>...};
}

constexpr auto kFindLanes =
    makeFindLanes(std::make_index_sequence<Probe::kMostUnits * Probe::kMostUnits>());

} // namespace

const char16_t* Probe::findPlain(const char16_t* from, const char16_t* end) const
{
    for (; end - from >= length; ++from)
        if (stands(first, from) && stands(second, from))
            return from;
    return nullptr;
}

const char16_t* Probe::find(const char16_t* from, const char16_t* end) const
{
    return kFindLanes[(first.count - 1) * kMostUnits + second.count - 1](*this, from, end);
}

} // namespace varn::regexp

#pragma once

#include "Parser/Regexp/Facts.h"
#include "Parser/Regexp/Pattern.h"

#include <functional>
#include <optional>
#include <vector>

namespace varn::test {

/// What the engine is held to: a matcher over the pattern's tree that is too plain to be wrong in
/// the same way. Continuations on the native stack, no analysis, no memory; for small patterns and
/// texts.
class NaiveMatcher
{
  public:
    /// Start and end by group, -1 where it took no part; the match itself is group 0.
    using Groups = std::vector<std::pair<int, int>>;

    /// Thrown when a match takes too many steps or too deep a stack to be worth waiting for.
    struct TooMuch
    {};

    NaiveMatcher(const regexp::Pattern& pattern, WStringView text, regexp::Direction direction)
        : pattern(pattern), text(text), direction(direction)
    {}

    /// All matches, in the order found.
    std::vector<Groups> matchAll()
    {
        const int length = static_cast<int>(text.size());
        const int step = direction == regexp::Direction::Forward ? 1 : -1;
        std::vector<Groups> matches;
        for (int index = step > 0 ? 0 : length; index >= 0 && index <= length;) {
            searchStart = index;
            std::optional<State> found;
            int start = index;
            for (; start >= 0 && start <= length && !found; start += step)
                found = matchAt(start);
            if (!found)
                break;
            start -= step;
            found->groups[0] = std::minmax(start, found->pos);
            matches.push_back(found->groups);
            index = found->pos == start ? found->pos + step : found->pos;
        }
        return matches;
    }

  private:
    struct Call
    {
        int group;
        regexp::Direction direction;
        int pos;
        const Call* outer;
    };
    struct State
    {
        int pos;
        Groups groups;
        const Call* call = nullptr;
    };
    using Next = std::function<bool(const State&)>;

    std::optional<State> matchAt(int start)
    {
        State state{start, Groups(pattern.groups.size(), {-1, -1})};
        return first(pattern.root, state, direction);
    }

    /// The state behind the first way to match a node, if there is one.
    std::optional<State> first(regexp::NodeId id, const State& state, regexp::Direction way)
    {
        std::optional<State> result;
        match(id, state, way, [&](const State& end) {
            result = end;
            return true;
        });
        return result;
    }

    bool match(regexp::NodeId id, const State& state, regexp::Direction way, const Next& next)
    {
        if (++steps > 20000 || ++depth > 2000) {
            depth = 0;
            throw TooMuch{};
        }
        const bool matched = matchNode(pattern.nodes[id], state, way, next);
        --depth;
        return matched;
    }

    bool matchNode(const regexp::Node& node, const State& state, regexp::Direction way,
                   const Next& next)
    {
        using Kind = regexp::NodeKind;
        switch (node.kind) {
        case Kind::Empty:
            return next(state);
        case Kind::Literal:
            return take(state, way, node.text, false, next);
        case Kind::Set: {
            const int place = way == regexp::Direction::Forward ? state.pos : state.pos - 1;
            if (!isUnit(place) || !node.set.has(unit(place)))
                return false;
            State end = state;
            end.pos = way == regexp::Direction::Forward ? state.pos + 1 : state.pos - 1;
            return next(end);
        }
        case Kind::Sequence:
            return matchSequence(node, 0, state, way, next);
        case Kind::Alternation:
            for (const regexp::NodeId child : node.children)
                if (match(child, state, way, next))
                    return true;
            return false;
        case Kind::Repeat:
            return repeat(node, 0, state, way, next);
        case Kind::Group:
            return match(node.children[0], state, way, [&](const State& end) {
                State closed = end;
                closed.groups[static_cast<std::size_t>(node.number)] =
                    std::minmax(state.pos, end.pos);
                return next(closed);
            });
        case Kind::Atomic: {
            const std::optional<State> end = first(node.children[0], state, way);
            return end && next(*end);
        }
        case Kind::Look:
            return look(node, state,
                        [&](const State& end, bool holds) { return holds && next(end); });
        case Kind::Backreference: {
            const auto [start, end] = state.groups[static_cast<std::size_t>(node.number)];
            return start >= 0 && take(state, way,
                                      text.substr(static_cast<std::size_t>(start),
                                                  static_cast<std::size_t>(end - start)),
                                      node.ignoreCase, next);
        }
        case Kind::Call:
            return call(node, state, way, next);
        case Kind::Condition: {
            if (node.number == 0)
                return look(pattern.nodes[node.children[0]], state,
                            [&](const State& end, bool holds) {
                                return match(node.children[holds ? 1 : 2], end, way, next);
                            });
            const bool took = state.groups[static_cast<std::size_t>(node.number)].first >= 0;
            return match(node.children[took ? 0 : 1], state, way, next);
        }
        case Kind::Boundary:
            return holds(node.boundary, state.pos) && next(state);
        }
        return false;
    }

    bool matchSequence(const regexp::Node& node, std::size_t done, const State& state,
                       regexp::Direction way, const Next& next)
    {
        const std::size_t count = node.children.size();
        if (done == count)
            return next(state);
        const std::size_t place = way == regexp::Direction::Forward ? done : count - 1 - done;
        return match(node.children[place], state, way, [&](const State& end) {
            return matchSequence(node, done + 1, end, way, next);
        });
    }

    bool repeat(const regexp::Node& node, int turns, const State& state, regexp::Direction way,
                const Next& next)
    {
        if (node.greed == regexp::Greed::Possessive) {
            regexp::Node greedy = node;
            greedy.greed = regexp::Greed::Greedy;
            std::optional<State> end;
            repeat(greedy, turns, state, way, [&](const State& last) {
                end = last;
                return true;
            });
            return end && next(*end);
        }
        const auto again = [&] {
            return match(node.children[0], state, way, [&](const State& end) {
                // Once there are enough, a turn that takes nothing is the last one.
                return end.pos == state.pos && turns + 1 >= node.min
                           ? next(end)
                           : repeat(node, turns + 1, end, way, next);
            });
        };
        if (turns < node.min)
            return again();
        if (turns >= node.max)
            return next(state);
        return node.greed == regexp::Greed::Greedy ? again() || next(state)
                                                   : next(state) || again();
    }

    bool look(const regexp::Node& node, const State& state,
              const std::function<bool(const State&, bool)>& next)
    {
        const std::optional<State> end =
            first(node.children[0], state,
                  node.behind ? regexp::Direction::Backward : regexp::Direction::Forward);
        if (!end || node.negated)
            return next(state, end.has_value() != node.negated);
        State kept = *end;
        kept.pos = state.pos;
        return next(kept, true);
    }

    bool call(const regexp::Node& node, const State& state, regexp::Direction way, const Next& next)
    {
        for (const Call* outer = state.call; outer && outer->pos == state.pos; outer = outer->outer)
            if (outer->group == node.number && outer->direction == way)
                return false;
        const Call called{node.number, way, state.pos, state.call};
        State inside = state;
        inside.call = &called;
        return match(pattern.groups[static_cast<std::size_t>(node.number)], inside, way,
                     [&](const State& end) {
                         State back = end;
                         back.call = state.call;
                         return next(back);
                     });
    }

    bool take(const State& state, regexp::Direction way, WStringView units, bool ignoreCase,
              const Next& next)
    {
        const int count = static_cast<int>(units.size());
        const int begin = way == regexp::Direction::Forward ? state.pos : state.pos - count;
        if (begin < 0 || begin + count > static_cast<int>(text.size()))
            return false;
        for (int i = 0; i < count; ++i) {
            const regexp::UnitSet wanted = regexp::UnitSet::of(units[static_cast<std::size_t>(i)]);
            if (!(ignoreCase ? wanted.withCaseVariants() : wanted).has(unit(begin + i)))
                return false;
        }
        State end = state;
        end.pos = way == regexp::Direction::Forward ? begin + count : begin;
        return next(end);
    }

    bool holds(regexp::BoundaryKind kind, int pos) const
    {
        using Kind = regexp::BoundaryKind;
        const int length = static_cast<int>(text.size());
        const bool inLineEnd = unitOr(pos - 1) == u'\r' && unitOr(pos) == u'\n';
        const bool lineEnd =
            pos == length || (!inLineEnd && (unit(pos) == u'\n' || unit(pos) == u'\r'));
        switch (kind) {
        case Kind::TextBegin:
            return pos == 0;
        case Kind::TextEnd:
            return pos == length;
        case Kind::LastLineEnd:
            return lineEnd &&
                   (text.substr(static_cast<std::size_t>(pos)) == u"\r\n" || length - pos <= 1);
        case Kind::LineBegin:
            return pos == 0 || unit(pos - 1) == u'\n' || (unit(pos - 1) == u'\r' && !inLineEnd);
        case Kind::LineEnd:
            return lineEnd;
        case Kind::WordBoundary:
        case Kind::NoWordBoundary: {
            const bool boundary =
                regexp::wordUnits().has(unitOr(pos - 1)) != regexp::wordUnits().has(unitOr(pos));
            return boundary == (kind == Kind::WordBoundary);
        }
        case Kind::SearchStart:
            return pos == searchStart;
        }
        return false;
    }

    bool isUnit(int pos) const { return pos >= 0 && pos < static_cast<int>(text.size()); }
    char16_t unit(int pos) const { return text[static_cast<std::size_t>(pos)]; }
    /// A unit that is neither word nor line end where there is none.
    char16_t unitOr(int pos) const { return isUnit(pos) ? unit(pos) : u' '; }

    const regexp::Pattern& pattern;
    WStringView text;
    regexp::Direction direction;
    int searchStart = 0;
    int steps = 0;
    int depth = 0;
};

} // namespace varn::test

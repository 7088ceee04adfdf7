#include "Parser/Regexp/PatternParser.h"

#include "Parser/Regexp/CRegexpT.h"
#include "Parser/Regexp/NodeFactory.h"

#include <algorithm>

namespace varn::regexp {

namespace {

/// What the groups of the whole pattern are; known once it was read to the end.
struct GroupTable
{
    int count = 0;
    std::map<WString, int> numbers; ///< by name
};

/// One reading of a pattern. References may stand before the groups they name, so a pattern with
/// references is read twice: the second time with the groups that the first one found.
class PatternParser
{
  public:
    PatternParser(WStringView text, int flags, const GroupTable* known)
        : reader(text, (flags & CRegexpT::kExtended) != 0), factory(pattern), flags(flags),
          known(known)
    {}

    Pattern parse();
    bool hasReferences() const { return references; }
    const GroupTable& getGroups() const { return found; }

  private:
    /// Counts a level of groups while it lives.
    class Level
    {
      public:
        explicit Level(PatternParser& parser) : parser(parser)
        {
            if (++parser.depth > kDeepestNesting)
                parser.reader.fail(u"The pattern is nested too deeply");
        }
        ~Level() { --parser.depth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

      private:
        PatternParser& parser;
    };

    NodeId parseAlternation();
    std::vector<NodeId> parseBranches();
    NodeId parseSequence();
    NodeId parseAtom();
    NodeId parseEscape();
    NodeId parseQuantifiers(NodeId atom);
    bool parseQuantifier(int& min, int& max);
    bool parseCounts(int& min, int& max);

    NodeId parseGroup();
    NodeId parseGroupBody();
    NodeId parseCapture(const WString& name);
    NodeId parseLook(bool behind, bool negated);
    NodeId parseInlineFlags();
    void closeGroup();

    NodeId parseCondition();
    std::optional<int> parseGroupTest();
    NodeId parseLookTest();

    NodeId parseBackreferenceNumber();
    WString takeReference();
    int resolve(const WString& reference);
    int resolveNumber(const WString& digits);

    NodeId add(Node node) { return factory.add(std::move(node), reader.getPosition()); }
    bool has(CRegexpT::Flag flag) const { return (flags & flag) != 0; }

    PatternReader reader;
    Pattern pattern;
    NodeFactory factory;
    int flags;
    const GroupTable* known; // null in the first reading
    GroupTable found;
    bool references = false;
    int depth = 0;
};

Pattern PatternParser::parse()
{
    pattern.groups.push_back(0);
    pattern.root = parseAlternation();
    if (!reader.atEnd())
        reader.fail(u"There is a ) without its (");
    pattern.groups[0] = pattern.root;
    pattern.groupNumbers = found.numbers;
    return std::move(pattern);
}

// ---- alternatives, sequences, quantifiers

NodeId PatternParser::parseAlternation()
{
    return factory.addAlternation(parseBranches(), reader.getPosition());
}

std::vector<NodeId> PatternParser::parseBranches()
{
    std::vector<NodeId> branches;
    do
        branches.push_back(parseSequence());
    while (reader.acceptOperator(u'|'));
    return branches;
}

NodeId PatternParser::parseSequence()
{
    std::vector<NodeId> items;
    for (;;) {
        reader.skipIgnored();
        if (reader.atEnd() || reader.atOperator(u'|') || reader.atOperator(u')'))
            return factory.addSequence(std::move(items), reader.getPosition());
        const NodeId atom = parseAtom();
        items.push_back(parseQuantifiers(atom));
    }
}

NodeId PatternParser::parseAtom()
{
    const bool multiLine = has(CRegexpT::kMultiLine);
    if (reader.acceptOperator(u'.'))
        return factory.addSet(has(CRegexpT::kSingleLine) ? UnitSet::all()
                                                         : lineEndUnits().complement());
    if (reader.acceptOperator(u'^'))
        return factory.addBoundary(multiLine ? BoundaryKind::LineBegin : BoundaryKind::TextBegin);
    if (reader.acceptOperator(u'$'))
        return factory.addBoundary(multiLine ? BoundaryKind::LineEnd : BoundaryKind::LastLineEnd);
    if (reader.acceptOperator(u'('))
        return parseGroup();
    if (reader.acceptOperator(u'['))
        return factory.addClass(parseClass(reader, has(CRegexpT::kIgnoreCase)));
    if (reader.acceptOperator(u'\\'))
        return parseEscape();
    if (reader.atOperator(u'*') || reader.atOperator(u'+') || reader.atOperator(u'?'))
        reader.fail(u"A quantifier has nothing to repeat");
    const char32_t character = reader.switchCase(reader.takeCodePoint());
    return factory.addCharacter(character, has(CRegexpT::kIgnoreCase));
}

/// Behind the backslash.
NodeId PatternParser::parseEscape()
{
    if (reader.atEnd())
        reader.fail(u"The pattern ends with a backslash");
    if (const UnitSet* set = classOfLetter(reader.peek())) {
        reader.take();
        return factory.addSet(*set);
    }
    if (reader.accept(u'A'))
        return factory.addBoundary(BoundaryKind::TextBegin);
    if (reader.accept(u'Z'))
        return factory.addBoundary(BoundaryKind::LastLineEnd);
    if (reader.accept(u'z'))
        return factory.addBoundary(BoundaryKind::TextEnd);
    if (reader.accept(u'b'))
        return factory.addBoundary(BoundaryKind::WordBoundary);
    if (reader.accept(u'B'))
        return factory.addBoundary(BoundaryKind::NoWordBoundary);
    if (reader.accept(u'G'))
        return has(CRegexpT::kGlobal) ? factory.addBoundary(BoundaryKind::SearchStart)
                                      : factory.addEmpty();
    if (reader.accept(u'k')) {
        const WString reference = takeReference();
        if (reference == u"0")
            reader.fail(u"A back-reference to the whole match can never match");
        return add({.kind = NodeKind::Backreference,
                    .ignoreCase = has(CRegexpT::kIgnoreCase),
                    .number = resolve(reference)});
    }
    if (reader.accept(u'g'))
        return add({.kind = NodeKind::Call, .number = resolve(takeReference())});
    if (isDigit(reader.peek()) && reader.peek() != u'0')
        return parseBackreferenceNumber();
    return factory.addCharacter(reader.takeEscapedCharacter(), has(CRegexpT::kIgnoreCase));
}

NodeId PatternParser::parseQuantifiers(NodeId atom)
{
    for (;;) {
        reader.skipIgnored();
        int min = 0;
        int max = 0;
        if (reader.isQuoting() || !parseQuantifier(min, max))
            return atom;
        if (max < min)
            reader.fail(u"A quantifier's bounds are in the wrong order");
        Greed greed = Greed::Greedy;
        if (reader.accept(u'?'))
            greed = Greed::Reluctant;
        else if (reader.accept(u'+'))
            greed = Greed::Possessive;
        atom = add(
            {.kind = NodeKind::Repeat, .greed = greed, .min = min, .max = max, .children = {atom}});
    }
}

bool PatternParser::parseQuantifier(int& min, int& max)
{
    min = 0;
    max = kUnlimited;
    if (reader.accept(u'*'))
        return true;
    if (reader.accept(u'?')) {
        max = 1;
        return true;
    }
    if (reader.accept(u'+')) {
        min = 1;
        return true;
    }
    return parseCounts(min, max);
}

/// `{m}`, `{m,}`, `{,n}` or `{m,n}`; anything else leaves the brace a literal.
bool PatternParser::parseCounts(int& min, int& max)
{
    const PatternReader before = reader;
    if (!reader.accept(u'{'))
        return false;
    const std::optional<int> low = reader.takeNumber();
    const bool comma = reader.accept(u',');
    const std::optional<int> high = comma ? reader.takeNumber() : low;
    if ((!low && !high) || !reader.accept(u'}')) {
        reader = before;
        return false;
    }
    min = low.value_or(0);
    max = high.value_or(kUnlimited);
    return true;
}

// ---- groups

/// Behind the parenthesis. Flags set within a group end with it.
NodeId PatternParser::parseGroup()
{
    const Level level(*this);
    if (reader.at(u"?i") || reader.at(u"?m") || reader.at(u"?s") || reader.at(u"?x") ||
        reader.at(u"?-"))
        return parseInlineFlags();
    const int flagsBefore = flags;
    const bool extendedBefore = reader.isExtended();
    const NodeId node = parseGroupBody();
    flags = flagsBefore;
    reader.setExtended(extendedBefore);
    return node;
}

NodeId PatternParser::parseGroupBody()
{
    if (!reader.accept(u'?'))
        return parseCapture({});
    if (reader.accept(u'='))
        return parseLook(false, false);
    if (reader.accept(u'!'))
        return parseLook(false, true);
    if (reader.accept(u"<="))
        return parseLook(true, false);
    if (reader.accept(u"<!"))
        return parseLook(true, true);
    if (reader.accept(u'<'))
        return parseCapture(reader.takeName(u'>'));
    if (reader.accept(u'\''))
        return parseCapture(reader.takeName(u'\''));
    if (reader.accept(u'('))
        return parseCondition();
    const bool atomic = reader.accept(u'>');
    if (!atomic && !reader.accept(u':'))
        reader.fail(u"What follows (? is no known kind of group");
    const NodeId child = parseAlternation();
    closeGroup();
    return atomic ? add({.kind = NodeKind::Atomic, .children = {child}}) : child;
}

NodeId PatternParser::parseCapture(const WString& name)
{
    const int number = ++found.count;
    if (!name.empty()) {
        if (isDigit(name[0]))
            reader.fail(u"A group's name begins with a digit");
        if (!found.numbers.emplace(name, number).second)
            reader.fail(u"Two groups have the name " + name);
    }
    pattern.groups.push_back(0);
    const NodeId child = parseAlternation();
    closeGroup();
    const NodeId group = add({.kind = NodeKind::Group, .number = number, .children = {child}});
    pattern.groups[static_cast<std::size_t>(number)] = group;
    return group;
}

NodeId PatternParser::parseLook(bool behind, bool negated)
{
    const NodeId child = parseAlternation();
    closeGroup();
    return add({.kind = NodeKind::Look, .behind = behind, .negated = negated, .children = {child}});
}

/// `(?im-sx)` for the rest of the enclosing group, `(?im-sx:...)` for a group of its own.
NodeId PatternParser::parseInlineFlags()
{
    static constexpr struct
    {
        char16_t letter;
        CRegexpT::Flag flag;
    } kFlags[] = {{u'i', CRegexpT::kIgnoreCase},
                  {u'm', CRegexpT::kMultiLine},
                  {u's', CRegexpT::kSingleLine},
                  {u'x', CRegexpT::kExtended}};
    const int flagsBefore = flags;
    const bool extendedBefore = reader.isExtended();
    reader.accept(u'?');
    bool on = true;
    for (;;) {
        if (on && reader.accept(u'-'))
            on = false;
        const auto* row = std::find_if(std::begin(kFlags), std::end(kFlags),
                                       [&](const auto& row) { return reader.accept(row.letter); });
        if (row == std::end(kFlags))
            break;
        flags = on ? flags | row->flag : flags & ~row->flag;
    }
    reader.setExtended(has(CRegexpT::kExtended));
    if (reader.accept(u')'))
        return factory.addEmpty();
    if (!reader.accept(u':'))
        reader.fail(u"What follows (? is no known kind of group");
    const NodeId child = parseAlternation();
    closeGroup();
    flags = flagsBefore;
    reader.setExtended(extendedBefore);
    return child;
}

void PatternParser::closeGroup()
{
    if (!reader.acceptOperator(u')'))
        reader.fail(u"A group is not closed");
}

// ---- conditions and references

/// Behind the second parenthesis of `(?(`.
NodeId PatternParser::parseCondition()
{
    Node node{.kind = NodeKind::Condition};
    if (const std::optional<int> number = parseGroupTest()) {
        if (known && *number == 0)
            reader.fail(u"The whole match is no condition"); // it has not ended yet
        node.number = *number;
    } else {
        node.children.push_back(parseLookTest());
    }
    std::vector<NodeId> branches = parseBranches();
    if (branches.size() > 2)
        reader.fail(u"A condition has more than two branches");
    if (branches.size() == 1)
        branches.push_back(factory.addEmpty());
    closeGroup();
    node.children.insert(node.children.end(), branches.begin(), branches.end());
    return add(std::move(node));
}

/// `1)`, `<name>)`, `'name')` or the bare name of a group; anything else is left to be read as a
/// look.
std::optional<int> PatternParser::parseGroupTest()
{
    const PatternReader before = reader;
    if (reader.accept(u'<') || reader.accept(u'\'')) {
        const WString name = reader.takeName(before.peek() == u'<' ? u'>' : u'\'');
        closeGroup();
        return resolve(name);
    }
    WString name;
    while (!reader.atEnd() &&
           (isLetter(reader.peek()) || isDigit(reader.peek()) || reader.peek() == u'_'))
        name += reader.take();
    if (!name.empty() && reader.accept(u')')) {
        references = true;
        // In the first reading either guess leads to the same groups.
        if (isDigit(name[0]) || (known && known->numbers.contains(name)))
            return resolve(name);
    }
    reader = before;
    return std::nullopt;
}

/// `?=...)` and its like, or just an expression that is looked for ahead.
NodeId PatternParser::parseLookTest()
{
    const Level level(*this);
    if (!reader.at(u"?"))
        return parseLook(false, false);
    const NodeId look = parseGroupBody();
    if (pattern.nodes[look].kind != NodeKind::Look)
        reader.fail(u"A condition is neither a group nor an assertion");
    return look;
}

/// The longest number that is a group; digits behind it are literals.
NodeId PatternParser::parseBackreferenceNumber()
{
    references = true;
    const int count = known ? known->count : kUnlimited;
    std::int64_t number = reader.take() - u'0';
    while (!reader.atEnd() && isDigit(reader.peek()) &&
           number * 10 + (reader.peek() - u'0') <= count)
        number = number * 10 + (reader.take() - u'0');
    if (number > count)
        reader.fail(u"There is no group " + toDecimal(number));
    return add({.kind = NodeKind::Backreference,
                .ignoreCase = has(CRegexpT::kIgnoreCase),
                .number = static_cast<int>(number)});
}

/// `<name>`, `'name'` or `{name}`; the name may be a number.
WString PatternParser::takeReference()
{
    if (reader.accept(u'<'))
        return reader.takeName(u'>');
    if (reader.accept(u'\''))
        return reader.takeName(u'\'');
    if (reader.accept(u'{'))
        return reader.takeName(u'}');
    reader.fail(u"A reference is not followed by <name>");
}

/// The number of the group that a reference means; 0 in the first reading.
int PatternParser::resolve(const WString& reference)
{
    references = true;
    if (!known)
        return 0;
    if (isDigit(reference[0]))
        return resolveNumber(reference);
    const auto group = known->numbers.find(reference);
    if (group == known->numbers.end())
        reader.fail(u"There is no group " + reference);
    return group->second;
}

int PatternParser::resolveNumber(const WString& digits)
{
    PatternReader number(digits, false);
    const int group = *number.takeNumber();
    if (!number.atEnd() || group > known->count)
        reader.fail(u"There is no group " + digits);
    return group;
}

} // namespace

Pattern parsePattern(WStringView text, int flags)
{
    if (text.size() > kLongestPattern)
        throw PatternException(u"The pattern is too long", kLongestPattern);
    PatternParser first(text, flags, nullptr);
    Pattern pattern = first.parse();
    if (!first.hasReferences())
        return pattern;
    return PatternParser(text, flags, &first.getGroups()).parse();
}

} // namespace varn::regexp

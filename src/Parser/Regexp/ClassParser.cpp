#include "Parser/Regexp/ClassParser.h"

#include "Parser/Regexp/PatternParser.h"

#include <algorithm>

namespace varn::regexp {

namespace {

struct NamedClass
{
    WStringView name;
    UnitSet units;
};

/// The POSIX classes in the POSIX locale, and `word`.
const NamedClass* findNamedClass(WStringView name)
{
    static const NamedClass kClasses[] = {
        {u"alnum", {{u'0', u'9'}, {u'A', u'Z'}, {u'a', u'z'}}},
        {u"alpha", {{u'A', u'Z'}, {u'a', u'z'}}},
        {u"blank", {{u'\t', u'\t'}, {u' ', u' '}}},
        {u"cntrl", {{0, 31}, {127, 127}}},
        {u"digit", {{u'0', u'9'}}},
        {u"graph", {{33, 126}}},
        {u"lower", {{u'a', u'z'}}},
        {u"print", {{32, 126}}},
        {u"punct", {{33, 47}, {58, 64}, {91, 96}, {123, 126}}},
        {u"space", {{9, 13}, {u' ', u' '}}},
        {u"upper", {{u'A', u'Z'}}},
        {u"word", wordUnits()},
        {u"xdigit", {{u'0', u'9'}, {u'A', u'F'}, {u'a', u'f'}}},
    };
    const auto* found = std::find_if(std::begin(kClasses), std::end(kClasses),
                                     [&](const NamedClass& row) { return row.name == name; });
    return found == std::end(kClasses) ? nullptr : found;
}

/// Thrown where a class runs into the end of the pattern: the reading with nested classes was
/// wrong.
struct Unclosed
{};

class ClassReading
{
  public:
    ClassReading(PatternReader& reader, bool ignoreCase, bool nesting)
        : reader(reader), ignoreCase(ignoreCase), nesting(nesting)
    {}

    ClassContents parse(int depth);

  private:
    struct Item
    {
        std::vector<UnitRange> units;
        std::vector<CodePointRange> beyond;

        void add(const UnitSet& set)
        {
            units.insert(units.end(), set.getRanges().begin(), set.getRanges().end());
        }
        void add(char32_t first, char32_t last);
    };

    void parseItem(Item& item, int depth);
    bool parseNamed(Item& item);
    bool parseEscapedSet(Item& item);
    char32_t takeCharacter();
    bool atRange() const;

    PatternReader& reader;
    bool ignoreCase;
    bool nesting;
};

void ClassReading::Item::add(char32_t first, char32_t last)
{
    if (first <= 0xFFFF)
        units.push_back({static_cast<char16_t>(first),
                         static_cast<char16_t>(std::min<char32_t>(last, 0xFFFF))});
    if (last > 0xFFFF)
        beyond.push_back({std::max<char32_t>(first, 0x10000), last});
}

ClassContents ClassReading::parse(int depth)
{
    if (depth > kDeepestNesting)
        reader.fail(u"The pattern is nested too deeply");
    ClassContents contents;
    contents.negated = reader.accept(u'^');
    Item item;
    for (bool first = true;; first = false) {
        reader.skipSwitches();
        if (reader.atEnd())
            throw Unclosed{};
        if (!first && reader.acceptOperator(u']'))
            break;
        parseItem(item, depth);
    }
    contents.units = UnitSet(std::move(item.units));
    if (ignoreCase)
        contents.units = contents.units.withCaseVariants();
    if (contents.negated)
        contents.units = contents.units.complement();
    contents.beyond = std::move(item.beyond);
    return contents;
}

void ClassReading::parseItem(Item& item, int depth)
{
    if (reader.atOperator(u'[')) {
        if (parseNamed(item))
            return;
        if (nesting) {
            reader.take();
            const ClassContents inner = parse(depth + 1);
            item.add(inner.units);
            // What a negated class leaves out beyond the basic plane is no set of units.
            if (!inner.negated)
                item.beyond.insert(item.beyond.end(), inner.beyond.begin(), inner.beyond.end());
            return;
        }
    }
    if (parseEscapedSet(item))
        return;
    const char32_t first = takeCharacter();
    reader.skipSwitches();
    if (!atRange()) {
        item.add(first, first);
        return;
    }
    reader.take();
    reader.skipSwitches();
    const char32_t last = takeCharacter();
    if (last < first)
        reader.fail(u"A range of characters ends before it begins");
    item.add(first, last);
}

/// `[:name:]` and `[:^name:]`.
bool ClassReading::parseNamed(Item& item)
{
    const PatternReader before = reader;
    reader.take();
    if (reader.accept(u':')) {
        const bool negated = reader.accept(u'^');
        WString name;
        while (!reader.atEnd() && reader.peek() >= u'a' && reader.peek() <= u'z')
            name += reader.take();
        if (reader.accept(u":]")) {
            const NamedClass* named = findNamedClass(name);
            if (!named)
                reader.fail(u"There is no class [:" + name + u":]");
            const UnitSet units = ignoreCase ? named->units.withCaseVariants() : named->units;
            item.add(negated ? units.complement() : units);
            return true;
        }
    }
    reader = before;
    return false;
}

bool ClassReading::parseEscapedSet(Item& item)
{
    if (!reader.atOperator(u'\\'))
        return false;
    const PatternReader before = reader;
    reader.take();
    if (reader.atEnd())
        throw Unclosed{};
    const UnitSet* set = classOfLetter(reader.peek());
    if (!set) {
        reader = before;
        return false;
    }
    reader.take();
    item.add(*set);
    return true;
}

char32_t ClassReading::takeCharacter()
{
    if (reader.atEnd())
        throw Unclosed{};
    if (!reader.acceptOperator(u'\\'))
        return reader.switchCase(reader.takeCodePoint());
    if (reader.atEnd())
        throw Unclosed{};
    return reader.accept(u'b') ? U'\b' : reader.takeEscapedCharacter();
}

/// A hyphen between two characters; before a set or the class's end it is a literal.
bool ClassReading::atRange() const
{
    if (!reader.atOperator(u'-'))
        return false;
    PatternReader ahead = reader;
    ahead.take();
    ahead.skipSwitches();
    if (ahead.atEnd() || ahead.atOperator(u']'))
        return false;
    if (ahead.isQuoting())
        return true;
    if (ahead.peek() == u'[')
        return !nesting && !ahead.at(u"[:");
    if (!ahead.accept(u'\\'))
        return true;
    return ahead.atEnd() || !classOfLetter(ahead.peek());
}

} // namespace

ClassContents parseClass(PatternReader& reader, bool ignoreCase)
{
    const PatternReader before = reader;
    try {
        if (reader.nestsClasses())
            return ClassReading(reader, ignoreCase, true).parse(0);
    } catch (const Unclosed&) {
        reader = before;
        reader.setNestsClasses(false);
    }
    try {
        return ClassReading(reader, ignoreCase, false).parse(0);
    } catch (const Unclosed&) {
        reader.fail(u"A class is not closed");
    }
}

const UnitSet* classOfLetter(char16_t letter)
{
    static const UnitSet digits{{u'0', u'9'}};
    static const UnitSet spaces{{9, 13}, {u' ', u' '}};
    static const UnitSet noDigits = digits.complement();
    static const UnitSet noSpaces = spaces.complement();
    static const UnitSet noWords = wordUnits().complement();
    switch (letter) {
    case u'd':
        return &digits;
    case u'D':
        return &noDigits;
    case u's':
        return &spaces;
    case u'S':
        return &noSpaces;
    case u'w':
        return &wordUnits();
    case u'W':
        return &noWords;
    default:
        return nullptr;
    }
}

} // namespace varn::regexp

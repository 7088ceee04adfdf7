#pragma once

#include "Game/Database/GameRow.h"
#include "Game/Database/RowValues.h"
#include "Util/Bytes.h"

#include <memory>
#include <optional>
#include <span>

namespace varn {

/// How a field is stored and what its text in XML looks like.
enum class Kind : std::uint8_t
{
    Number,     ///< decimal
    Array,      ///< `count` numbers in the row, joined by ","; a shorter text leaves the rest
    List,       ///< any count of numbers, joined by ","
    DiceText,   ///< "count,faces,bonus"
    FixedText,  ///< FixedText of the record: narrow, zero-terminated
    NarrowText, ///< std::string
    WideText,   ///< WString
    CDataTexts, ///< `count` wide texts, each a CDATA child, stored verbatim
    ChildRows,  ///< a list of rows of another class, one child element each
    Custom,     ///< what the table cannot say: a codec
};

enum class NumberType : std::uint8_t
{
    None,
    Byte,
    SignedByte,
    Word,
    SignedWord,
    Long,
    Bool
};

/// What a number becomes when it is written.
enum class NumberForm : std::uint8_t
{
    Plain,
    ZeroOrOne, ///< 1 for all but 0
    OneOnly,   ///< 1 for 1, else 0
};

/// When a field is written at all.
struct WrittenRule
{
    WStringView words; ///< behind "written where", for the format page
    bool (*holds)(const GameRow&);
};

/// What the numbers of a field say about another table.
enum class Refers : std::uint8_t
{
    Row,   ///< each number is a row
    Bits,  ///< bit n is row n
    Index, ///< the entry's index is a row
};

/// An older spelling of a field and its rank against the key.
struct OlderKey
{
    enum Rank : std::uint8_t
    {
        Wins,   ///< read instead of the key where the attribute `when` exists
        Yields, ///< read only where the key is missing
        Only,   ///< the only spelling read: what is written under the key does not come back
    };
    WStringView key;
    WStringView when;
    Rank rank = Wins;
};

struct FieldTable;

/// Which child elements are the entries of a list of child rows.
enum class Entries : std::uint8_t
{
    InContainer, ///< all children of the child element that the field's key names
    ByElement,   ///< the children with the child rows' element name
    ByAttribute, ///< the children that carry the child rows' first key, whatever their name
};

/// The list behind a field of kind ChildRows.
struct ChildRows
{
    const FieldTable& (*table)();
    Entries entries;
    std::size_t (*size)(const GameRow&);
    GameRow& (*at)(GameRow&, std::size_t);
    /// The entry that the child is read into; throws Exception for a child that is no entry.
    GameRow& (*append)(GameRow&, const Element& child);
    void (*clear)(GameRow&);
    bool fixed = false; ///< which entries there are is not for a person to say
};

/// The texts that a codec keeps, in the order they are edited in.
struct CodedTexts
{
    std::span<const WStringView> labels; ///< of each text
    WString (*get)(const GameRow&, std::size_t index);
    void (*set)(GameRow&, std::size_t index, WStringView text);
};

/// Reads and writes what a field table cannot say: children with a form of their own.
struct Codec
{
    void (*read)(GameRow&, const Element&, Faults&);
    void (*write)(const GameRow&, Element&);
    WStringView form;                  ///< one line on the element form, for the format page
    const CodedTexts* texts = nullptr; ///< null: nothing that a person edits
};

/// How a person edits a value, where kind and width do not tell.
enum class Control : std::uint8_t
{
    Plain,
    YesNo,   ///< 0 or not
    Percent, ///< a number with its unit
    Colour,  ///< a colour reference
};

/// One field of a row class: one description for the XML reader and writer, the `.dat` record, the
/// controls of its dialog, getters by key, comma-separated export and the search for uses of a row.
struct Field
{
    WStringView key;       ///< of the attribute
    WStringView label;     ///< what people see
    WStringView note = {}; ///< what its numbers or text mean, where label and table do not tell
    Kind kind = Kind::Custom;
    NumberType number = NumberType::None;
    NumberForm form = NumberForm::Plain;
    std::uint16_t count = 1; ///< entries of an array, CDATA texts, bytes of a fixed text's room
    static constexpr std::int8_t kAttribute = -1;
    /// The text stands in the child element with this position, of any name, and is written as one
    /// named by the key; kAttribute: it stands in an attribute.
    std::int8_t child = kAttribute;
    std::uint16_t limit = 0;              ///< bytes a fixed text can take, its terminator included
    std::int32_t fallback = 0;            ///< what a missing attribute reads as
    void* (*place)(GameRow&) = nullptr;   ///< the stored value; null for children
    const WrittenRule* written = nullptr; ///< null: always
    OlderKey older = {};
    WStringView refersTo = {}; ///< tag of a table, "States"; empty: the number refers to nothing
    Refers refers = Refers::Row;
    WStringView (*refersToOf)(const GameRow&) = nullptr; ///< where the table depends on the row
    /// Labels of the values 0, 1, ..., of an array's entries, or of the bits.
    std::span<const WStringView> choices = {};
    Control control = Control::Plain;
    bool besideLast = false; ///< a list that runs entry by entry with the field before it
    const ChildRows* children = nullptr;
    const Codec* codec = nullptr;

    // Each gives the field with one thing changed, so a row of a table reads as a sentence.
    constexpr Field orElse(std::int32_t value) const
    {
        Field field = *this;
        field.fallback = value;
        return field;
    }
    constexpr Field as(NumberForm next) const
    {
        Field field = *this;
        field.form = next;
        return field;
    }
    constexpr Field when(const WrittenRule& rule) const
    {
        Field field = *this;
        field.written = &rule;
        return field;
    }
    /// Older spelling `key`, read instead where the attribute `test` (by default itself) exists.
    constexpr Field olderWins(WStringView key, WStringView test = {}) const
    {
        Field field = *this;
        field.older = {key, test.empty() ? key : test, OlderKey::Wins};
        return field;
    }
    constexpr Field olderYields(WStringView key) const
    {
        Field field = *this;
        field.older = {key, key, OlderKey::Yields};
        return field;
    }
    constexpr Field readOnlyAs(WStringView key) const
    {
        Field field = *this;
        field.older = {key, key, OlderKey::Only};
        return field;
    }
    constexpr Field to(WStringView tag, Refers how = Refers::Row) const
    {
        Field field = *this;
        field.refersTo = tag;
        field.refers = how;
        return field;
    }
    constexpr Field to(WStringView (*tagOf)(const GameRow&)) const
    {
        Field field = *this;
        field.refersToOf = tagOf;
        return field;
    }
    /// A wide text that is the row's one CDATA child.
    constexpr Field inCData() const
    {
        Field field = *this;
        field.kind = Kind::CDataTexts;
        return field;
    }
    /// Bit n is label n.
    constexpr Field bitsAmong(std::span<const WStringView> labels) const
    {
        Field field = among(labels);
        field.refers = Refers::Bits;
        return field;
    }
    constexpr Field by(Control next) const
    {
        Field field = *this;
        field.control = next;
        return field;
    }
    constexpr Field withLast() const
    {
        Field field = *this;
        field.besideLast = true;
        return field;
    }
    constexpr Field noting(WStringView words) const
    {
        Field field = *this;
        field.note = words;
        return field;
    }
    constexpr Field inChild(std::int8_t position) const
    {
        Field field = *this;
        field.child = position;
        return field;
    }
    constexpr Field among(std::span<const WStringView> labels) const
    {
        Field field = *this;
        field.choices = labels;
        return field;
    }
};

/// A row class as data.
struct FieldTable
{
    WStringView className;         ///< "StateModel"
    WStringView element;           ///< "data"
    std::span<const Field> fields; ///< in the order of writing
    std::size_t recordSize = 0;    ///< of the `.dat` record; 0: no such form
    std::byte* (*record)(GameRow&) = nullptr;
    bool swapsNames = false; ///< the names are written through the language rule
    bool selfClosing = true; ///< off where the element usually has children
    std::unique_ptr<GameRow> (*make)() = nullptr;
    std::unique_ptr<GameRow> (*clone)(const GameRow&) = nullptr;
    void (*assign)(GameRow& target, const GameRow& source) = nullptr;

    const Field* find(WStringView key) const;

    constexpr FieldTable swappingNames() const
    {
        FieldTable table = *this;
        table.swapsNames = true;
        return table;
    }
    constexpr FieldTable withChildren() const
    {
        FieldTable table = *this;
        table.selfClosing = false;
        return table;
    }
};

// What a field holds, as numbers and as the text of its attribute. These are for readers that walk
// a table at run time; where the class is known, use its getters.

/// Entries of a field: 1, the count of an array, the length of a list or of child rows.
std::size_t entryCount(const GameRow& row, const Field& field);
/// A number of a Number, Array, List or DiceText field; 0 behind the end and for other kinds.
std::int32_t getNumber(const GameRow& row, const Field& field, std::size_t index = 0);
/// Cut to the field's width; ignored behind the end and for other kinds.
void setNumber(GameRow& row, const Field& field, std::int32_t value, std::size_t index = 0);
/// The text of the attribute as it would be written; of CDATA texts the one at `index`. Empty for
/// child rows and codecs.
WString getText(const GameRow& row, const Field& field, std::size_t index = 0);
/// Takes a text as the attribute's reader does.
void setText(GameRow& row, const Field& field, WStringView text, std::size_t index = 0);
/// The field is among what writing this row gives.
bool isWritten(const GameRow& row, const Field& field);
/// Where the field lies in the `.dat` record; nothing outside it.
std::optional<std::size_t> recordOffset(const FieldTable& table, const Field& field);

/// Takes a `.dat` record into a blank row: at most the record's size; the name is cut to its field.
void readRecord(GameRow& row, ByteSpan bytes);

} // namespace varn

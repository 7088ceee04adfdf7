#pragma once

#include "Parser/Element.h"

#include <cstddef>
#include <string>
#include <vector>

namespace varn {

struct FieldTable;

/// Sentences about what a reader refused in a row and left as it was; whoever loads shows them.
using Faults = std::vector<WString>;

/// A row of a table. What it holds is told by its field table, and everything here walks that
/// table; a row class adds its typed getters and setters.
class GameRow
{
  public:
    virtual ~GameRow() = default;
    virtual const FieldTable& getFieldTable() const = 0;

    /// The two names under the language rule: while the second language is active they change
    /// places. A row without names gives empty texts.
    WString getName() const;
    WString getName2() const;
    void setName(WStringView text);
    void setName2(WStringView text);
    /// The name as stored: language 0 gives the first, any other value the second; in the process
    /// code page, with no fallback from one to the other.
    std::string getName(int language) const;

    /// The row's element, unlinked, in `arena`. Names go through the language rule.
    Element* toElement(NodeArena& arena) const;
    /// Takes over an element's fields; what the element lacks takes the field's default. What is
    /// refused stops the reading of this row, or of the child row it stands in, and is told in
    /// `faults`.
    void fromElement(const Element& element, Faults& faults);

    /// Size of the `.dat` record in bytes; 0 for a row class without that form.
    std::size_t getDataSize() const;

  protected:
    GameRow() = default;
    GameRow(const GameRow&) = default;
    GameRow& operator=(const GameRow&) = default;
};

/// The root of the rows that carry their own number.
class BaseDatabaseModel : public GameRow
{
  public:
    std::int32_t getId() const { return id; }
    void setId(std::int32_t value) { id = value; }
    /// Row of the marker table whose colour the dialogs give this row; -1 for none.
    std::int32_t getMarker() const { return marker; }
    void setMarker(std::int32_t value) { marker = value; }

    std::int32_t id = -1;
    std::int32_t marker = -1;
    WString name; ///< empty in a class whose record holds the first name
    WString name2;
};

} // namespace varn

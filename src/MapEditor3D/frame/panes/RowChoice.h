#pragma once

#include "Component/Button.h"
#include "Component/ComboBox.h"
#include "Component/GroupComponent.h"
#include "Game/Database/GameTable.h"

#include <functional>

namespace varn {

/// Chooses a row of a table by number and name. A number that leads nowhere stays as it is and is
/// shown as what it is. Its action is another choice.
class RowChoice final : public GroupComponent
{
  public:
    /// What stands first for the numbers that mean no row. @param english  empty: there is no such
    /// entry
    explicit RowChoice(WStringView noneEnglish = {}, std::int32_t noneNumber = -1)
        : noneEnglish(noneEnglish), noneNumber(noneNumber)
    {}

    /// The table whose rows are offered, borrowed.
    void setTable(const GameTable& next);
    /// Rows before this one are not offered.
    void setFirstRow(std::int32_t row) { firstRow = row; }
    std::int32_t getRow() const;
    void setRow(std::int32_t row);
    /// Fills the list anew, behind a change of the table.
    void refresh();

    /// Opens a row of a table, by the table's tag, in its editor. While nobody set one, the button
    /// beside the list is not shown.
    using Opener = std::function<void(WStringView tag, std::int32_t row)>;
    static void setOpener(Opener opener);

    /// What the label of the choice belongs to.
    ComboBox& getList() { return list; }
    void onCreate() override;
    void setFocus() override { list.setFocus(); }

  protected:
    void applyTexts() override;

  private:
    void fill();
    void showNumbers();

    const GameTable* table = nullptr;
    WString noneEnglish;
    std::int32_t noneNumber;
    std::int32_t firstRow = 0;
    std::vector<std::int32_t> numbers; ///< of the entries
    ComboBox list;
    Button openButton;
};

/// "3  Cloister: scriptorium": how a row is shown where it is referred to.
WString rowText(const GameTable& table, std::int32_t row);

} // namespace varn

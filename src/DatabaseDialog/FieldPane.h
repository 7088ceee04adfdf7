#pragma once

#include "Component/Layout.h"
#include "DatabaseDialog/FieldControl.h"

#include <map>
#include <optional>

namespace varn {

/// The controls of one row, made from its field table. Its action is a change by hand.
class FieldPane : public GroupComponent
{
  public:
    enum class Columns
    {
        One, ///< in the room of another form
        Fit  ///< as many as the fields fill
    };

    explicit FieldPane(const FieldTable& table, Columns columns = Columns::Fit);
    ~FieldPane() override;

    /// Shows a row and keeps it to store into; null: none, and nothing can be edited.
    void show(GameRow* next);
    GameRow* getRow() const { return row; }
    /// Writes what was changed into the row that is shown.
    void store();
    /// The rows of other tables may have changed.
    void refreshChoices();
    /// The control of a field; null: it has none.
    /// @param index  of several texts
    FieldControl* findControl(WStringView key, std::size_t index = 0) const;
    const std::vector<LabelledControl>& getControls() const { return controls; }

    void onCreate() override;

  private:
    struct Place
    {
        std::size_t column;
        Label* label;
    };
    void changed(LabelledControl& changedControl);
    void fitToRow();
    void tellProblem(std::size_t place);

    const FieldTable& table;
    Columns layout;
    GameRow* row = nullptr;
    std::vector<LabelledControl> controls;
    std::vector<std::unique_ptr<GroupComponent>> columnPanes;
    std::vector<FormLayout> forms;
    std::vector<Place> places; ///< of each control
};

} // namespace varn

#pragma once

#include "Component/GroupComponent.h"
#include "DatabaseDialog/RowNames.h"
#include "Game/Database/FieldTable.h"

namespace varn {

/// What edits one value of a row, or lists of it that run side by side. It shows a row and stores
/// into one; a value that nobody touched is stored nowhere, so what a control cannot hold survives.
class FieldControl
{
  public:
    virtual ~FieldControl() = default;

    virtual BaseWindow& getWindow() = 0;
    virtual void show(const GameRow& row) = 0;
    virtual void store(GameRow& row) = 0;
    /// The rows of other tables may have changed.
    virtual void refreshChoices() {}
    /// What is wrong with the value as it stands; empty: nothing is.
    virtual WString findProblem() { return {}; }
    /// How many lines of a form it takes, about.
    virtual int getLines() const { return 1; }

    void onChange(std::function<void()> action) { changed = std::move(action); }

  protected:
    void tellChange()
    {
        if (changed && !quiet)
            changed();
    }
    /// While a row is shown nothing is told.
    bool quiet = false;

  private:
    std::function<void()> changed;
};

/// A control and its label, in the language in force.
struct LabelledControl
{
    WString label;
    const Field* field = nullptr;
    std::unique_ptr<FieldControl> control;
};

/// The controls of a row class, in the order of its fields; lists that run side by side are one.
/// Numbers that a row has by its place, markers and what only a reader knows have none.
std::vector<LabelledControl> makeFieldControls(const FieldTable& table);

} // namespace varn

#pragma once

#include "Component/BaseDataTable.h"
#include "DatabaseDialog/FieldControl.h"

namespace varn {

class FieldPane;

/// Lists of numbers that run side by side, or an array with too many entries for a line: a small
/// table, and below it what edits the entry that is selected.
class ListControl final : public FieldControl
{
  public:
    explicit ListControl(std::vector<const Field*> fields);
    ~ListControl() override;
    BaseWindow& getWindow() override;
    void show(const GameRow& row) override;
    void store(GameRow& row) override;
    void refreshChoices() override;
    int getLines() const override { return 7; }

    std::size_t getEntryCount() const;
    /// As the buttons and the editors do, for who drives the list.
    BaseDataTable& getTable();

  private:
    class Entries;
    std::unique_ptr<Entries> entries;
};

/// A list of rows of another class: a small table, and below it the controls of the selected one.
class ChildRowsControl final : public FieldControl
{
  public:
    explicit ChildRowsControl(const Field& field);
    ~ChildRowsControl() override;
    BaseWindow& getWindow() override;
    void show(const GameRow& row) override;
    void store(GameRow& row) override;
    void refreshChoices() override;
    int getLines() const override;

    BaseDataTable& getTable();
    /// The controls of the selected child row.
    FieldPane& getPane();

  private:
    class Children;
    std::unique_ptr<Children> children;
};

} // namespace varn

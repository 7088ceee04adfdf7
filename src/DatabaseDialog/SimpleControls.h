#pragma once

#include "Component/CheckBox.h"
#include "Component/ColorPicker.h"
#include "Component/ComboBox.h"
#include "Component/Label.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "Component/UpDownTextField.h"
#include "DatabaseDialog/FieldControl.h"

#include <array>
#include <deque>
#include <optional>

namespace varn {

/// The numbers that a field's width can hold.
std::pair<std::int32_t, std::int32_t> rangeOf(const Field& field);

/// A number in a field with arrows.
class NumberControl final : public FieldControl
{
  public:
    explicit NumberControl(const Field& field);
    BaseWindow& getWindow() override { return number; }
    void show(const GameRow& row) override;
    void store(GameRow& row) override;

  private:
    class Number final : public UpDownTextField
    {
      public:
        using UpDownTextField::UpDownTextField;
        WString unit;
        void onCreate() override { setUnit(unit); }
    };
    const Field& field;
    Number number;
    std::int32_t shown = 0;
};

/// Zero or not.
class YesNoControl final : public FieldControl
{
  public:
    explicit YesNoControl(const Field& field);
    BaseWindow& getWindow() override { return box; }
    void show(const GameRow& row) override;
    void store(GameRow& row) override;

  private:
    const Field& field;
    TextCheckBox box;
    bool shown = false;
};

/// One of the labels of a field, or a row of another table. A number that is none of them stands in
/// the list as it is.
class ChoiceControl final : public FieldControl
{
  public:
    explicit ChoiceControl(const Field& field);
    BaseWindow& getWindow() override { return *box; }
    void show(const GameRow& row) override;
    void store(GameRow& row) override;
    void refreshChoices() override;

    /// For lists: chooses from the entries for a value.
    void showValue(std::int32_t value, const GameRow* row);
    std::int32_t getValue() const;

  private:
    void fill(std::int32_t value);

    const Field& field;
    std::unique_ptr<ComboBox> box;
    std::vector<Choice> known;   ///< the field's, without the number that is shown
    std::vector<Choice> choices; ///< those in the list
    std::int32_t shown = 0;
};

class ColourControl final : public FieldControl
{
  public:
    explicit ColourControl(const Field& field);
    BaseWindow& getWindow() override { return picker; }
    void show(const GameRow& row) override;
    void store(GameRow& row) override;

  private:
    const Field& field;
    ColorPicker picker;
    std::int32_t shown = 0;
};

/// A few numbers in a line: dice, or the entries of an array by their labels.
class NumberLineControl final : public FieldControl
{
  public:
    explicit NumberLineControl(const Field& field);
    BaseWindow& getWindow() override { return line; }
    void show(const GameRow& row) override;
    void store(GameRow& row) override;
    int getLines() const override { return field.kind == Kind::DiceText ? 1 : 3; }

  private:
    class Line final : public GroupComponent
    {
      public:
        explicit Line(NumberLineControl& owner) : owner(owner) {}
        void onCreate() override { owner.build(); }

      private:
        NumberLineControl& owner;
    };
    void build();

    const Field& field;
    Line line;
    std::deque<UpDownTextField> numbers;
    std::vector<std::int32_t> shown;
};

/// Bits by labels or by the rows of a table.
class BitsControl final : public FieldControl
{
  public:
    explicit BitsControl(const Field& field);
    ~BitsControl() override;
    BaseWindow& getWindow() override;
    void show(const GameRow& row) override;
    void store(GameRow& row) override;
    void refreshChoices() override;
    int getLines() const override { return 4; }

  private:
    class Bits;
    const Field& field;
    std::unique_ptr<Bits> bits;
    std::uint32_t shown = 0;
};

/// A line of text; of a fixed field no more than its bytes.
class TextControl final : public FieldControl
{
  public:
    explicit TextControl(const Field& field);
    BaseWindow& getWindow() override { return text; }
    void show(const GameRow& row) override;
    void store(GameRow& row) override;
    WString findProblem() override;

  private:
    const Field& field;
    TextField text;
    WString shown;
};

/// A text of lines: one of a field's texts or of its codec's.
class TextAreaControl final : public FieldControl
{
  public:
    TextAreaControl(const Field& field, std::size_t index, int lines);
    BaseWindow& getWindow() override { return text; }
    void show(const GameRow& row) override;
    void store(GameRow& row) override;
    int getLines() const override { return lines; }

  private:
    class Area final : public TextArea
    {
      public:
        bool fixedPitch = false;
        int leastHeight = 0;
        void onCreate() override;
    };
    WString read(const GameRow& row) const;

    const Field& field;
    std::size_t index;
    int lines;
    Area text;
    WString shown;
};

} // namespace varn

#include "DatabaseDialog/SimpleControls.h"

#include "Component/Layout.h"
#include "Component/Translation.h"

#include <algorithm>
#include <limits>

namespace varn {

std::pair<std::int32_t, std::int32_t> rangeOf(const Field& field)
{
    const auto of = []<class T>(T) -> std::pair<std::int32_t, std::int32_t> {
        return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
    };
    switch (field.number) {
    case NumberType::Byte:
        return of(std::uint8_t{});
    case NumberType::SignedByte:
        return of(std::int8_t{});
    case NumberType::Word:
        return of(std::uint16_t{});
    case NumberType::SignedWord:
        return of(std::int16_t{});
    case NumberType::Bool:
        return {0, 1};
    default:
        return of(std::int32_t{});
    }
}

// NumberControl

NumberControl::NumberControl(const Field& field)
    : field(field), number(rangeOf(field).first, rangeOf(field).second)
{
    if (field.control == Control::Percent)
        number.unit = u" %";
    number.onAction([this] { tellChange(); });
}

void NumberControl::show(const GameRow& row)
{
    quiet = true;
    shown = getNumber(row, field);
    number.setValue(shown);
    quiet = false;
}

void NumberControl::store(GameRow& row)
{
    if (number.getValue() != shown)
        setNumber(row, field, shown = number.getValue());
}

// YesNoControl

YesNoControl::YesNoControl(const Field& field) : field(field)
{
    box.onAction([this] { tellChange(); });
}

void YesNoControl::show(const GameRow& row)
{
    shown = getNumber(row, field) != 0;
    box.setChecked(shown);
}

void YesNoControl::store(GameRow& row)
{
    if (box.isChecked() == shown)
        return;
    shown = box.isChecked();
    setNumber(row, field, shown ? 1 : 0);
}

// ChoiceControl

ChoiceControl::ChoiceControl(const Field& field) : field(field)
{
    const bool isLong = field.choices.empty(); // rows of a table are found by typing
    box = isLong ? std::make_unique<ComboBox>() : std::make_unique<ComboBoxLight>();
    box->onAction([this] { tellChange(); });
}

void ChoiceControl::refreshChoices()
{
    known = choicesOf(field, nullptr);
    fill(choices.empty() ? shown : getValue());
}

void ChoiceControl::fill(std::int32_t value)
{
    std::vector<Choice> next = known;
    const bool canBeNone = field.choices.empty() && rangeOf(field).first < 0;
    if (canBeNone)
        next.insert(next.begin(), {-1, translate(u"None")});
    auto place = std::ranges::find(next, value, &Choice::value);
    if (place == next.end()) {
        next.push_back({value, toDecimal(value) + u": ???"});
        place = next.end() - 1;
    }
    const int selected = static_cast<int>(place - next.begin());
    const auto sameText = [](const Choice& a, const Choice& b) {
        return a.value == b.value && a.text == b.text;
    };
    if (box->getItemCount() == 0 || !std::ranges::equal(next, choices, sameText)) {
        choices = std::move(next);
        std::vector<WString> texts;
        for (const Choice& choice : choices)
            texts.push_back(choice.text);
        box->setItems(texts);
    }
    box->setSelectedIndex(selected);
}

void ChoiceControl::showValue(std::int32_t value, const GameRow* row)
{
    if (known.empty() || field.refersToOf)
        known = choicesOf(field, row);
    fill(value);
}

std::int32_t ChoiceControl::getValue() const
{
    const int selected = box->getSelectedIndex();
    const bool isOne = selected >= 0 && static_cast<std::size_t>(selected) < choices.size();
    return isOne ? choices[static_cast<std::size_t>(selected)].value : shown;
}

void ChoiceControl::show(const GameRow& row)
{
    shown = getNumber(row, field);
    showValue(shown, &row);
}

void ChoiceControl::store(GameRow& row)
{
    if (getValue() != shown)
        setNumber(row, field, shown = getValue());
}

// ColourControl

ColourControl::ColourControl(const Field& field) : field(field)
{
    picker.on(kChangeListener, [this](const EventObject&) { tellChange(); });
}

void ColourControl::show(const GameRow& row)
{
    shown = getNumber(row, field);
    picker.setColor(static_cast<std::uint32_t>(shown));
}

void ColourControl::store(GameRow& row)
{
    const auto colour = static_cast<std::int32_t>(picker.getColor());
    if (colour != shown)
        setNumber(row, field, shown = colour);
}

// NumberLineControl

NumberLineControl::NumberLineControl(const Field& field) : field(field), line(*this)
{
    for (std::size_t entry = 0; entry < field.count; ++entry)
        numbers.emplace_back(rangeOf(field).first, rangeOf(field).second).onAction([this] {
            tellChange();
        });
}

void NumberLineControl::build()
{
    const bool isDice = field.kind == Kind::DiceText;
    constexpr WStringView kDiceNames[] = {u"Count of dice", u"Faces", u"Bonus"};
    BoxLayout row(line, BoxLayout::Axis::Row, BoxLayout::Margin::None);
    for (std::size_t entry = 0; entry < numbers.size(); ++entry) {
        if (isDice) {
            constexpr WStringView kBetween[] = {u"", u"d", u"+"};
            if (entry > 0)
                row.add(line.add<Label>(kBetween[entry]));
            row.add(numbers[entry]);
            numbers[entry].setAccessibleName(kDiceNames[entry]);
            continue;
        }
        GroupComponent& cell = line.add<GroupComponent>();
        BoxLayout column(cell, BoxLayout::Axis::Column, BoxLayout::Margin::None);
        const WStringView label =
            entry < field.choices.size() ? field.choices[entry] : WStringView();
        column.add(cell.add<Label>(label)).add(numbers[entry]);
        numbers[entry].setAccessibleName(label);
        row.add(cell);
    }
    row.addStretch();
}

void NumberLineControl::show(const GameRow& row)
{
    quiet = true;
    shown.clear();
    for (std::size_t entry = 0; entry < numbers.size(); ++entry) {
        shown.push_back(getNumber(row, field, entry));
        numbers[entry].setValue(shown.back());
    }
    quiet = false;
}

void NumberLineControl::store(GameRow& row)
{
    for (std::size_t entry = 0; entry < shown.size(); ++entry)
        if (numbers[entry].getValue() != shown[entry])
            setNumber(row, field, shown[entry] = numbers[entry].getValue(), entry);
}

// BitsControl

/// A list of boxes.
class BitsControl::Bits final : public Table
{
  public:
    class Names final : public TableModel
    {
      public:
        std::vector<Choice> choices;
        int getRowCount() const override { return static_cast<int>(choices.size()); }
        int getColumnCount() const override { return 1; }
        WString getValueAt(int row, int) const override
        {
            return choices[static_cast<std::size_t>(row)].text;
        }
    };

    bool create(BaseWindow* parent) override { return Table::create(parent, false, true); }
    void onCreate() override
    {
        Table::onCreate();
        constexpr int kWidth = 160, kRowHeight = 23, kMostRows = 5;
        const int whole = kRowHeight * (names.getRowCount() + 1);
        setMinimumSize(kWidth, std::clamp(whole, 2 * kRowHeight, kMostRows * kRowHeight));
        setMaximumHeight(std::max(whole, 2 * kRowHeight));
        setColumns({{u"", 0}});
        setModel(&names);
    }
    void setNames(std::vector<Choice> next)
    {
        names.choices = std::move(next);
        names.fireTableChanged({TableModelEvent::Changed, -1, -1});
    }
    int countBits() const { return names.getRowCount(); }

  private:
    Names names;
};

BitsControl::BitsControl(const Field& field) : field(field), bits(std::make_unique<Bits>())
{
    BitsControl::refreshChoices();
    bits->onCheck([this] { tellChange(); });
}

BitsControl::~BitsControl() = default;

BaseWindow& BitsControl::getWindow()
{
    return *bits;
}

void BitsControl::refreshChoices()
{
    std::vector<Choice> names = choicesOf(field, nullptr);
    const int width = field.number == NumberType::Byte   ? 8
                      : field.number == NumberType::Word ? 16
                                                         : 32;
    if (names.size() > static_cast<std::size_t>(width))
        names.resize(static_cast<std::size_t>(width));
    bits->setNames(std::move(names));
}

void BitsControl::show(const GameRow& row)
{
    quiet = true;
    shown = static_cast<std::uint32_t>(getNumber(row, field));
    for (int bit = 0; bit < bits->countBits(); ++bit)
        bits->setRowChecked(bit, (shown >> bit & 1) != 0);
    quiet = false;
}

void BitsControl::store(GameRow& row)
{
    std::uint32_t value = shown; // bits without a name stay
    for (int bit = 0; bit < bits->countBits(); ++bit) {
        value &= ~(1U << bit);
        value |= (bits->isRowChecked(bit) ? 1U : 0U) << bit;
    }
    if (value != shown)
        setNumber(row, field, static_cast<std::int32_t>(shown = value));
}

// TextControl

TextControl::TextControl(const Field& field) : field(field)
{
    text.onChange([this] { tellChange(); });
}

void TextControl::show(const GameRow& row)
{
    shown = varn::getText(row, field);
    text.setText(shown);
}

void TextControl::store(GameRow& row)
{
    if (text.getText() == shown)
        return;
    shown = text.getText();
    varn::setText(row, field, shown);
}

WString TextControl::findProblem()
{
    if (field.kind != Kind::FixedText || narrow(text.getText()).size() < field.limit)
        return {};
    return replaceAll(translate(u"Only the first %d bytes are kept."), u"%d",
                      toDecimal(field.limit - 1));
}

// TextAreaControl

void TextAreaControl::Area::onCreate()
{
    if (fixedPitch)
        setFixedPitch();
    constexpr int kLeastWidth = 240;
    setMinimumSize(kLeastWidth, leastHeight);
}

TextAreaControl::TextAreaControl(const Field& field, std::size_t index, int lines)
    : field(field), index(index), lines(lines)
{
    constexpr int kLineHeight = 20;
    text.fixedPitch = field.kind == Kind::CDataTexts;
    text.leastHeight = lines * kLineHeight;
    text.onChange([this] { tellChange(); });
}

WString TextAreaControl::read(const GameRow& row) const
{
    return field.codec ? field.codec->texts->get(row, index) : varn::getText(row, field, index);
}

/// The toolkit's field ends lines its own way. A text keeps the ends it has, LF or CR LF; a new one
/// has CR LF, as everything in a document.
void TextAreaControl::show(const GameRow& row)
{
    quiet = true;
    text.setText(replaceAll(read(row), u"\r\n", u"\n"));
    shown = text.getText();
    quiet = false;
}

void TextAreaControl::store(GameRow& row)
{
    if (text.getText() == shown)
        return;
    shown = text.getText();
    const WString before = read(row);
    const bool hasPlainLf =
        before.find(u'\n') != WString::npos && before.find(u"\r\n") == WString::npos;
    const WString next = hasPlainLf ? shown : replaceAll(shown, u"\n", u"\r\n");
    if (field.codec)
        field.codec->texts->set(row, index, next);
    else
        varn::setText(row, field, next, index);
}

} // namespace varn

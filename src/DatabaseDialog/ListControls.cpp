#include "DatabaseDialog/ListControls.h"

#include "Component/Layout.h"
#include "Component/Translation.h"
#include "DatabaseDialog/FieldPane.h"
#include "DatabaseDialog/SimpleControls.h"
#include "Parser/Element.h"

#include <algorithm>

namespace varn {

namespace {

WString textOfNumber(std::int32_t value, const std::vector<Choice>& choices)
{
    const auto found = std::ranges::find(choices, value, &Choice::value);
    if (value < 0 && !choices.empty())
        return translate(u"None");
    return found == choices.end() ? toDecimal(value) : found->text;
}

} // namespace

// ListControl

/// The entries and what edits the selected one.
class ListControl::Entries final : public BaseDataTable, private TableModel
{
  public:
    Entries(ListControl& owner, std::vector<const Field*> fields)
        : BaseDataTable(fields.front()->kind == Kind::List), owner(owner), lists(std::move(fields)),
          values(lists.size()), shown(lists.size())
    {
        for (const Field* const field : lists)
            editors.push_back(makeEditor(*field));
        refreshChoices();
    }

    bool hasFixedLength() const { return lists.front()->kind != Kind::List; }
    std::size_t count() const { return values.front().size(); }

    void onCreate() override
    {
        BaseDataTable::onCreate();
        std::vector<Table::Column> columns{{u"ID", 48}};
        if (namesEntries())
            columns = {{WString(lists.front()->refersTo), 160}};
        for (const Field* const field : lists)
            columns.push_back({WString(field->label), field == lists.back() ? 0 : 180});
        getTable().setColumns(std::move(columns));
        getTable().setModel(this);
        getTable().setEmptyText(u"Press + to add the first.");
        getToolbar().setVisible(!hasFixedLength());
        editorRow.create(this);
        BoxLayout(*this).add(editorRow);
        BoxLayout row(editorRow, BoxLayout::Axis::Row, BoxLayout::Margin::None);
        for (const auto& editor : editors)
            row.add(editor->getWindow(), 1);
        rowSelected(-1);
    }

    void show(const GameRow& row)
    {
        for (std::size_t list = 0; list < lists.size(); ++list) {
            values[list].clear();
            for (std::size_t entry = 0; entry < entryCount(row, *lists[list]); ++entry)
                values[list].push_back(getNumber(row, *lists[list], entry));
            shown[list] = values[list];
            values[list].resize(std::max(values[list].size(), values.front().size()));
        }
        for (std::vector<std::int32_t>& list : values) // the longest one tells
            list.resize(longest());
        showRows(count() > 0 ? 0 : -1);
    }
    void store(GameRow& row)
    {
        for (std::size_t list = 0; list < lists.size(); ++list) {
            if (values[list] == shown[list] || (!touched && shown[list].size() < count()))
                continue;
            shown[list] = values[list];
            WString text;
            for (const std::int32_t value : values[list]) {
                text += text.empty() ? u"" : u",";
                text += toDecimal(value);
            }
            varn::setText(row, *lists[list], text);
        }
    }
    void refreshChoices()
    {
        names = namesEntries() ? rowChoices(lists.front()->refersTo) : std::vector<Choice>();
        choices.clear();
        for (const Field* const field : lists)
            choices.push_back(field->refers == Refers::Index ? std::vector<Choice>()
                                                             : choicesOf(*field, nullptr));
        for (const auto& editor : editors)
            editor->refreshChoices();
    }
    void takeChoicesOf(const GameRow& row)
    {
        for (std::size_t list = 0; list < lists.size(); ++list)
            if (lists[list]->refersToOf)
                choices[list] = choicesOf(*lists[list], &row);
    }

  protected:
    bool addRow(int row) override
    {
        const auto place = row < 0 ? static_cast<std::ptrdiff_t>(count()) : row + 1;
        for (std::vector<std::int32_t>& list : values)
            list.insert(list.begin() + place, 0);
        return tell();
    }
    void removeRow(int row) override
    {
        for (std::vector<std::int32_t>& list : values)
            list.erase(list.begin() + row);
        tell();
    }
    void swapRows(int first, int second) override
    {
        for (std::vector<std::int32_t>& list : values)
            std::swap(list[static_cast<std::size_t>(first)],
                      list[static_cast<std::size_t>(second)]);
        tell();
    }
    void rowSelected(int row) override
    {
        editorRow.setEnabled(row >= 0);
        for (std::size_t list = 0; row >= 0 && list < lists.size(); ++list)
            editors[list]->show(values[list][static_cast<std::size_t>(row)], choices[list]);
    }

  private:
    /// Edits one number: from a list, or as it is.
    struct Editor
    {
        virtual ~Editor() = default;
        virtual BaseWindow& getWindow() = 0;
        virtual void show(std::int32_t value, const std::vector<Choice>& choices) = 0;
        virtual void refreshChoices() {}
    };
    struct NumberEditor final : Editor
    {
        NumberEditor(Entries& owner, const Field& field)
            : number(rangeOf(field).first, rangeOf(field).second)
        {
            number.onAction([this, &owner, &field] {
                if (!quiet)
                    owner.edited(field, number.getValue());
            });
            number.setAccessibleName(field.label);
        }
        BaseWindow& getWindow() override { return number; }
        void show(std::int32_t value, const std::vector<Choice>&) override
        {
            quiet = true;
            number.setValue(value);
            quiet = false;
        }
        UpDownTextField number;
        bool quiet = false;
    };
    struct ChoiceEditor final : Editor
    {
        ChoiceEditor(Entries& owner, const Field& field)
        {
            box.onAction([this, &owner, &field] {
                const int selected = box.getSelectedIndex();
                if (selected >= 0 && static_cast<std::size_t>(selected) < listed.size())
                    owner.edited(field, listed[static_cast<std::size_t>(selected)].value);
            });
            box.setAccessibleName(field.label);
        }
        BaseWindow& getWindow() override { return box; }
        void show(std::int32_t value, const std::vector<Choice>& choices) override
        {
            std::vector<Choice> next = choices;
            auto place = std::ranges::find(next, value, &Choice::value);
            if (place == next.end()) {
                next.push_back({value, toDecimal(value) + u": ???"});
                place = next.end() - 1;
            }
            const int selected = static_cast<int>(place - next.begin());
            if (isStale || next.size() != listed.size() || listed.back().text != next.back().text) {
                listed = std::move(next);
                std::vector<WString> texts;
                for (const Choice& choice : listed)
                    texts.push_back(choice.text);
                box.setItems(texts);
                isStale = false;
            }
            box.setSelectedIndex(selected);
        }
        void refreshChoices() override { isStale = true; }
        ComboBox box;
        std::vector<Choice> listed;
        bool isStale = true;
    };

    std::unique_ptr<Editor> makeEditor(const Field& field)
    {
        const bool isReference =
            field.refersToOf || (!field.refersTo.empty() && field.refers == Refers::Row);
        if (isReference)
            return std::make_unique<ChoiceEditor>(*this, field);
        return std::make_unique<NumberEditor>(*this, field);
    }
    /// Entries stand for rows of another table.
    bool namesEntries() const { return lists.front()->refers == Refers::Index; }
    std::size_t longest() const
    {
        std::size_t most = 0;
        for (const std::vector<std::int32_t>& list : values)
            most = std::max(most, list.size());
        return most;
    }
    bool tell()
    {
        touched = true;
        owner.tellChange();
        return true;
    }
    void edited(const Field& field, std::int32_t value)
    {
        const int row = getTable().getSelectedRow();
        const auto list =
            static_cast<std::size_t>(std::ranges::find(lists, &field) - lists.begin());
        if (row < 0)
            return;
        values[list][static_cast<std::size_t>(row)] = value;
        fireTableChanged({TableModelEvent::Changed, row, static_cast<int>(list) + 1});
        tell();
    }

    int getRowCount() const override { return static_cast<int>(count()); }
    int getColumnCount() const override { return static_cast<int>(lists.size()) + 1; }
    WString getValueAt(int row, int column) const override
    {
        if (column == 0)
            return namesEntries() ? textOfNumber(row, names) : toDecimal(row);
        const auto list = static_cast<std::size_t>(column - 1);
        return textOfNumber(values[list][static_cast<std::size_t>(row)], choices[list]);
    }

    ListControl& owner;
    std::vector<const Field*> lists;
    std::vector<std::vector<std::int32_t>> values, shown; ///< of each list
    std::vector<std::vector<Choice>> choices;             ///< of each list; none for plain numbers
    std::vector<Choice> names;                            ///< of the entries
    std::vector<std::unique_ptr<Editor>> editors;
    GroupComponent editorRow;
    bool touched = false;
};

ListControl::ListControl(std::vector<const Field*> fields)
    : entries(std::make_unique<Entries>(*this, std::move(fields)))
{}

ListControl::~ListControl() = default;

BaseWindow& ListControl::getWindow()
{
    return *entries;
}

void ListControl::show(const GameRow& row)
{
    quiet = true;
    entries->takeChoicesOf(row);
    entries->show(row);
    quiet = false;
}

void ListControl::store(GameRow& row)
{
    entries->store(row);
}

void ListControl::refreshChoices()
{
    entries->refreshChoices();
}

std::size_t ListControl::getEntryCount() const
{
    return entries->count();
}

BaseDataTable& ListControl::getTable()
{
    return *entries;
}

// ChildRowsControl

/// The child rows of a copy of the row, so that the row changes only when it is stored into.
class ChildRowsControl::Children final : public BaseDataTable, private TableModel
{
  public:
    Children(ChildRowsControl& owner, const Field& field)
        : BaseDataTable(!field.children->fixed), owner(owner), list(*field.children),
          pane(list.table(), FieldPane::Columns::One)
    {
        pane.onAction([this] {
            const int row = getTable().getSelectedRow();
            fireTableChanged({TableModelEvent::Changed, row, -1});
            tell();
        });
    }

    FieldPane& getPane() { return pane; }

    void onCreate() override
    {
        BaseDataTable::onCreate();
        columns.clear();
        std::vector<Table::Column> headers;
        constexpr std::size_t kMostColumns = 3;
        for (const Field& each : list.table().fields) {
            const bool isText = each.kind == Kind::WideText || each.kind == Kind::List;
            if (columns.size() < kMostColumns && (each.kind == Kind::Number || isText) &&
                (each.key != u"id" || !each.refersTo.empty()))
                columns.push_back(&each);
        }
        for (const Field* const each : columns)
            headers.push_back({WString(each->label), each == columns.back() ? 0 : 150});
        getTable().setColumns(std::move(headers));
        getTable().setModel(this);
        getTable().setEmptyText(u"Press + to add the first.");
        getToolbar().setVisible(!list.fixed);
        BoxLayout(*this).add(pane);
    }

    void show(const GameRow& row)
    {
        copy = row.getFieldTable().clone(row);
        touched = false;
        refresh(list.size(*copy) > 0 ? 0 : -1);
    }
    void store(GameRow& row)
    {
        if (!copy || !touched)
            return;
        pane.store();
        replaceBy(row, clones(*copy));
        touched = false;
    }
    void refreshChoices() { pane.refreshChoices(); }

  protected:
    bool addRow(int row) override
    {
        std::vector<std::unique_ptr<GameRow>> rows = clones(*copy);
        std::unique_ptr<GameRow> blank = list.table().make();
        std::int32_t number = 0; // one that no other has
        const Field* const id = list.table().find(u"id");
        if (id && id->refersTo.empty()) {
            for (const auto& each : rows)
                number = std::max(number, getNumber(*each, *id) + 1);
            setNumber(*blank, *id, number);
        }
        rows.insert(row < 0 ? rows.end() : rows.begin() + row + 1, std::move(blank));
        return rewrite(rows);
    }
    void removeRow(int row) override
    {
        std::vector<std::unique_ptr<GameRow>> rows = clones(*copy);
        rows.erase(rows.begin() + row);
        rewrite(rows);
    }
    void swapRows(int first, int second) override
    {
        std::vector<std::unique_ptr<GameRow>> rows = clones(*copy);
        std::swap(rows[static_cast<std::size_t>(first)], rows[static_cast<std::size_t>(second)]);
        rewrite(rows);
    }
    void rowSelected(int row) override
    {
        const bool isOne = copy && row >= 0 && static_cast<std::size_t>(row) < list.size(*copy);
        pane.show(isOne ? &list.at(*copy, static_cast<std::size_t>(row)) : nullptr);
        pane.setVisible(isOne);
    }

  private:
    void refresh(int select)
    {
        pane.show(nullptr);
        showRows(select);
    }
    std::vector<std::unique_ptr<GameRow>> clones(GameRow& row) const
    {
        std::vector<std::unique_ptr<GameRow>> rows;
        for (std::size_t index = 0; index < list.size(row); ++index)
            rows.push_back(list.table().clone(list.at(row, index)));
        return rows;
    }
    void replaceBy(GameRow& row, const std::vector<std::unique_ptr<GameRow>>& rows) const
    {
        if (!list.fixed)
            list.clear(row);
        NodeArena arena;
        for (std::size_t index = 0; index < rows.size(); ++index) {
            GameRow& target =
                list.fixed ? list.at(row, index) : list.append(row, *rows[index]->toElement(arena));
            list.table().assign(target, *rows[index]);
        }
    }
    bool rewrite(const std::vector<std::unique_ptr<GameRow>>& rows)
    {
        pane.show(nullptr); // the rows move
        replaceBy(*copy, rows);
        return tell();
    }
    bool tell()
    {
        touched = true;
        owner.tellChange();
        return true;
    }

    int getRowCount() const override { return copy ? static_cast<int>(list.size(*copy)) : 0; }
    int getColumnCount() const override { return static_cast<int>(columns.size()); }
    WString getValueAt(int row, int column) const override
    {
        const GameRow& child = list.at(*copy, static_cast<std::size_t>(row));
        const Field& shown = *columns[static_cast<std::size_t>(column)];
        const std::vector<Choice> choices = choicesOf(shown, &child);
        if (shown.kind == Kind::WideText)
            return varn::getText(child, shown);
        WString text;
        for (std::size_t entry = 0; entry < entryCount(child, shown); ++entry)
            text += (text.empty() ? u"" : u", ") +
                    textOfNumber(getNumber(child, shown, entry), choices);
        return text;
    }

    ChildRowsControl& owner;
    const ChildRows& list;
    std::unique_ptr<GameRow> copy;
    std::vector<const Field*> columns;
    FieldPane pane;
    bool touched = false;
};

ChildRowsControl::ChildRowsControl(const Field& field)
    : children(std::make_unique<Children>(*this, field))
{}

ChildRowsControl::~ChildRowsControl() = default;

BaseWindow& ChildRowsControl::getWindow()
{
    return *children;
}

void ChildRowsControl::show(const GameRow& row)
{
    quiet = true;
    children->show(row);
    quiet = false;
}

void ChildRowsControl::store(GameRow& row)
{
    children->store(row);
}

void ChildRowsControl::refreshChoices()
{
    children->refreshChoices();
}

int ChildRowsControl::getLines() const
{
    constexpr int kTableLines = 6;
    int lines = kTableLines;
    for (const LabelledControl& each : children->getPane().getControls())
        lines += each.control->getLines();
    return lines;
}

BaseDataTable& ChildRowsControl::getTable()
{
    return *children;
}

FieldPane& ChildRowsControl::getPane()
{
    return children->getPane();
}

} // namespace varn

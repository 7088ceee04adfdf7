#include "DatabaseDialog/StringTableDialog.h"

#include "Component/Translation.h"
#include "Util/Host.h"

#include <algorithm>
#include <set>

namespace varn {

namespace {

constexpr WStringView kFiles[] = {u"Data/StringTable.xml", u"Data/StringTable2.xml"};

WString textOf(const StringTable& table, const WString& key)
{
    const auto found = table.getStrings().find(key);
    return found == table.getStrings().end() ? WString() : found->second;
}

} // namespace

/// Keys with their texts.
class StringTableDialog::Keys final : public TableModel
{
  public:
    explicit Keys(const StringTable (&tables)[2]) : tables(tables)
    {
        std::set<WString> known;
        const auto add = [&](const WString& key) {
            if (!key.empty() && known.insert(key).second)
                keys.push_back(key);
        };
        for (int id = 0; id < kDefaultTextCount; ++id)
            if (getDefaultText(id) != "???")
                add(widen(getDefaultText(id)));
        for (const StringTable& table : tables)
            for (const auto& entry : table.getStrings())
                add(entry.first);
    }

    std::vector<WString> keys;

    int getRowCount() const override { return static_cast<int>(keys.size()); }
    int getColumnCount() const override { return 3; }
    WString getValueAt(int row, int column) const override
    {
        const WString& key = keys[static_cast<std::size_t>(row)];
        return column == 0 ? key : textOf(tables[column - 1], key);
    }

  private:
    const StringTable (&tables)[2];
};

StringTableDialog::StringTableDialog() : Dialog(u"String Table")
{
    for (std::size_t language = 0; language < std::size(tables); ++language) {
        tables[language].load(kFiles[language]);
        before[language] = tables[language].compose();
    }
    keys = std::make_unique<Keys>(tables);
}

StringTableDialog::~StringTableDialog() = default;

void StringTableDialog::build()
{
    constexpr int kWidth = 760, kHeight = 560, kColumn = 230, kTextHeight = 64, kListHeight = 300;
    setInitialSize(kWidth, kHeight);
    BoxLayout column(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    column.add(filter).add(list, 1);
    filter.setPlaceholder(u"Filter");
    filter.setAccessibleName(u"Filter");
    filter.onChange([this] { list.setFilter(filter.getText()); });
    list.setColumns({{u"Text", kColumn}, {u"First Language", kColumn}, {u"Second Language", 0}});
    list.setModel(keys.get());
    list.setSortable(true);
    list.setMinimumSize(0, kListHeight);
    list.setAccessibleName(u"String Table");
    list.onAction([this] { showKey(list.getSelectedRow()); });
    GroupComponent& fields = getPane().add<GroupComponent>();
    column.add(fields);
    FormLayout form(fields, BoxLayout::Margin::None);
    form.addRow(u"&First Language:", texts[0]);
    form.addRow(u"&Second Language:", texts[1]);
    for (TextArea& text : texts) {
        text.setMinimumSize(0, kTextHeight);
        text.onChange([this] { store(); });
    }
    showKey(-1);
    list.selectRow(0);
    showKey(0);
}

void StringTableDialog::selectKey(WStringView key)
{
    const auto found = std::ranges::find(keys->keys, key);
    if (found == keys->keys.end())
        return;
    const int place = static_cast<int>(found - keys->keys.begin());
    list.selectRow(place);
    showKey(place);
}

void StringTableDialog::showKey(int place)
{
    shown.clear(); // showing stores nothing
    const bool isOne = place >= 0 && place < keys->getRowCount();
    for (std::size_t language = 0; language < std::size(texts); ++language) {
        texts[language].setText(isOne ? keys->getValueAt(place, static_cast<int>(language) + 1)
                                      : WString());
        texts[language].setEnabled(isOne);
    }
    if (isOne)
        shown = keys->keys[static_cast<std::size_t>(place)];
}

/// A text that is emptied leaves the table: the default one holds again.
void StringTableDialog::store()
{
    if (shown.empty())
        return;
    for (std::size_t language = 0; language < std::size(texts); ++language) {
        const WString text = texts[language].getText();
        if (text == textOf(tables[language], shown))
            continue;
        if (text.empty())
            tables[language].remove(shown);
        else
            tables[language].set(shown, text);
    }
    const auto place = std::ranges::find(keys->keys, shown) - keys->keys.begin();
    keys->fireTableChanged({TableModelEvent::Changed, static_cast<int>(place), -1});
}

bool StringTableDialog::accept()
{
    store();
    for (std::size_t language = 0; language < std::size(tables); ++language) {
        if (tables[language].compose() == before[language])
            continue;
        if (!tables[language].save(kFiles[language])) {
            host().showMessage(translate(u"Couldn't save ") + WString(kFiles[language]));
            return false;
        }
        before[language] = tables[language].compose();
    }
    loadStringTables();
    return true;
}

} // namespace varn

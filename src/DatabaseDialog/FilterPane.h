#pragma once

#include "Component/ComboBox.h"
#include "Component/GroupComponent.h"
#include "Component/TextArea.h"
#include "DatabaseDialog/RowNames.h"
#include "Game/Database/FieldTable.h"

namespace varn {

/// What narrows a list of rows: a text that their names hold, and one of the filters that their
/// fields give.
class FilterPane : public GroupComponent
{
  public:
    struct Filter
    {
        enum class Kind
        {
            All,
            Configured, ///< has a name
            Value       ///< of a field
        };
        Kind kind = Kind::All;
        const Field* field = nullptr;
        WString text; ///< in the language in force
    };
    /// Told when a filter changes.
    class FilterListener
    {
      public:
        virtual ~FilterListener() = default;
        virtual void filterChanged() = 0;
    };

    explicit FilterPane(const FieldTable& table);

    void setListener(FilterListener* next) { listener = next; }
    void onCreate() override;
    /// @param text  what the list shows of the row
    bool passes(const GameRow& row, WStringView text) const;
    /// Sets what a person would choose.
    void setText(WStringView text) override;
    void chooseFilter(WStringView key, std::int32_t value);
    const std::vector<Filter>& getFilters() const { return filters; }

  private:
    void fillValues();
    void tell();

    FilterListener* listener = nullptr;
    std::vector<Filter> filters;
    std::vector<Choice> values; ///< of the filter that is chosen
    TextField words;
    ComboBoxLight kinds, choices;
};

} // namespace varn

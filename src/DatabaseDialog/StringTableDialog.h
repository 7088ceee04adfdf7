#pragma once

#include "Component/Dialog.h"
#include "Component/Table.h"
#include "Component/TextArea.h"
#include "Game/Database/StringTable.h"

namespace varn {

/// The game's fixed texts in both languages: the default ones by their English wording, and what
/// the project has besides. OK writes the project's two documents where they changed and puts the
/// texts in force.
class StringTableDialog : public Dialog
{
  public:
    StringTableDialog();
    ~StringTableDialog() override;

    void selectKey(WStringView key);
    TextArea& getText(std::size_t language) { return texts[language != 0]; }

  protected:
    void build() override;
    bool accept() override;

  private:
    class Keys;
    void store();
    void showKey(int place);

    StringTable tables[2]; ///< by language
    WString before[2];     ///< as they were loaded
    std::unique_ptr<Keys> keys;
    TextField filter;
    Table list;
    TextArea texts[2];
    WString shown; ///< key
};

} // namespace varn

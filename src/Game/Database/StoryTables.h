#pragma once

#include "Game/Database/GameDataList.h"

namespace varn {

/// A page of text in both languages, in the message markup. Texts are stored verbatim.
class MessageTableData final : public BaseDatabaseModel
{
    WString message[2];

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    /// By language, 0 or 1.
    const WString& getMessage(std::size_t language) const { return message[language != 0]; }
    void setMessage(std::size_t language, WStringView text) { message[language != 0] = text; }
};

class MessageTable final : public GameDataList<MessageTableData, MessageTable>
{
  public:
    static const TableInfo kInfo;
};

/// A script, in the script language.
class ScriptData final : public BaseDatabaseModel
{
    WString script;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Script, script)
};

class ScriptDatabase final : public GameDataList<ScriptData, ScriptDatabase>
{
  public:
    static const TableInfo kInfo;
};

/// A novel, in the message markup.
class NovelScriptData final : public BaseDatabaseModel
{
    WString novel;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Novel, novel)
};

class NovelScriptDatabase final : public GameDataList<NovelScriptData, NovelScriptDatabase>
{
  public:
    static const TableInfo kInfo;
};

/// A formula that classes and skills name by its row.
class FormulaData final : public BaseDatabaseModel
{
    WString formula;

  public:
    static const FieldTable& fieldTable();
    const FieldTable& getFieldTable() const override { return fieldTable(); }

    VARN_FIELD(Formula, formula)
};

class FormulaDatabase final : public GameDataList<FormulaData, FormulaDatabase>
{
  public:
    static const TableInfo kInfo;
};

} // namespace varn

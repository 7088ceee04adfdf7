#pragma once

#include "Game/Database/FieldTable.h"

#include <memory>

namespace varn {

class XMLParser;

/// Where tables lie, relative to the project. The one place to change it.
struct GameDataIO
{
    static constexpr WStringView dataPath = u"Data/";
};

/// The most rows a person can give a table.
inline constexpr std::size_t kMaximumRows = 65535;

/// What is fixed about a table.
struct TableInfo
{
    WStringView className;   ///< "StateDatabase"
    WStringView tagName;     ///< "States"; empty: the document's root, whatever its name
    WStringView fileName;    ///< what callers load: "State.dat", "TrapList.xml"; empty: up to them
    WStringView datName;     ///< "State.dat", empty without that form
    std::size_t minRows = 0; ///< the table's own minimum
    const FieldTable& (*rows)() = nullptr;
};

/// One document of the data folder, with the table or tables in it.
class TableFile
{
  public:
    virtual ~TableFile() = default;

    /// Replaces all rows by those of a file of the data folder and pads with blank rows to
    /// `minRows`.
    ///
    /// A name that contains ".xml" is that document. Of any other name the document of the tag name
    /// is taken if it exists ("States.xml"), else the file itself in the old binary form
    /// ("State.dat"). Faults are shown through `host()`: a refused document (its report), a record
    /// of another size, a row that could be read in part; the rows read so far are kept and padded,
    /// and the result is true. A missing file is an empty one. False: the document has no element
    /// of the tag; the table is then empty.
    virtual bool load(WStringView fileName, std::size_t minRows) = 0;
    /// The same from the document below `root`. False: null, or it has no element of the tag; the
    /// table is then empty. The table has no file name afterwards.
    virtual bool load(const Element* root, std::size_t minRows) = 0;
    /// Replaces `Data/<name>.xml`. False: the file cannot be written (silent), or there is neither
    /// file name nor tag (shown).
    virtual bool save() = 0;

    /// The document as saving would compose it: declaration, root, a row a line, each line ended by
    /// "\r\n".
    WString compose() const;
    /// The same without the declaration and without the last line's end: a part of a larger
    /// document.
    WString composeElement() const;

    /// Rows, of all tables of the document.
    virtual std::size_t size() const = 0;

    /// The last load met a file that could not be read, or a document without this table: saving
    /// now would replace or hide what the person may still repair.
    virtual bool wasRefused() const { return refused; }

  protected:
    /// Loads a document of the data folder; false where it is missing or refused.
    bool readDocument(XMLParser& parser, WStringView fileName);
    /// Root element and rows, each line ended by "\r\n".
    virtual void composeRoot(WString& out) const = 0;
    /// Puts the composed document into the data folder.
    bool writeFile(WStringView fileName) const;

    bool refused = false;
};

/// A table: a list of rows that it owns; a row's position, counted from 0, is its number. The one
/// instance of each known table is reached by its list class (`StateDatabase::instance()`); each
/// load replaces the rows, so keep numbers, never pointers.
class GameTable : public TableFile
{
  public:
    GameTable(const GameTable&) = delete;
    GameTable& operator=(const GameTable&) = delete;

    bool load(WStringView fileName, std::size_t minRows) override;
    bool load(const Element* root, std::size_t minRows) override;
    bool save() override;
    /// Appends the rows of a file of the old binary form: the size of a record in two bytes, then
    /// records to the end, the last of which may be short. Throws Exception for records of another
    /// size and for a table without that form; the rows before it stay.
    void readDat(ByteSpan bytes);

    std::size_t size() const override { return datas.size(); }
    bool empty() const { return datas.empty(); }
    /// Throws std::out_of_range.
    GameRow& rowAt(std::size_t index) { return *datas.at(index); }
    const GameRow& rowAt(std::size_t index) const { return *datas.at(index); }
    /// Null outside the table; for numbers that come from a file.
    GameRow* findRow(std::int64_t index);
    const GameRow* findRow(std::int64_t index) const;
    /// The number of the row with that name in either language, the first language's names first.
    std::optional<std::size_t> findByName(WStringView name) const;

    void append(std::unique_ptr<GameRow> row) { datas.push_back(std::move(row)); }
    /// Appends blank rows until there are `minRows`.
    void pad(std::size_t minRows);
    void appendBlank() { append(newRow()); }
    /// Blank rows are added, or the last rows deleted. Throws Exception "Exception: Too much data"
    /// beyond kMaximumRows; the table then stays as it was.
    void resize(std::size_t count);
    void clear() { datas.clear(); }

    /// The rows in an element of that name, as it stands at a depth of a document; each line ended
    /// by
    /// "\r\n".
    void composeRows(WString& out, WStringView elementName, std::size_t depth) const;

    const TableInfo& getInfo() const { return info; }
    WStringView getTagName() const { return info.tagName; }
    const FieldTable& getFieldTable() const { return info.rows(); }
    /// Name inside the data folder that saving writes: that of the last load, ending in ".xml";
    /// empty when nothing was loaded by name.
    const WString& getFileName() const { return fileName; }

  protected:
    explicit GameTable(const TableInfo& info) : info(info) {}

    void composeRoot(WString& out) const override;
    /// The element that holds the rows; null where the document has none.
    virtual const Element* findTableElement(const Element& root) const;
    /// Runs behind each load.
    virtual void loaded() {}

    std::unique_ptr<GameRow> newRow() const { return getFieldTable().make(); }
    void readRows(const Element& table);

    std::vector<std::unique_ptr<GameRow>> datas;
    WString fileName;

  private:
    bool readXml(std::size_t minRows);
    void loadDat(WStringView datName);
    WString rootName() const;

    const TableInfo& info;
};

} // namespace varn

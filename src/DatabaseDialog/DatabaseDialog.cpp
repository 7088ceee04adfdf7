#include "DatabaseDialog/DatabaseDialog.h"

#include "Component/Translation.h"
#include "Game/Database/TypeDatabase.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <algorithm>

namespace varn {

namespace {

/// The document that a table is saved in.
TableFile& fileOf(GameTable& table)
{
    if (table.getInfo().fileName == TypesFile::kFileName)
        return TypesFile::instance();
    return table;
}

WString documentName(const GameTable& table)
{
    const WString& loaded = table.getFileName();
    return loaded.empty() ? WString(table.getInfo().fileName) : loaded;
}

bool isInProject(const WString& name)
{
    return isFile(WString(GameDataIO::dataPath) + name);
}

} // namespace

DatabaseDialog::DatabaseDialog(WStringView english, std::vector<PageOutline> outlines)
    : Dialog(english), outlines(std::move(outlines))
{
    collectDocuments();
}

DatabaseDialog::~DatabaseDialog() = default;

void DatabaseDialog::collectDocuments()
{
    for (const PageOutline& outline : outlines) {
        TableFile& file = fileOf(*outline.table);
        if (std::ranges::find(documents, &file, &Document::file) == documents.end())
            documents.push_back({&file, documentName(*outline.table), file.compose()});
    }
}

void DatabaseDialog::build()
{
    constexpr int kWidth = 1200, kHeight = 660;
    setInitialSize(kWidth, kHeight);
    pages.clear();
    pages.resize(outlines.size());
    holders.clear();
    BoxLayout column(getPane(), BoxLayout::Axis::Column, BoxLayout::Margin::None);
    if (outlines.size() == 1) {
        holders.push_back(&getPane());
    } else {
        column.add(tabs, 1);
        for (const PageOutline& outline : outlines)
            holders.push_back(&tabs.addPage(outline.title));
        tabs.onAction([this] { pageChosen(); });
    }
    ensurePage(0);
}

DatabasePage& DatabaseDialog::ensurePage(std::size_t place)
{
    std::unique_ptr<DatabasePage>& page = pages[place];
    if (!page) {
        page = std::make_unique<DatabasePage>(outlines[place]);
        if (outlines.size() == 1)
            BoxLayout(*holders[place]).add(*page, 1);
        else
            BoxLayout(*holders[place], BoxLayout::Axis::Row).add(*page, 1);
    }
    return *page;
}

void DatabaseDialog::selectPage(std::size_t place)
{
    tabs.selectPage(static_cast<int>(place));
    ensurePage(place);
}

/// What was written on another tab is known on this one.
void DatabaseDialog::pageChosen()
{
    const int place = tabs.getSelectedPage();
    if (place < 0 || static_cast<std::size_t>(place) >= pages.size())
        return;
    for (const auto& page : pages)
        if (page)
            page->store();
    if (pages[static_cast<std::size_t>(place)])
        pages[static_cast<std::size_t>(place)]->refresh();
    else
        ensurePage(static_cast<std::size_t>(place));
}

bool DatabaseDialog::accept()
{
    for (const auto& page : pages)
        if (page)
            page->store();
    for (Document& document : documents) {
        const WString now = document.file->compose();
        // A table that nobody touched stays as it is on the disk: what reading it left out stays.
        if (now == document.before && isInProject(document.name))
            continue;
        if (document.file->wasRefused() && isInProject(document.name)) {
            const WString text = translate(u"This file could not be read. Replace it?");
            if (host().ask({document.name + u"\r\n" + text}) != Answer::Yes)
                return false;
        }
        if (!document.file->save()) {
            host().showMessage(translate(u"Couldn't save ") + document.name);
            return false;
        }
        document.before = now;
    }
    return true;
}

} // namespace varn

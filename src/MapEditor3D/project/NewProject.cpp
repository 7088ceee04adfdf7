#include "MapEditor3D/project/NewProject.h"

#include "Parser/Element.h"
#include "Util/Exception.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/TextFile.h"

#include <algorithm>
#include <vector>

namespace varn {

namespace fs = std::filesystem;

namespace {

/// What a project consists of.
constexpr const char* kFolders[] = {
    "Audio/BGM",
    "Audio/BGS",
    "Audio/SE",
    "Data",
    "Dungeon",
    "Graphics/Backgrounds",
    "Graphics/Dungeon/Ceilings",
    "Graphics/Dungeon/Doors",
    "Graphics/Dungeon/Floors",
    "Graphics/Dungeon/Walls",
    "Graphics/Enemies",
    "Graphics/System",
    "Graphics/Tile",
    "Scripts",
};
constexpr const char* kFromDemo = "FromDemo.txt"; // paths, a line each
constexpr const char* kSystemTable = "Data/System.xml";
constexpr WStringView kTitle = u"%title%";

fs::path templateFolder()
{
    return programFolder() / "NewProject";
}
fs::path demoFolder()
{
    return programFolder() / "Demo";
}

/// Files of a folder and the folders below it, relative to it, in the order of their names.
std::vector<fs::path> filesBelow(const fs::path& folder)
{
    std::vector<fs::path> files;
    std::error_code fault;
    for (auto at = fs::recursive_directory_iterator(
             folder, fs::directory_options::follow_directory_symlink, fault);
         !fault && at != fs::recursive_directory_iterator(); at.increment(fault))
        if (at->is_regular_file(fault))
            files.push_back(at->path().lexically_relative(folder));
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<fs::path> linesOf(const fs::path& file)
{
    std::vector<fs::path> lines;
    const std::string text = readFile(file).value_or("");
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        if (end > at)
            lines.emplace_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

/// Fills a folder, and takes away again what it made unless it was told that all is well.
class FolderMaker
{
  public:
    explicit FolderMaker(fs::path folder) : root(std::move(folder)) {}
    FolderMaker(const FolderMaker&) = delete;
    FolderMaker& operator=(const FolderMaker&) = delete;
    ~FolderMaker()
    {
        std::error_code ignored;
        for (auto made = all.rbegin(); made != all.rend(); ++made)
            fs::remove(*made, ignored); // a folder in which something else appeared stays
    }

    void makeFolder(const fs::path& folder)
    {
        std::error_code fault;
        if (fs::is_directory(folder, fault))
            return;
        if (folder.has_parent_path() && folder.parent_path() != folder)
            makeFolder(folder.parent_path());
        if (!fs::create_directory(folder, fault))
            throw Exception(u"Couldn't save " + toWide(folder));
        all.push_back(folder);
    }
    void copy(const fs::path& from, const fs::path& to)
    {
        makeFolder((root / to).parent_path());
        std::error_code fault;
        if (!fs::copy_file(from, root / to, fault))
            throw Exception(u"Couldn't save " + toWide(root / to));
        all.push_back(root / to);
        // Those beside the program may be read-only.
        fs::permissions(root / to, fs::perms::owner_write, fs::perm_options::add, fault);
    }
    void keep() { all.clear(); }

    const fs::path root;

  private:
    std::vector<fs::path> all; // in the order they were made
};

void putTitle(const fs::path& file, WStringView title)
{
    const auto text = readTextFile(file);
    WString escaped;
    appendEscaped(escaped, title, EscapeIn::Attribute);
    if (!text || !writeTextFile(file, replaceAll(text->text, kTitle, escaped), text->encoding))
        throw Exception(u"Couldn't save " + toWide(file));
}

void checkFolder(const fs::path& folder)
{
    if (const WStringView fault = newProjectFault(folder); !fault.empty())
        throw Exception(WString(fault));
}

} // namespace

bool isProjectFolder(const fs::path& folder)
{
    std::error_code ignored;
    if (fs::is_regular_file(folder / "Dungeon" / "MapHierarchy.ini", ignored) ||
        fs::is_regular_file(folder / "Project" / "MapHierarchy.ini", ignored))
        return true;
    for (const auto& entry : fs::directory_iterator(folder / "Data", ignored))
        if (entry.path().extension() == ".xml" || entry.path().extension() == ".dat")
            return true;
    return false;
}

WStringView newProjectFault(const fs::path& folder)
{
    std::error_code fault;
    if (!folder.is_absolute())
        return u"Please enter the whole path of a folder";
    fs::path there = folder; // as far up as something stands
    while (!fs::exists(there, fault) && !fault && there.has_relative_path())
        there = there.parent_path();
    if (fault)
        return u"This folder can't be reached";
    if (!fs::is_directory(there, fault))
        return u"There is a file of that name";
    if (there == folder && !fs::is_empty(folder, fault))
        return fault ? u"This folder can't be reached" : u"The folder is not empty";
    return {};
}

void makeNewProject(const fs::path& folder, WStringView title)
{
    checkFolder(folder);
    const std::vector<fs::path> own = filesBelow(templateFolder());
    if (own.empty())
        throw Exception(u"Couldn't open " + toWide(templateFolder()));

    FolderMaker maker(folder);
    maker.makeFolder(folder);
    for (const char* name : kFolders)
        maker.makeFolder(folder / name);
    for (const fs::path& file : own)
        if (file != kFromDemo)
            maker.copy(templateFolder() / file, file);
    for (const fs::path& file : linesOf(templateFolder() / kFromDemo))
        maker.copy(demoFolder() / file, file);
    putTitle(folder / kSystemTable, title);
    maker.keep();
}

void copyDemo(const fs::path& folder)
{
    checkFolder(folder);
    const std::vector<fs::path> files = filesBelow(demoFolder());
    if (files.empty())
        throw Exception(u"Couldn't open " + toWide(demoFolder()));
    FolderMaker maker(folder);
    maker.makeFolder(folder);
    for (const fs::path& file : files)
        maker.copy(demoFolder() / file, file);
    maker.keep();
}

bool startToolIn(const fs::path& folder)
{
    const fs::path program = programFolder() / programStem();
    return host().startInFolder(toWide(program), toWide(folder));
}

} // namespace varn

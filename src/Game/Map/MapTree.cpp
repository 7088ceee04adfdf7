#include "Game/Map/MapTree.h"

#include "Game/Map/MapFile.h"
#include "Game/Map/WizMap.h"
#include "Util/File.h"
#include "Util/Host.h"

#include <array>

namespace varn::mapTree {

namespace fs = std::filesystem;

namespace {

constexpr WStringView kGrid = u".map";
constexpr WStringView kSideDocument = u".xml";

/// Where a map's two files lie, or would lie.
std::array<fs::path, 2> filesOf(WStringView mapName)
{
    const WString grid = findMapFile(pathOf(mapName) + WString(kGrid));
    const WString base(withoutExtension(grid));
    return {resolveProjectPath(grid), resolveProjectPath(base + WString(kSideDocument))};
}

bool renameFile(const fs::path& from, const fs::path& to)
{
    std::error_code fault;
    if (!fs::exists(from, fault))
        return true;
    fs::rename(from, to, fault);
    return !fault;
}

bool renameFiles(WStringView from, WStringView to)
{
    const auto [grid, sideDocument] = filesOf(from);
    const fs::path newGrid = grid.parent_path() / fs::path(WString(to) + WString(kGrid));
    const fs::path newSideDocument =
        grid.parent_path() / fs::path(WString(to) + WString(kSideDocument));
    if (!renameFile(grid, newGrid))
        return false;
    if (renameFile(sideDocument, newSideDocument))
        return true;
    renameFile(newGrid, grid);
    return false;
}

bool refuse(WStringView sentence)
{
    if (!sentence.empty())
        host().showMessage(sentence);
    return !sentence.empty();
}

/// The maker's own two languages.
WStringView twin(WStringView english, WStringView japanese)
{
    return host().isJapaneseUser() ? japanese : english;
}

} // namespace

WString pathOf(WStringView mapName)
{
    return WString(kDungeonFolder) + WString(mapName);
}

WStringView nameFault(WStringView name)
{
    if (name.empty())
        return u"Please enter the name";
    for (const char16_t unit : name) {
        if (unit < 32 || WStringView(u"\\/:*?\"<>|").find(unit) != WStringView::npos)
            return u"Contains invalid characters";
    }
    for (const fs::path& file : filesOf(name)) {
        std::error_code fault;
        if (fs::exists(file, fault))
            return u"There is a file with the same name. please change the name";
    }
    return {};
}

std::optional<std::size_t> createMap(MapHierarchy& tree, std::optional<std::size_t> parent,
                                     WString name, WizMap& map)
{
    if (refuse(nameFault(name)))
        return std::nullopt;
    try {
        const WString path = pathOf(name);
        const std::size_t index = tree.addMap(parent, std::move(name));
        createDirectories(resolveProjectPath(kDungeonFolder));
        if (map.save(path))
            return index;
        tree.remove(index);
        host().showMessage(u"Couldn't save the .map file: " + path);
    } catch (const Exception& fault) {
        host().showMessage(fault.getMessage());
    }
    return std::nullopt;
}

bool rename(MapHierarchy& tree, std::size_t index, WString name)
{
    const MapHierarchy::Entry& entry = tree.at(index);
    if (entry.name == name)
        return true;
    if (entry.isFolder()) {
        if (refuse(name.empty()                                   ? u"Please enter the name"
                   : name.find_first_of(u"\r\n") != WString::npos ? u"Contains invalid characters"
                                                                  : u""))
            return false;
        tree.rename(index, std::move(name));
        return true;
    }

    const bool onlyCase = equalsIgnoringAsciiCase(entry.name, name);
    if (!onlyCase && refuse(nameFault(name)))
        return false;
    if (!renameFiles(entry.name, name)) {
        host().showMessage(u"Couldn't rename the map: " + entry.name);
        return false;
    }
    tree.rename(index, std::move(name));
    return true;
}

bool remove(MapHierarchy& tree, std::optional<std::size_t> index)
{
    if (!index) {
        host().showMessage(twin(u"Can't delete the root item.", u"ルートは削除できません"));
        return false;
    }
    const Question question = {
        .text = WString(twin(u"May I delete this map?", u"削除してもよろしいですか？"))};
    if (host().ask(question) != Answer::Yes)
        return false;

    const MapHierarchy::Entry& entry = tree.at(*index);
    if (!entry.isFolder()) {
        for (const fs::path& file : filesOf(entry.name)) {
            std::error_code fault;
            fs::remove(file, fault);
            if (fault) {
                host().showMessage(u"Couldn't delete " + toWide(file));
                return false;
            }
        }
    }
    tree.remove(*index);
    return true;
}

} // namespace varn::mapTree

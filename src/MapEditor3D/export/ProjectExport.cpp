#include "MapEditor3D/export/ProjectExport.h"

#include "Game/Database/StringTable.h"
#include "Game/Database/SystemDatabase.h"
#include "Game/Map/GameResourceManager.h"
#include "Game/Map/MapFile.h"
#include "Game/Map/MapTree.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"
#include "Util/TextFile.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace varn {

namespace {

constexpr WStringView kArchive = u"GameData.gamedata";
constexpr WStringView kRuntime = u"Game.exe";
constexpr WStringView kConfiguration = u"Game.ini";
constexpr WStringView kScripts = u"Scripts";

/// The documents of "DATABASE", in order. The catalogue stands where its row is.
constexpr WStringView kCatalogue = u"ResourceManager.xml";
constexpr WStringView kDocuments[] = {
    u"CharacterList.xml",
    u"Race.dat",
    u"Attribute.dat",
    u"State.dat",
    u"Class.dat",
    u"Skill.dat",
    u"Item.dat",
    u"Enemy.dat",
    u"ItemTable.dat",
    u"Action.dat",
    u"EnemyTable.dat",
    u"TrapList.xml",
    u"Types.xml",
    u"FlagList.xml",
    u"Scripts.xml",
    u"NovelScripts.xml",
    u"Formulas.xml",
    u"NPCs.xml",
    u"System.xml",
    u"MessageTable.xml",
    u"EventFloor.xml",
    kCatalogue,
    u"VersionControls.xml",
};

WString join(WStringView folder, WStringView name)
{
    WString path(folder);
    if (!path.empty() && path.back() != u'/' && path.back() != u'\\')
        path += u'/';
    return path.append(name);
}

/// Adds a text file under a name of the archive; a missing one adds nothing, and one that cannot be
/// read is left to the archive to tell.
void addTextFile(GameResourceFile& archive, WString name, const fs::path& path)
{
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored))
        return;
    if (auto file = readTextFile(path))
        archive.addText(std::move(name), std::move(file->text));
    else
        archive.addFile(std::move(name), toWide(path));
}

/// The files of one map. A copy in the temporary folder, as a test run leaves it, is the newer one.
class MapFiles
{
  public:
    MapFiles(WStringView mapName, const fs::path& tempFolder)
    {
        const WString name(mapName);
        grid = findMapFile(mapTree::pathOf(name) + u".map");
        side = WString(withoutExtension(grid)) + u".xml";
        if (tempFolder.empty())
            return;
        const WString copy = toWide(tempFolder / toUtf8(name)) + u".map";
        if (isFile(copy))
            grid = copy;
    }

    bool exist() const { return isFile(grid); }

    WString grid;
    WString side; ///< the document beside the map's own grid
};

class Exporter
{
  public:
    Exporter(ProjectSession& session, const ExportOptions& options)
        : session(session), options(options)
    {}

    std::optional<WString> run(const ExportProgress& progress)
    {
        if (!checkFolder(options.target) || !makeDataFolder())
            return std::nullopt;
        session.getSettings().setSettingString(u"GameDataExport", u"Path", options.target);
        copyRuntime();
        addTextFile(archive, WString(kConfiguration), programFolder() / fs::path(kConfiguration));
        if (!session.saveCurrentMap())
            return std::nullopt;
        addMaps();
        archive.addText(join(kDungeonFolder, kMapHierarchyFile), session.getHierarchy().toText());
        addDatabase();
        for (const WString& path : GameResourceManager::instance().usedFiles())
            archive.addFile(path, path);
        addScripts();
        return write(progress);
    }

  private:
    bool checkFolder(const WString& path)
    {
        if (isFolder(path))
            return true;
        host().showMessage(path + u"\r\nThis path is not directory");
        return false;
    }

    bool makeDataFolder()
    {
        const WString data = join(options.target, u"Data");
        createDirectories(resolveProjectPath(data));
        return checkFolder(data);
    }

    void copyRuntime()
    {
        const fs::path runtime = programFolder() / fs::path(kRuntime);
        std::error_code fault;
        if (!fs::is_regular_file(runtime, fault))
            return;
        fs::copy_file(runtime, resolveProjectPath(join(options.target, kRuntime)),
                      fs::copy_options::overwrite_existing, fault);
        if (fault)
            host().showMessage(u"Couldn't save " + join(options.target, kRuntime));
    }

    // A map that stands twice in the tree is added once: an archive with a name twice is refused.
    void addMaps()
    {
        std::set<WStringView> passedOver(options.without.begin(), options.without.end());
        for (const MapHierarchy::Entry& entry : session.getHierarchy().list()) {
            if (entry.isFolder() || !passedOver.insert(entry.name).second)
                continue;
            const MapFiles files(entry.name, session.getTempFolder());
            const WString name = join(kDungeonFolder, entry.name);
            archive.addFile(name + u".map", files.grid);
            addTextFile(archive, name + u".xml", resolveProjectPath(files.side));
        }
    }

    void addDatabase()
    {
        loadExportTables();
        StringTable texts;
        texts.load(u"Data/StringTable.xml");
        GameResourceManager& catalogue = GameResourceManager::instance();
        catalogue.loadDefault();

        WString document = u"<Database>\r\n";
        for (const WStringView name : kDocuments) {
            document +=
                name == kCatalogue ? catalogue.toXml() : findTableFile(name)->composeElement();
            document += u"\r\n";
        }
        document += texts.toXml() + u"\r\n";
        const SystemDatabaseData* const system = SystemDatabase::instance().getData();
        if (system && system->getSupportSecondLanguage()) {
            texts.clear();
            texts.load(u"Resources/StringTable2.xml");
            texts.load(u"Data/StringTable2.xml");
            document += texts.toXml() + u"\r\n";
        }
        document += u"</Database>\r\n";
        archive.addText(u"DATABASE", std::move(document));
    }

    // In the order of the bytes of their paths: what a folder lists first differs from one disk to
    // the next.
    void addScripts()
    {
        const fs::path root = resolveProjectPath(kScripts);
        std::vector<std::string> files;
        std::error_code fault;
        for (auto at = fs::recursive_directory_iterator(root, fault);
             at != fs::recursive_directory_iterator(); at.increment(fault)) {
            if (fault)
                break;
            if (at->is_regular_file(fault))
                files.push_back(at->path().lexically_relative(root).generic_string());
        }
        std::sort(files.begin(), files.end());
        for (const std::string& file : files)
            addScript(root / file, join(kScripts, fromUtf8(file)));
    }

    void addScript(const fs::path& path, WString name)
    {
        const bool isText = path.filename().native().find(".txt") != std::string::npos;
        if (isText)
            addTextFile(archive, std::move(name), path);
        else
            archive.addFile(std::move(name), toWide(path));
    }

    std::optional<WString> write(const ExportProgress& progress)
    {
        const WString path = join(options.target, kArchive);
        if (!archive.save(path, progress))
            return std::nullopt;
        closeProjectArchive();
        askToOpen();
        return path;
    }

    void askToOpen()
    {
        const WString question = replaceAll(options.question, u"[directory]", options.target);
        if (host().ask({question}) == Answer::Yes)
            host().openWithShell(options.target);
    }

    ProjectSession& session;
    const ExportOptions& options;
    GameResourceFile archive;
};

} // namespace

bool canExportProject(ProjectSession& session)
{
    const auto& entries = session.getHierarchy().list();
    const bool any = std::any_of(entries.begin(), entries.end(), [&](const auto& entry) {
        return !entry.isFolder() && MapFiles(entry.name, session.getTempFolder()).exist();
    });
    if (!any)
        host().showMessage(u"There is no map that can be output");
    return any;
}

bool confirmExportTarget(WStringView target)
{
    if (pathExists(target))
        return true;
    host().showMessage(u"This directory is not found.");
    return false;
}

std::optional<WString> exportProject(ProjectSession& session, const ExportOptions& options,
                                     const ExportProgress& progress)
{
    return Exporter(session, options).run(progress);
}

} // namespace varn

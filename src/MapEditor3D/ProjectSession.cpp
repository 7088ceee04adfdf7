#include "MapEditor3D/ProjectSession.h"

#include "Game/Database/LanguageManager.h"
#include "Game/Database/StringTable.h"
#include "Game/Map/MapFile.h"
#include "Util/File.h"
#include "Util/Host.h"
#include "Util/ProjectPath.h"

#include <unistd.h>

namespace varn {

namespace {

constexpr WStringView kFirstLanguage = u"Languages/Japanese.xml";
constexpr WStringView kDefaultMapFolder = u"Project/";
constexpr int kLayers = 5;
constexpr int kDefaultLayer = static_cast<int>(EditorLayer::Event);

constexpr WStringView kTempFolderQuestion =
    u"TEMPフォルダがすでに存在しています\nTEMPフォルダを削除しますか？";
constexpr WStringView kTempFolderCaption =
    u"Already exist a temp folder. May I delete the Folder ?";

/// The folder of a run beside one that is alive: the first one's is in use and not to be deleted.
TempFolder secondTempFolder()
{
    std::filesystem::path folder = TempFolder().path();
    folder += " " + std::to_string(::getpid());
    return TempFolder(std::move(folder));
}

WString withLastSeparator(WString path)
{
    if (!path.empty() && path.back() != u'/' && path.back() != u'\\')
        path += u'/';
    return path;
}

EditorLayer layerOfSetting(int value)
{
    return static_cast<EditorLayer>(value < 0 || value >= kLayers ? kDefaultLayer : value);
}

} // namespace

WString resolveProjectPath(const Settings& settings)
{
    WString chosen = settings.getSettingString(u"Project", u"Path", u"");
    if (!chosen.empty() && pathExists(chosen))
        return chosen;
    const bool isKeptWithMaps = isFile(WString(kDungeonFolder).append(kMapHierarchyFile));
    return WString(isKeptWithMaps ? kDungeonFolder : kDefaultMapFolder);
}

ProjectSession::ProjectSession(std::filesystem::path settingsFile, Presence presence)
    : settings(std::move(settingsFile)), presence(presence)
{}

ProjectSession::~ProjectSession()
{
    if (tempFolder)
        tempFolder->remove();
}

std::filesystem::path ProjectSession::getTempFolder() const
{
    return tempFolder ? tempFolder->path() : std::filesystem::path();
}

void ProjectSession::openProject()
{
    if (!projectPath.empty())
        return;
    projectPath = varn::resolveProjectPath(settings);
    setMapFolder(withLastSeparator(projectPath));
}

MapHierarchy& ProjectSession::getHierarchy()
{
    openProject();
    if (!hierarchy) {
        hierarchy.emplace();
        hierarchy->load(getHierarchyFile());
    }
    return *hierarchy;
}

WString ProjectSession::getHierarchyFile()
{
    openProject();
    return withLastSeparator(projectPath).append(kMapHierarchyFile);
}

void ProjectSession::loadFirstTexts()
{
    LanguageManager::instance().load(kFirstLanguage);
    loadStringTables();
}

// The game's texts follow a language that the person chose. One that was only taken because the
// settings name none leaves them as the first text source made them.
void ProjectSession::restoreLanguage()
{
    const WString chosen = settings.getSettingString(u"View", u"Language", u"");
    LanguageManager& languages = LanguageManager::instance();
    languages.loadChosen(chosen);
    if (!chosen.empty() && languages.getFileName() == chosen)
        loadStringTables();
}

void ProjectSession::loadTexts()
{
    if (textsLoaded)
        return;
    textsLoaded = true;
    loadFirstTexts();
    restoreLanguage();
}

bool ProjectSession::changeLanguage(WStringView fileName)
{
    if (!LanguageManager::instance().load(fileName))
        return false;
    loadStringTables();
    return true;
}

bool ProjectSession::start()
{
    if (started)
        return true;
    if (!enter())
        return false;
    started = true;
    startTables = loadStartupTables();
    loadTexts();
    restoreFrame();
    return true;
}

bool ProjectSession::enter()
{
    switch (instance.acquire()) {
    case InstanceLock::Result::Owned:
        return makeTempFolder(TempFolder());
    case InstanceLock::Result::OtherAlive:
        if (presence == Presence::Window && instance.askToComeForward())
            return false;
        return makeTempFolder(secondTempFolder());
    case InstanceLock::Result::CouldNotCreate:
        break;
    }
    return false;
}

bool ProjectSession::makeTempFolder(TempFolder folder)
{
    TempFolder::Made made = folder.make();
    if (made == TempFolder::Made::Exists) {
        if (host().ask({WString(kTempFolderQuestion), Buttons::YesNo,
                        WString(kTempFolderCaption)}) != Answer::Yes)
            return false;
        folder.remove();
        made = folder.make();
    }
    if (made != TempFolder::Made::Made) {
        host().showMessage(u"Couldn't create TempFolder");
        return false;
    }
    tempFolder = std::move(folder);
    return true;
}

void ProjectSession::restoreFrame()
{
    systemCoordinateEnabled = settings.getSettingInt(u"View", u"SystemCoordinateEnabled", 1) != 0;
    tileScaleCount = settings.getSettingInt(u"View", u"TileScaleCount", 0);
    applyZoom();
    openProject();
    createDirectories(resolveProjectPath(WStringView(projectPath)));
    getHierarchy();
    selectLayer(layerOfSetting(settings.getSettingInt(u"Editor", u"SelectedLayer", kDefaultLayer)));
}

void ProjectSession::setEditor(MapEditing* next)
{
    editor = next;
    if (!editor || !started)
        return;
    editor->setLayer(selectedLayer);
    applyZoom();
}

void ProjectSession::applyZoom()
{
    if (!editor)
        return;
    const int steps = tileScaleCount < 0 ? -tileScaleCount : tileScaleCount;
    for (int step = 0; step < steps; ++step) {
        if (!editor->zoom(tileScaleCount > 0)) {
            tileScaleCount = 0;
            return;
        }
    }
}

void ProjectSession::selectLayer(EditorLayer layer)
{
    if (editor && !editor->setLayer(layer))
        return;
    selectedLayer = layer;
}

void ProjectSession::zoom(bool in)
{
    if (editor && editor->zoom(in))
        tileScaleCount += in ? 1 : -1;
}

bool ProjectSession::saveCurrentMap()
{
    return !editor || editor->doSave();
}

bool ProjectSession::saveHierarchy()
{
    const WString file = getHierarchyFile();
    if (createDirectories(resolveProjectPath(WStringView(projectPath))) &&
        getHierarchy().save(file))
        return true;
    host().showMessage(u"Couldn't save " + file);
    return false;
}

bool ProjectSession::saveEdits()
{
    const bool isTreeSaved = saveHierarchy();
    return saveCurrentMap() && isTreeSaved;
}

bool ProjectSession::saveAllEdits()
{
    if (host().ask({u"Save all edits?"}) != Answer::Yes)
        return true;
    return saveEdits();
}

bool ProjectSession::shutdown()
{
    const Answer answer = host().ask({u"Save all edits and exit?", Buttons::YesNoCancel});
    if (answer == Answer::Cancel)
        return false;
    endUnsaved = answer == Answer::Yes && !saveEdits();
    writeSettings();
    return true;
}

void ProjectSession::writeSettings()
{
    openProject();
    if (placement) {
        settings.setSettingInt(u"Window", u"MainLeft", placement->left);
        settings.setSettingInt(u"Window", u"MainTop", placement->top);
        settings.setSettingInt(u"Window", u"MainWidth", placement->width);
        settings.setSettingInt(u"Window", u"MainHeight", placement->height);
        settings.setSettingString(u"Window", u"Zoomed", placement->zoomed ? u"1" : u"0");
    }
    settings.setSettingInt(u"Editor", u"SelectedLayer", static_cast<int>(selectedLayer));
    settings.setSettingString(u"Project", u"Path", projectPath);
    settings.setSettingInt(u"View", u"SystemCoordinateEnabled", systemCoordinateEnabled ? 1 : 0);
    settings.setSettingInt(u"View", u"TileScaleCount", tileScaleCount);
    settings.setSettingString(u"View", u"Language", LanguageManager::instance().getFileName());
}

} // namespace varn

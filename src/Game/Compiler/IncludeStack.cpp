#include "Game/Compiler/IncludeStack.h"

#include "Game/GameResourceFile.h"
#include "Util/ProjectPath.h"
#include "Util/TextFile.h"

#include <algorithm>

namespace varn {
namespace {

const WString kScriptFolder = u"Scripts/";

WString fullPath(WStringView path)
{
    std::error_code ignored;
    const auto resolved = resolveProjectPath(path);
    const auto full =
        std::filesystem::weakly_canonical(std::filesystem::absolute(resolved, ignored), ignored);
    return toWide(full.empty() ? resolved : full);
}

WStringView folderOf(WStringView path)
{
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == WStringView::npos ? WStringView() : path.substr(0, separator + 1);
}

} // namespace

void IncludeStack::push(WString name, WString text)
{
    IncludedScript script;
    script.source = isFile(name) ? fullPath(name) : name;
    paths.push_back(name);
    script.path = std::move(name);
    script.text = std::move(text);
    scripts.push_back(std::move(script));
    index = scripts.size() - 1;
}

/// A plain file wins over the archive: as written, beside the sources that are still open, then
/// among the project's scripts.
bool IncludeStack::find(WStringView name, Found& found) const
{
    std::vector<WString> places = {WString(name)};
    WStringView triedLast;
    for (std::size_t i = scripts.size(); i-- > 0;) {
        const WStringView folder = folderOf(scripts[i].source);
        if (scripts[i].finished || folder.empty() || folder == triedLast)
            continue;
        places.push_back(WString(folder) + WString(name));
        triedLast = folder;
    }
    places.push_back(kScriptFolder + WString(name));
    places.push_back(kScriptFolder + WString(fileNameOf(name)));
    for (const WString& place : places) {
        if (!isFile(place))
            continue;
        if (auto file = readTextFile(resolveProjectPath(place))) {
            found = {fullPath(place), std::move(file->text)};
            return true;
        }
    }
    const GameResourceFile* archive = projectArchive();
    if (!archive)
        return false;
    for (const WString& entry : {WString(name), kScriptFolder + WString(name),
                                 kScriptFolder + WString(fileNameOf(name))}) {
        if (const auto* resource = archive->getResource(entry)) {
            found = {entry, resource->text()};
            return true;
        }
    }
    return false;
}

bool IncludeStack::includeFile(WStringView name)
{
    Found found;
    if (name.empty() || !find(name, found))
        return false;
    const bool known =
        std::any_of(scripts.begin(), scripts.end(), [&found](const IncludedScript& script) {
            return script.source == found.source;
        });
    IncludedScript script;
    script.path = name;
    script.source = std::move(found.source);
    if (!known)
        script.text = std::move(found.text);
    paths.emplace_back(name);
    scripts.push_back(std::move(script));
    index = scripts.size() - 1;
    return true;
}

bool IncludeStack::finishCurrent()
{
    scripts[index].finished = true;
    while (index > 0 && scripts[index].finished)
        --index;
    return !scripts[index].finished;
}

} // namespace varn

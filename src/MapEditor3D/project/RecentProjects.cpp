#include "MapEditor3D/project/RecentProjects.h"

#include "Util/File.h"

#include <algorithm>
#include <string>

namespace varn {

namespace fs = std::filesystem;

RecentProjects::RecentProjects(fs::path stateFolder)
{
    if (stateFolder.empty())
        return;
    file = stateFolder / "projects";
    const std::string text = readFile(file).value_or("");
    for (std::size_t at = 0; at < text.size() && projects.size() < kLimit;) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const fs::path project = text.substr(at, end - at);
        at = end + 1;
        if (project.is_absolute() && std::ranges::find(projects, project) == projects.end())
            projects.push_back(project);
    }
}

void RecentProjects::add(const fs::path& project)
{
    std::erase(projects, project);
    projects.insert(projects.begin(), project);
    if (projects.size() > kLimit)
        projects.resize(kLimit);
    keep();
}

void RecentProjects::remove(const fs::path& project)
{
    if (std::erase(projects, project) != 0)
        keep();
}

// A list that cannot be kept is no fault to tell: the work goes on without it.
void RecentProjects::keep() const
{
    if (file.empty())
        return;
    std::string text;
    for (const fs::path& project : projects)
        text += project.native() + '\n';
    if (createDirectories(file.parent_path()))
        replaceFile(file, asBytes(text));
}

} // namespace varn

#pragma once

#include <filesystem>
#include <vector>

namespace varn {

/// The folders of the projects that were opened last, the latest first. Kept as lines of UTF-8 in
/// the tool's state folder.
class RecentProjects
{
  public:
    static constexpr std::size_t kLimit = 12;

    /// Reads what is kept. @param stateFolder  of the tool; may be missing; empty: nothing is kept
    explicit RecentProjects(std::filesystem::path stateFolder);

    const std::vector<std::filesystem::path>& list() const { return projects; }
    /// Puts a project in front and keeps the list. @param project  absolute
    void add(const std::filesystem::path& project);
    /// Takes one out and keeps the list.
    void remove(const std::filesystem::path& project);

  private:
    void keep() const;

    std::filesystem::path file;
    std::vector<std::filesystem::path> projects;
};

} // namespace varn

#pragma once

#include "Support/TemporaryProject.h"

namespace varn::test {

/// A project with a copy of the demo's tables.
class DemoProject : public TemporaryProject
{
  public:
    DemoProject()
    {
        const std::filesystem::path demo = std::filesystem::path(VARN_SOURCE_DIR) / "demo";
        std::filesystem::copy(demo / "Data", root() / "Data");
        std::filesystem::copy(demo / "Scripts", root() / "Scripts",
                              std::filesystem::copy_options::recursive);
    }
};

} // namespace varn::test

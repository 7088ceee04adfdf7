#include "MapEditor3D/project/RecentProjects.h"

#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {

using Paths = std::vector<std::filesystem::path>;

TEST(RecentProjects, TheLatestFirstEachOnce)
{
    TemporaryProject state;
    const auto folder = state.root() / "not yet there";
    RecentProjects recent(folder);
    recent.add("/games/a");
    recent.add("/games/b");
    recent.add("/games/a");
    EXPECT_EQ(recent.list(), (Paths{"/games/a", "/games/b"}));
    EXPECT_EQ(RecentProjects(folder).list(), recent.list());
    recent.remove("/games/a");
    EXPECT_EQ(RecentProjects(folder).list(), (Paths{"/games/b"}));
}

TEST(RecentProjects, ForgetsTheOldestAndPassesOverNonsense)
{
    TemporaryProject state;
    state.write("projects", "/games/a\n\nrelative\n/games/a\n/games/b");
    RecentProjects recent(state.root());
    EXPECT_EQ(recent.list(), (Paths{"/games/a", "/games/b"}));
    for (int i = 0; i < 30; ++i)
        recent.add("/games/" + std::to_string(i));
    EXPECT_EQ(recent.list().size(), RecentProjects::kLimit);
    EXPECT_EQ(recent.list().front(), "/games/29");
}

TEST(RecentProjects, WorksWhereNothingCanBeKept)
{
    RecentProjects recent("");
    recent.add("/games/a");
    EXPECT_EQ(recent.list(), (Paths{"/games/a"}));
}

} // namespace varn::test

#include "Game/Database/TablePage.h"
#include "Support/TemporaryProject.h"
#include "Util/File.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace varn::test {
namespace {

TEST(TablePage, IsWhatTheFieldTablesSay)
{
    const std::string page = composeTablePage();
    if (std::getenv("VARN_REBASELINE")) {
        ASSERT_TRUE(replaceFile(VARN_SOURCE_DIR "/docs/tables.md", asBytes(page)));
    }
    EXPECT_EQ(readSource("docs/tables.md"), page)
        << "run with VARN_REBASELINE=1 and read the change";
}

} // namespace
} // namespace varn::test

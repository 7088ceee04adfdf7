#include "Game/Database/GameDatabase.h"
#include "Support/RecordingHost.h"
#include "Support/TemporaryProject.h"

#include <gtest/gtest.h>

namespace varn::test {
namespace {

std::string frozen(WStringView name)
{
    return readSource("tests/Game/Database/dat/" + toUtf8(name));
}

/// Each image holds three records with noise in the bytes that no field uses: small values, the
/// greatest (with a name of double-byte characters that fills its field), and the ends of the
/// ranges.
TEST(DatRecord, FrozenImagesBecomeTheirDocuments)
{
    TemporaryProject project;
    RecordingHost host;
    std::size_t tables = 0;
    for (GameTable* const table : knownTables()) {
        const TableInfo& info = table->getInfo();
        if (info.datName.empty())
            continue;
        project.write("Data/" + toUtf8(info.datName), frozen(info.datName));
        EXPECT_TRUE(table->load(info.datName, 0));
        const std::string document = toUtf8(replaceAll(table->compose(), u"\r\n", u"\n"));
        EXPECT_EQ(document, frozen(WString(info.tagName) + u".xml"));
        table->clear();
        tables++;
    }
    EXPECT_EQ(tables, 10u);
    EXPECT_TRUE(host.messages.empty());
}

} // namespace
} // namespace varn::test

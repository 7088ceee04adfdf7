#include "Util/Bytes.h"

#include <gtest/gtest.h>

namespace varn {
namespace {

TEST(ByteReader, ReadsLittleEndianAndTellsWhereTheDataEnd)
{
    ByteReader reader(asBytes(std::string_view("\x01\x02\x03\x04\x05\x06\xFF\xFE\xAA\xBB", 10)),
                      u"B1F.map");
    EXPECT_EQ(reader.u32(), 0x04030201u);
    EXPECT_EQ(reader.u16(), 0x0605);
    EXPECT_EQ(reader.s16(), -257);
    EXPECT_EQ(reader.takeUpTo(9).size(), 2u);
    EXPECT_TRUE(reader.atEnd());
    reader.seek(8);
    try {
        reader.u32();
        FAIL() << "read past the end";
    } catch (const Exception& fault) {
        EXPECT_EQ(
            fault.getMessage(),
            u"B1F.map: the data ends too early: at byte 8, 4 bytes are wanted and 2 are left");
        EXPECT_STREQ(fault.what(), toUtf8(fault.getMessage()).c_str());
    }
    EXPECT_EQ(reader.position(), 8u) << "a read that does not fit moves nothing";
    EXPECT_THROW(reader.take(static_cast<std::size_t>(-1)), Exception);
    EXPECT_THROW(reader.seek(11), Exception);
}

TEST(ByteWriter, WritesWhatTheReaderReads)
{
    ByteWriter writer;
    writer.u8(0x1FF);
    writer.u16(0xBEEF);
    writer.u32(0x12345678);
    writer.zeros(2);
    writer.utf16(u"aあ");
    EXPECT_EQ(writer.take(), std::string("\xFF\xEF\xBE\x78\x56\x34\x12\0\0a\0\x42\x30", 13));
}

TEST(FileNotFoundException, PutsItsNameBeforeTheText)
{
    EXPECT_STREQ(FileNotFoundException(u"a.png").what(), "FileNotFoundException: a.png");
}

} // namespace
} // namespace varn

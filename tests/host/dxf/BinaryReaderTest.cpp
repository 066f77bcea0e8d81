#include "GroupTexts.h"

using namespace dxf;
using namespace dxftest;
using namespace std::string_literals;

namespace
{
const std::string start(binarySentinel);
const auto text = CollectedGroup::ofText;
const auto real = CollectedGroup::ofReal;
const auto integer = CollectedGroup::ofInteger;
const Groups values = {text(0, "LINE"), real(40, 1.5),          integer(70, -2),  integer(290, 1),
                       integer(5, 0xA), text(1004, "\x01\xFF"), integer(1071, 7), text(0, "EOF")};
// 1.5 is 0x3FF8000000000000; all numbers have their low byte first.
const std::string wideFile = start + "\0\0LINE\0"s + "\x28\0\0\0\0\0\0\0\xF8\x3F"s + "\x46\0\xFE\xFF"s +
                             "\x22\x01\x01"s + "\x05\0A\0"s + "\xEC\x03\x02\x01\xFF"s +
                             "\x2F\x04\x07\0\0\0"s + "\0\0EOF\0"s;
const std::string narrowFile = start + "\0LINE\0"s + "\x28\0\0\0\0\0\0\xF8\x3F"s + "\x46\xFE\xFF"s +
                               "\xFF\x22\x01\x01"s +
                               "\x05"s
                               "A\0"s +
                               "\xFF\xEC\x03\x02\x01\xFF"s + "\xFF\x2F\x04\x07\0\0\0"s + "\0EOF\0"s;
} // namespace

TEST(BinaryReader, BothFormsOfCodesGiveTheSameGroups)
{
    EXPECT_EQ(groupsOf(wideFile), values);
    EXPECT_EQ(groupsOf(narrowFile), values);
}

TEST(BinaryWriter, WritesTheBytesOfTheFormat)
{
    for (const bool isWide : {true, false}) {
        const OpenedDrawing drawing = openDrawing(Input::ofBytes(isWide ? wideFile : narrowFile));
        ASSERT_EQ(drawing.status, OpenStatus::opened);
        EXPECT_EQ(toBinary(*drawing.reader, isWide), isWide ? wideFile : narrowFile);
    }
}

// 0x7F7F is no code; the reader finds the next record behind it.
TEST(BinaryReader, GoesOnWithTheNextRecordAfterAWrongCode)
{
    const std::string file = start + "\0\0LINE\0\x7F\x7F junk \0\0"s + "\0\0CIRCLE\0\0\0EOF\0"s;
    BinaryReader reader(Input::ofBytes(file));
    EXPECT_EQ(collect(reader), (Groups{text(0, "LINE"), text(0, "CIRCLE"), text(0, "EOF")}));
    ASSERT_EQ(reader.faults().count(), 1u);
    EXPECT_EQ(reader.faults().kept()[0].kind, FaultKind::badCode);
    EXPECT_EQ(reader.faults().kept()[0].position, start.size() + 7);
}

TEST(BinaryReader, FileCutAnywhereLosesTheLastGroupOnly)
{
    for (std::size_t size = start.size(); size < wideFile.size(); ++size) {
        BinaryReader reader(Input::ofBytes(wideFile.substr(0, size)), true);
        BinaryReader whole(Input::ofBytes(wideFile.substr(0, size)));
        const Groups groups = collect(whole);
        ASSERT_LT(groups.size(), values.size());
        EXPECT_TRUE(std::equal(groups.begin(), groups.end(), values.begin())) << size;
        EXPECT_EQ(whole.faults().kept().back().kind, FaultKind::noEnd);
    }
}

// Groups in memory, as an object that is kept unread has them: no sentinel, no end mark, no fault.
TEST(BinaryReader, ReadsGroupsWithoutAFileAroundThem)
{
    MemorySink sink;
    BinaryWriter writer(sink, TextEncoding(), true, BinaryWriter::Start::none);
    writer.text(1, L"\u4E2D\0x"s);
    writer.real(40, -0.0);
    ASSERT_TRUE(writer.finish());
    BinaryReader reader(Input::ofBytes(sink.bytes()), true);
    reader.setHeader(FileVersion::r2018, TextEncoding());
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.text(), L"\u4E2D\0x"s);
    EXPECT_EQ(collect(reader), Groups{real(40, -0.0)});
    EXPECT_EQ(reader.faults().count(), 0u);
}

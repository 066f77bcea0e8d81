#include "GroupTexts.h"

#include <cmath>
#include <limits>

using namespace dxf;
using namespace dxftest;

namespace
{
std::string written(UINT codePage, void (*write)(GroupWriter&))
{
    MemorySink sink;
    AsciiWriter writer(sink, TextEncoding(codePage));
    write(writer);
    writer.finish();
    return sink.bytes();
}

/// A sink that takes so many bytes and no more.
class FullSink final : public ByteSink
{
public:
    explicit FullSink(std::size_t room) : _room(room) {}
    bool append(std::string_view bytes) override
    {
        if (bytes.size() > _room) return false;
        _room -= bytes.size();
        return true;
    }

private:
    std::size_t _room;
};
} // namespace

TEST(AsciiWriter, WritesCodesInThreeColumns)
{
    EXPECT_EQ(written(1252,
                      [](GroupWriter& to) {
                          to.name(0, "LINE");
                          to.handle(5, 0x1af);
                          to.point(10, 0, -1.5, 1e-16);
                          to.integer(62, -7);
                          to.text(1000, L"\u00DF\n");
                          to.chunks(310, "\x01\xAB");
                      }),
              "  0\r\nLINE\r\n  5\r\n1AF\r\n 10\r\n0.0\r\n 20\r\n-1.5\r\n 30\r\n1e-16\r\n 62\r\n-7\r\n"
              "1000\r\n\xDF^J\r\n310\r\n01AB\r\n");
}

TEST(AsciiWriter, LineEndsInRawTextsCannotBreakTheFile)
{
    EXPECT_EQ(written(65001, [](GroupWriter& to) { to.group(Group::ofText(1, "a\r\nb"), to.encoding()); }),
              "  1\r\na^M^Jb\r\n");
}

// 300 bytes: 127 + 127 + 46.
TEST(GroupWriter, LongDataBecomesSeveralChunks)
{
    GroupCollector collector;
    collector.chunks(310, std::string(300, 'x'));
    ASSERT_EQ(collector.groups().size(), 3u);
    EXPECT_EQ(collector.groups()[0].text.size(), 127u);
    EXPECT_EQ(collector.groups()[2].text.size(), 46u);
}

TEST(GroupWriter, CodeDecidesTheFormOfANumber)
{
    GroupCollector collector;
    collector.real(62, 6.6);
    collector.integer(40, 3);
    EXPECT_EQ(collector.groups(), (Groups{CollectedGroup::ofInteger(62, 7), CollectedGroup::ofReal(40, 3)}));
    EXPECT_EQ(collector.faults().count(), 0u);
}

TEST(GroupWriter, WhatACodeCannotCarryIsNotWrittenAndNoted)
{
    GroupCollector collector;
    collector.text(40, L"x");
    collector.handle(62, 1);
    collector.name(5000, "x");
    collector.chunks(1, "x");
    EXPECT_TRUE(collector.groups().empty());
    EXPECT_EQ(collector.faults().count(), 4u);
    collector.real(40, std::nan(""));
    EXPECT_EQ(collector.groups(), Groups{CollectedGroup::ofReal(40, 0)});
    EXPECT_EQ(collector.faults().kept().back().kind, FaultKind::notFinite);
    EXPECT_EQ(collector.faults().kept().back().position, 5u);
}

TEST(GroupWriter, TextsAreRecodedBetweenFiles)
{
    GroupCollector utf8{TextEncoding()}, western{TextEncoding(1252)};
    const Group group = Group::ofText(1, "\xD6\xD0^J");
    utf8.group(group, TextEncoding(936));
    western.group(group, TextEncoding(936));
    EXPECT_EQ(utf8.groups()[0].text, "\xE4\xB8\xAD^J");
    EXPECT_EQ(western.groups()[0].text, "\\U+4E2D^J");
}

// A malformed value is the file's own: ASCII keeps it, the binary form cannot and says so.
TEST(GroupWriter, MalformedValuesStayWhereTheFormatAllows)
{
    AsciiReader reader(Input::ofBytes("62\nabc\n0\nEOF\n"));
    ASSERT_TRUE(reader.next());
    MemorySink ascii, binary;
    AsciiWriter text(ascii, TextEncoding());
    BinaryWriter bytes(binary, TextEncoding(), true, BinaryWriter::Start::none);
    text.group(reader.group(), reader.encoding());
    bytes.group(reader.group(), reader.encoding());
    text.finish();
    bytes.finish();
    EXPECT_EQ(ascii.bytes(), " 62\r\nabc\r\n");
    EXPECT_EQ(binary.bytes(), std::string("\x3E\0\0\0", 4));
    EXPECT_EQ(bytes.faults().kept().at(0).kind, FaultKind::malformedValue);
}

TEST(GroupWriter, RefusedBytesShowAtTheEnd)
{
    FullSink sink(1000);
    AsciiWriter writer(sink, TextEncoding());
    for (int i = 0; i < 100000; ++i)
        writer.real(40, i);
    EXPECT_FALSE(writer.finish());
}

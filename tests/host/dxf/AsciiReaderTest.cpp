#include "GroupTexts.h"

using namespace dxf;
using namespace dxftest;

namespace
{
struct ReadText {
    Groups groups;
    std::vector<FaultKind> faults;
    std::vector<std::size_t> lines;
};

ReadText read(std::string_view text)
{
    AsciiReader reader(Input::ofBytes(text));
    ReadText result;
    result.groups = collect(reader);
    for (const Fault& fault : reader.faults().kept()) {
        result.faults.push_back(fault.kind);
        result.lines.push_back(fault.position);
    }
    return result;
}

using Faults = std::vector<FaultKind>;
using Lines = std::vector<std::size_t>;
const auto text = CollectedGroup::ofText;
const auto real = CollectedGroup::ofReal;
const auto integer = CollectedGroup::ofInteger;
} // namespace

TEST(AsciiReader, AnyLineEndGivesTheSameGroups)
{
    const Groups expected = {text(0, "LINE"),   real(10, 1.5),  integer(62, 7),
                             integer(5, 0x1AF), text(1, " a "), text(0, "EOF")};
    const std::string lines[] = {"  0", "LINE", " 10", "1.5", " 62", "     7",
                                 "  5", "1af",  "1",   " a ", "0",   "EOF"};
    for (const std::string end : {"\n", "\r\n", "\r", "\r\r\n"})
        for (const std::string start : {"", "\xEF\xBB\xBF"}) {
            std::string file = start;
            for (const std::string& line : lines)
                file += line + end;
            EXPECT_EQ(read(file).groups, expected);
            EXPECT_EQ(read(file.substr(0, file.size() - end.size())).groups, expected) << "no final line end";
            EXPECT_TRUE(read(file).faults.empty());
        }
}

TEST(AsciiReader, BlanksAroundCodesNumbersAndNamesDoNotCount)
{
    const ReadText result = read("\t0 \n  SECTION \n 40\t\n\t 2.5 \n 70 \n 3\t\n 1\n x \n0\nEOF\n");
    EXPECT_EQ(result.groups,
              (Groups{text(0, "SECTION"), real(40, 2.5), integer(70, 3), text(1, " x "), text(0, "EOF")}));
    EXPECT_TRUE(result.faults.empty());
}

TEST(AsciiReader, NothingBehindTheEndMarkIsRead)
{
    EXPECT_EQ(read("0\nEOF\n0\nLINE\njunk").groups, Groups{text(0, "EOF")});
    EXPECT_EQ(read("0\nLINE\n\x1A"
                   "0\nEOF\n")
                  .groups,
              Groups{text(0, "LINE")});
}

TEST(AsciiReader, CommentsAreGivenOnlyWhenAskedFor)
{
    constexpr std::string_view file = "999\nby hand\n0\nEOF\n";
    EXPECT_EQ(read(file).groups, Groups{text(0, "EOF")});
    AsciiReader reader(Input::ofBytes(file));
    reader.setComments(true);
    EXPECT_EQ(collect(reader), (Groups{text(999, "by hand"), text(0, "EOF")}));
}

// Three lines are no codes: a word, a number above 1071, an empty line. Each costs itself only.
TEST(AsciiReader, LinesThatAreNoCodesAreLeftOut)
{
    const ReadText result = read("0\nLINE\nstray\n8\nA\n2000\n\n62\n1\n0\nEOF\n");
    EXPECT_EQ(result.groups, (Groups{text(0, "LINE"), text(8, "A"), integer(62, 1), text(0, "EOF")}));
    EXPECT_EQ(result.faults, (Faults{FaultKind::badCode, FaultKind::badCode, FaultKind::badCode}));
    EXPECT_EQ(result.lines, (Lines{3, 6, 7}));
}

TEST(AsciiReader, WrongNumbersAreMalformedAndKeepTheirText)
{
    AsciiReader reader(Input::ofBytes("40\n abc \n62\n\n5\nXYZ\n310\nABC\n40\n1.#INF\n0\nEOF\n"));
    for (const char* line : {"abc", "", "XYZ", "ABC", "1.#INF"}) {
        ASSERT_TRUE(reader.next());
        EXPECT_TRUE(reader.group().isMalformed());
        EXPECT_EQ(reader.group().text(), line);
        EXPECT_EQ(reader.group().real(), 0);
        EXPECT_EQ(reader.group().integer(), 0);
        EXPECT_EQ(reader.group().handle(), 0u);
    }
    EXPECT_EQ(faultKinds(reader.faults()),
              (Faults{FaultKind::badNumber, FaultKind::badNumber, FaultKind::badHandle, FaultKind::badChunk,
                      FaultKind::notFinite}));
}

TEST(AsciiReader, UsableNumbersAreUsedAndNoted)
{
    const ReadText result = read("40\n2.5 mm\n62\n7.9\n70\n70000\n290\n2\n0\nEOF\n");
    EXPECT_EQ(result.groups,
              (Groups{real(40, 2.5), integer(62, 7), integer(70, 70000), integer(290, 2), text(0, "EOF")}));
    EXPECT_EQ(result.faults, (Faults{FaultKind::numberRemainder, FaultKind::notAnInteger,
                                     FaultKind::outOfRange, FaultKind::outOfRange}));
    EXPECT_EQ(result.lines, (Lines{1, 3, 5, 7}));
}

// DIMBLK of R12 stands in group 5.
TEST(AsciiReader, BlockNameOfADimensionStyleIsNoFault)
{
    EXPECT_TRUE(read("0\nDIMSTYLE\n5\n\n0\nEOF\n").faults.empty());
    EXPECT_EQ(read("0\nDIMSTYLE\n105\n\n0\nLINE\n5\n\n0\nEOF\n").faults.size(), 2u);
}

TEST(AsciiReader, MissingEndIsNoted)
{
    EXPECT_EQ(read("0\nLINE\n8\n").faults, (Faults{FaultKind::loneCode, FaultKind::noEnd}));
    EXPECT_EQ(read("0\nLINE\n").faults, Faults{FaultKind::noEnd});
    AsciiReader reader(Input::ofBytes("0\nLINE"));
    EXPECT_TRUE(reader.next());
    EXPECT_FALSE(reader.next() || reader.next());
    EXPECT_EQ(reader.faults().count(), 1u);
}

TEST(AsciiReader, FaultsAreCountedBeyondThoseKept)
{
    std::string file;
    for (int i = 0; i < 5000; ++i)
        file += "x\n";
    AsciiReader reader(Input::ofBytes(file));
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.faults().count(), 5001u); // the missing end mark too
    EXPECT_EQ(reader.faults().kept().size(), FaultList::capacity);
}

TEST(GroupReader, StepsBackAndLooksAhead)
{
    AsciiReader reader(Input::ofBytes("0\nLINE\n8\nA\n0\nEOF\n"));
    ASSERT_TRUE(reader.next());
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.group().position(), 3u);
    reader.pushBack();
    EXPECT_EQ(reader.peek()->text(), "A");
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.text(), L"A");
    EXPECT_TRUE(reader.peek()->is(0, "EOF"));
    EXPECT_EQ(reader.group().text(), "A");
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.peek(), nullptr);
    EXPECT_FALSE(reader.next());
}

TEST(Group, ConvertsBetweenNumbersOnly)
{
    EXPECT_EQ(Group::ofReal(40, -2.7).integer(), -2);
    EXPECT_EQ(Group::ofReal(40, 1e300).integer(), 0);
    EXPECT_EQ(Group::ofInteger(62, 7).real(), 7.0);
    EXPECT_EQ(Group::ofHandle(5, 0x10).integer(), 0);
    EXPECT_EQ(Group::ofInteger(90, 16).handle(), 0u);
    EXPECT_FALSE(areSame(Group::ofReal(40, 0.0), Group::ofReal(40, -0.0)));
    AsciiReader reader(Input::ofBytes("310\n41ff\n"));
    ASSERT_TRUE(reader.next());
    EXPECT_TRUE(areSame(reader.group(), Group::ofChunk(310, "A\xFF")));
}

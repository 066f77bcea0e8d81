#include "GroupTexts.h"

#include <windows.h>

using namespace dxf;

namespace
{
OpenStatus statusOf(std::string_view bytes)
{
    return openDrawing(Input::ofBytes(bytes)).status;
}

std::string withHeader(const std::string& variables)
{
    return "0\nSECTION\n2\nHEADER\n" + variables + "0\nENDSEC\n0\nEOF\n";
}
} // namespace

TEST(OpenDrawing, TellsKindsOfFilesApart)
{
    EXPECT_EQ(statusOf(""), OpenStatus::empty);
    EXPECT_EQ(statusOf(" \r\n\n"), OpenStatus::empty);
    EXPECT_EQ(statusOf(std::string("AC1032\0\0\0\0", 10)), OpenStatus::binaryDwg);
    EXPECT_EQ(statusOf("AC2.10"), OpenStatus::binaryDwg);
    EXPECT_EQ(statusOf("%PDF-1.4\n1 0 obj\n"), OpenStatus::notDrawing);
    EXPECT_EQ(statusOf("ACADEMY\n"), OpenStatus::notDrawing);
    EXPECT_EQ(statusOf("0\nEOF\n"), OpenStatus::opened);
    EXPECT_EQ(statusOf("junk in front\n\n0\nSECTION\n2\nHEADER\n"), OpenStatus::opened);
    EXPECT_EQ(openDrawing(L"/no such folder/a.dxf").status, OpenStatus::notFound);
}

TEST(OpenDrawing, TakesVersionAndEncodingFromTheHeader)
{
    const auto open = [](const std::string& variables) {
        return openDrawing(Input::ofBytes(withHeader(variables)), 1251).reader;
    };
    const auto old = open("9\n$DWGCODEPAGE\n3\nansi_950\n9\n$ACADVER\n1\nAC1015\n");
    EXPECT_EQ(old->version(), FileVersion::r2000);
    EXPECT_EQ(old->encoding().codePage(), 950u);
    const auto young = open("9\n$ACADVER\n  1\nAC1032 \n9\n$DWGCODEPAGE\n3\nANSI_936\n");
    EXPECT_EQ(young->version(), FileVersion::r2018);
    EXPECT_EQ(young->encoding().codePage(), UINT(CP_UTF8));
    EXPECT_TRUE(young->next() && young->group().is(0, "SECTION")); // the header is still to be read
    const auto silent = open("");
    EXPECT_EQ(silent->version(), FileVersion::r12);
    EXPECT_EQ(silent->encoding().codePage(), 1251u);
    const auto strange = open("9\n$ACADVER\n1\nAC1015\n9\n$DWGCODEPAGE\n3\nJOHAB\n");
    EXPECT_EQ(strange->faults().kept().at(0).kind, FaultKind::unknownCodePage);
}

TEST(OpenDrawing, BinaryFileHasAHeaderToo)
{
    const auto ascii = openDrawing(Input::ofBytes(dxftest::smallDrawing()));
    for (const bool isWide : {true, false}) {
        const auto again = openDrawing(Input::ofBytes(dxftest::smallDrawing()));
        const auto binary = openDrawing(Input::ofBytes(dxftest::toBinary(*again.reader, isWide)));
        ASSERT_EQ(binary.status, OpenStatus::opened);
        EXPECT_TRUE(binary.reader->isBinary());
        EXPECT_EQ(binary.reader->version(), FileVersion::r2000);
        EXPECT_EQ(binary.reader->encoding(), ascii.reader->encoding());
    }
}

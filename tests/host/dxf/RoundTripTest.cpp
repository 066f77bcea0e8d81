#include "../DrawingFolder.h"
#include "SavedDrawing.h"

#include <fstream>

#include "DrawingContents.h"
#include "DrawingFile.h"
#include "dbdatabase.h"

using namespace dxf;
using namespace dxftest;

namespace
{
namespace fs = std::filesystem;

DrawingContents contentsOf(const fs::path& path)
{
    const OpenedDrawing opened = openDrawing(path.wstring());
    EXPECT_EQ(opened.status, OpenStatus::opened) << path;
    return opened.reader ? DrawingContents::of(*opened.reader) : DrawingContents();
}

std::string bytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Opens a drawing and saves it.
void resave(const fs::path& from, const fs::path& to, const WriteOptions& options)
{
    AcDbDatabase database(false);
    RepairReport report;
    ASSERT_EQ(readDrawing(database, from.wstring(), report), Acad::eOk);
    EXPECT_TRUE(report.isEmpty()) << textOf(report.kept().front());
    ASSERT_EQ(writeDrawing(database, to.wstring(), options), Acad::eOk);
}

WriteOptions withVersion(FileVersion version)
{
    WriteOptions options;
    options.version = version;
    return options;
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

class RoundTrip : public testing::TestWithParam<fs::path>
{
protected:
    void SetUp() override
    {
        if (GetParam().empty()) GTEST_SKIP() << "no drawings in " << sharedFolder();
        const OpenedDrawing opened = openDrawing(GetParam().wstring());
        ASSERT_EQ(opened.status, OpenStatus::opened);
        version = opened.reader->version();
        before = contentsOf(GetParam());
    }

    void expectNothingLost(const fs::path& after) const
    {
        const DrawingContents now = contentsOf(after);
        EXPECT_EQ(now.entityCounts, before.entityCounts);
        if (version < FileVersion::r2000) return;
        EXPECT_EQ(joined(lostBetween(before, now)), "");
    }

    OutputFolder folder;
    FileVersion version = FileVersion::r12;
    DrawingContents before;
};
} // namespace

TEST_P(RoundTrip, SavingAsR2018LosesNothing)
{
    const fs::path saved = folder.file("saved.dxf");
    ASSERT_NO_FATAL_FAILURE(resave(GetParam(), saved, {}));
    expectNothingLost(saved);
    expectSound(saved);
}

TEST_P(RoundTrip, SavingInItsOwnVersionLosesNothing)
{
    if (version < FileVersion::r2000) GTEST_SKIP() << "versions before R2000 are not written";
    const fs::path saved = folder.file("saved.dxf");
    ASSERT_NO_FATAL_FAILURE(resave(GetParam(), saved, withVersion(version)));
    expectNothingLost(saved);
}

TEST_P(RoundTrip, SavedDrawingIsSavedAgainByteForByte)
{
    const fs::path once = folder.file("once.dxf"), twice = folder.file("twice.dxf");
    ASSERT_NO_FATAL_FAILURE(resave(GetParam(), once, {}));
    ASSERT_NO_FATAL_FAILURE(resave(once, twice, {}));
    EXPECT_TRUE(bytesOf(once) == bytesOf(twice));
}

TEST_P(RoundTrip, BinaryFileHoldsTheSame)
{
    const fs::path ascii = folder.file("ascii.dxf"), binary = folder.file("binary.dxf"), back = folder.file("back.dxf");
    WriteOptions asBinary;
    asBinary.isBinary = true;
    ASSERT_NO_FATAL_FAILURE(resave(GetParam(), ascii, {}));
    ASSERT_NO_FATAL_FAILURE(resave(GetParam(), binary, asBinary));
    ASSERT_NO_FATAL_FAILURE(resave(binary, back, {}));
    EXPECT_TRUE(bytesOf(ascii) == bytesOf(back));
}

INSTANTIATE_TEST_SUITE_P(Shared, RoundTrip, testing::ValuesIn(drawingsIn({sharedFolder()})), testName);
INSTANTIATE_TEST_SUITE_P(Samples, RoundTrip, testing::ValuesIn(drawingsIn({QM_SAMPLE_DRAWINGS})), testName);

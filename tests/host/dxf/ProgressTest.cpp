/// What opening and saving tell the progress meter.

#include "dbapserv.h"
#include "dbdatabase.h"
#include "DrawingFile.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{
class Meter : public AcDbHostApplicationProgressMeter
{
public:
    Meter() { acdbHostApplicationServices()->setWorkingProgressMeter(this); }
    ~Meter() override { acdbHostApplicationServices()->setWorkingProgressMeter(nullptr); }
    void start(const ACHAR* displayString) override { heard += std::wstring(displayString) + L" "; }
    void stop() override { heard += L"stop "; }
    void meterProgress() override { ++steps; }
    void setLimit(int max) override { limit = max; }

    std::wstring heard;
    int limit = 0, steps = 0;
};
} // namespace

TEST(ProgressMeter, HearsOfOpeningAndSavingUpToTheirLimit)
{
    const std::wstring copy = (std::filesystem::temp_directory_path() / "progress.dxf").wstring();
    Meter meter;
    AcDbDatabase database(false);
    dxf::RepairReport report;
    const std::filesystem::path sample = std::filesystem::path(QM_SAMPLE_DRAWINGS) / "rooms.dxf";
    ASSERT_EQ(dxf::readDrawing(database, sample.wstring(), report), Acad::eOk);
    EXPECT_EQ(meter.heard, L"Opening stop ");
    EXPECT_EQ(meter.limit, 100);
    // The last record begins close to the end of the file.
    EXPECT_GE(meter.steps, 98);
    EXPECT_LE(meter.steps, 100);
    meter.heard.clear();
    meter.steps = 0;
    ASSERT_EQ(dxf::writeDrawing(database, copy, {}), Acad::eOk);
    EXPECT_EQ(meter.heard, L"Saving stop ");
    EXPECT_GT(meter.steps, 0);
    EXPECT_LE(meter.steps, meter.limit);
    std::filesystem::remove(copy);
}

TEST(ProgressMeter, HearsTheEndOfAFileThatIsRefused)
{
    Meter meter;
    AcDbDatabase database(false);
    dxf::RepairReport report;
    EXPECT_NE(
        dxf::readDrawing(database, dxf::openDrawing(dxf::Input::ofBytes("  0\nJUNK\n  0\nEOF\n")), report),
        Acad::eOk);
    EXPECT_EQ(meter.heard, L"Opening stop ");
}

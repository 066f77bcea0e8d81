#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Behind <filesystem>, whose paths would be Windows' own behind <windows.h>.
#include "DrawingFile.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbline.h"

using namespace dxf;

namespace
{
namespace fs = std::filesystem;

class DrawingFileTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string name = (fs::temp_directory_path() / "files-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
    }
    void TearDown() override { fs::remove_all(folder); }

    std::wstring path(const char* name) const { return (folder / name).wstring(); }
    std::string bytesOf(const char* name) const
    {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::wstring write(const char* name, const std::string& bytes) const
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return path(name);
    }

    fs::path folder;
};

void addLines(AcDbDatabase& database, int count)
{
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, database.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    for (int i = 0; i < count; ++i) {
        auto* line = new AcDbLine({i * 1.0, 0.0, 0.0}, {i * 1.0, 10.0, 0.0});
        EXPECT_EQ(space->appendAcDbEntity(line), Acad::eOk);
        line->close();
    }
    space->close();
}

std::size_t countOfModelSpace(AcDbDatabase& database)
{
    AcDbBlockTableRecord* space = nullptr;
    EXPECT_EQ(acdbOpenObject(space, database.modelSpaceId(), AcDb::kForRead), Acad::eOk);
    const std::size_t count = space->entityIds().size();
    space->close();
    return count;
}

const std::string emptySections = "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";

/// The codes of what reading a file repaired.
std::vector<RepairCode> repairsOf(const std::string& file, AcDbDatabase& database)
{
    RepairReport report;
    EXPECT_EQ(readDrawing(database, openDrawing(Input::ofBytes(file)), report), Acad::eOk);
    std::vector<RepairCode> codes;
    for (const Repair& repair : report.kept()) codes.push_back(repair.code);
    return codes;
}

std::string entities(const std::string& records)
{
    return "0\nSECTION\n2\nENTITIES\n" + records + "0\nENDSEC\n0\nEOF\n";
}
} // namespace

TEST_F(DrawingFileTest, NewDrawingIsReadBackWithWhatWasAdded)
{
    AcDbDatabase drawing;
    addLines(drawing, 3);
    ASSERT_EQ(drawing.setLtscale(2.5), Acad::eOk);
    ASSERT_EQ(drawing.saveAs(path("new.dxf").c_str()), Acad::eOk);
    AcDbDatabase again(false);
    ASSERT_EQ(again.readDwgFile(path("new.dxf").c_str()), Acad::eOk);
    EXPECT_FALSE(again.needsRecovery());
    EXPECT_EQ(countOfModelSpace(again), 3u);
    EXPECT_EQ(again.ltscale(), 2.5);
    EXPECT_EQ(again.handseed(), drawing.handseed());
    EXPECT_EQ(again.originalFileVersion(), AcDb::kDHL_1032);
    EXPECT_EQ(again.approxNumObjects(), drawing.approxNumObjects());
}

TEST_F(DrawingFileTest, StatusTellsWhyAFileCannotBeRead)
{
    AcDbDatabase drawing(false);
    EXPECT_EQ(drawing.readDwgFile(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(drawing.readDwgFile(path("none.dxf").c_str()), Acad::eFileNotFound);
    const std::wstring dwg = write("binary.dwg", std::string("AC1032\0\0\0", 9));
    EXPECT_EQ(drawing.readDwgFile(dwg.c_str()), Acad::eInvalidDwgVersion);
    EXPECT_EQ(drawing.readDwgFile(write("text.dxf", "a letter\nto someone\n").c_str()), Acad::eBadDxfSequence);
    EXPECT_EQ(drawing.readDwgFile(write("nothing.dxf", "0\nEOF\n").c_str()), Acad::eBadDxfSequence);
    EXPECT_EQ(drawing.readDwgFile(write("good.dxf", emptySections).c_str()), Acad::eOk);
    EXPECT_EQ(drawing.readDwgFile(path("good.dxf").c_str()), Acad::eInvalidInput) << "filled already";
}

TEST_F(DrawingFileTest, StatusTellsWhyADrawingCannotBeSaved)
{
    AcDbDatabase drawing;
    EXPECT_EQ(drawing.saveAs(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(drawing.save(), Acad::eInvalidInput) << "has no name";
    EXPECT_EQ(drawing.saveAs((folder / "none" / "a.dxf").wstring().c_str()), Acad::eFileNotFound);
    EXPECT_EQ(drawing.saveAs(path("old.dxf").c_str(), false, AcDb::kDHL_1009), Acad::eInvalidDwgVersion);
    EXPECT_FALSE(fs::exists(folder / "old.dxf"));
}

TEST_F(DrawingFileTest, SaveKeepsTheOldFileAsBackup)
{
    AcDbDatabase drawing(false);
    ASSERT_EQ(drawing.readDwgFile(write("plan.dxf", emptySections).c_str()), Acad::eOk);
    ASSERT_EQ(drawing.save(), Acad::eOk);
    EXPECT_EQ(bytesOf("plan.bak"), emptySections);
    EXPECT_NE(bytesOf("plan.dxf"), emptySections);
}

TEST_F(DrawingFileTest, LogTellsWhatWasRepaired)
{
    AcDbDatabase drawing(false);
    const std::wstring file = write("plan.dxf", entities("0\nLINE\n5\n1A\n8\nWalls\n0\nLINE\n5\n1A\n8\n0\n"));
    ASSERT_EQ(drawing.dxfIn(file.c_str(), path("log.txt").c_str()), Acad::eOk);
    EXPECT_TRUE(drawing.needsRecovery());
    EXPECT_EQ(bytesOf("log.txt"), "line 11: LINE 1A: the handle was taken: a new one was given (duplicateHandle)\r\n"
                                  "LAYER Walls is not defined: it was made (undefinedName)\r\n2 repaired\r\n");
}

TEST_F(DrawingFileTest, DamageIsRepairedAndReported)
{
    using Codes = std::vector<RepairCode>;
    const std::pair<std::string, Codes> cases[] = {
        {"0\nLINE\n10\nx\n", {RepairCode::badGroup}},
        {"0\nPOLYLINE\n8\n0\n66\n1\n0\nVERTEX\n8\n0\n", {RepairCode::noBlockEnd}},
        {"0\nLINE\n5\nFFFFFFFFFFFFFFFF\n", {}},
        {"0\nLINE\n100\nAcDbEntity\n8\n0\n10\n5.0\n", {RepairCode::missingSection}},
    };
    for (const auto& [records, codes] : cases) {
        AcDbDatabase drawing(false);
        EXPECT_EQ(repairsOf(entities(records), drawing), codes) << records;
        EXPECT_EQ(countOfModelSpace(drawing), 1u) << records;
    }
}

TEST_F(DrawingFileTest, EntityBehindNoSectionIsReported)
{
    AcDbDatabase drawing(false);
    EXPECT_EQ(repairsOf(emptySections.substr(0, emptySections.size() - 6) + "0\nLINE\n8\n0\n0\nEOF\n", drawing),
              std::vector<RepairCode>{RepairCode::strayRecord});
}

TEST_F(DrawingFileTest, KilledProgramLeavesTheOldOrTheNewDrawing)
{
    AcDbDatabase drawing;
    addLines(drawing, 2000);
    ASSERT_EQ(drawing.saveAs(path("new.dxf").c_str()), Acad::eOk);
    const std::string whole = bytesOf("new.dxf");
    std::mt19937 random(5);
    for (int i = 0; i < 100; ++i) {
        write("plan.dxf", emptySections);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) drawing.saveAs(path("plan.dxf").c_str());
        }
        usleep(random() % 20000);
        ASSERT_EQ(kill(child, SIGKILL), 0);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const std::string left = bytesOf("plan.dxf");
        ASSERT_TRUE(left == emptySections || left == whole) << left.size() << " bytes after kill " << i;
    }
}

TEST_F(DrawingFileTest, FullDiskLeavesTheOldDrawing)
{
    AcDbDatabase drawing;
    addLines(drawing, 20000);
    const std::wstring target = write("plan.dxf", emptySections);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1 << 20, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const Acad::ErrorStatus status = drawing.saveAs(target.c_str());
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(status, Acad::eOutOfDisk);
    EXPECT_EQ(bytesOf("plan.dxf"), emptySections);
}

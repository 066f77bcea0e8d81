/// Whole drawings copied into others: what the files of both hold.

#include "../DrawingFolder.h"
#include "SavedDrawing.h"

#include "dbblkref.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "DrawingContents.h"
#include "DrawingFile.h"

using namespace dxf;
using namespace dxftest;

namespace
{
namespace fs = std::filesystem;

DrawingContents savedContents(AcDbDatabase& database, const fs::path& path)
{
    EXPECT_EQ(writeDrawing(database, path.wstring(), {}), Acad::eOk);
    const OpenedDrawing opened = openDrawing(path.wstring());
    return opened.reader ? DrawingContents::of(*opened.reader) : DrawingContents();
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
}

std::size_t livingIn(AcDbObjectId block)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> opened(block);
    const std::vector<AcDbObjectId>& ids = opened->entityIds();
    return static_cast<std::size_t>(
        std::count_if(ids.begin(), ids.end(), [](AcDbObjectId id) { return !id.isErased(); }));
}

class CopiedDrawing : public testing::TestWithParam<fs::path>
{
protected:
    void SetUp() override
    {
        if (GetParam().empty()) GTEST_SKIP() << "no drawings in " << sharedFolder();
        ASSERT_EQ(mSource.readDwgFile(GetParam().wstring().c_str()), Acad::eOk);
    }

    AcDbDatabase mSource{false, true};
    OutputFolder mFolder;
};
} // namespace

TEST_P(CopiedDrawing, WholeHoldsNothingElseAndEveryEntity)
{
    AcDbDatabase* made = nullptr;
    ASSERT_EQ(mSource.wblock(made), Acad::eOk);
    const std::unique_ptr<AcDbDatabase> owned(made);
    const DrawingContents before = savedContents(mSource, mFolder.file("before.dxf"));
    const fs::path path = mFolder.file("copy.dxf");
    const DrawingContents copy = savedContents(*made, path);
    EXPECT_EQ(copy.entityCounts, before.entityCounts);
    EXPECT_EQ(joined(lostBetween(copy, before)), "") << "the copy has what the original has not";
    expectSound(path);
}

TEST_P(CopiedDrawing, InsertedIsABlockOfAllItsEntities)
{
    AcDbDatabase target;
    AcDbObjectId id;
    ASSERT_EQ(target.insert(id, L"inserted", &mSource), Acad::eOk);
    EXPECT_EQ(livingIn(id), livingIn(mSource.modelSpaceId()));
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(target.modelSpaceId(), AcDb::kForWrite);
        AcDbObjectPointer<AcDbBlockReference> reference(new AcDbBlockReference({1, 2, 0}, id));
        ASSERT_EQ(space->appendAcDbEntity(reference.object()), Acad::eOk);
    }
    const fs::path path = mFolder.file("inserted.dxf");
    savedContents(target, path);
    expectSound(path);
}

INSTANTIATE_TEST_SUITE_P(Shared, CopiedDrawing, testing::ValuesIn(drawingsIn({sharedFolder()})), testName);
INSTANTIATE_TEST_SUITE_P(Samples, CopiedDrawing, testing::ValuesIn(drawingsIn({QM_SAMPLE_DRAWINGS})), testName);

TEST(NewDrawing, HoldsWhatReadersExpectInEveryVersion)
{
    OutputFolder folder;
    AcDbDatabase database;
    struct Expected {
        FileVersion version;
        std::map<std::string, int> records;
    };
    // Records of classes that a version does not know are left out.
    const Expected all[] = {
        {FileVersion::r2018,
         {{"MATERIAL", 3}, {"VISUALSTYLE", 24}, {"TABLESTYLE", 1}, {"MLEADERSTYLE", 1}, {"ACDBDETAILVIEWSTYLE", 1}, {"SCALE", 17}}},
        {FileVersion::r2010,
         {{"MATERIAL", 3}, {"VISUALSTYLE", 0}, {"TABLESTYLE", 1}, {"MLEADERSTYLE", 1}, {"ACDBDETAILVIEWSTYLE", 0}, {"SCALE", 17}}},
        {FileVersion::r2000,
         {{"MATERIAL", 0}, {"VISUALSTYLE", 0}, {"TABLESTYLE", 0}, {"MLEADERSTYLE", 0}, {"ACDBDETAILVIEWSTYLE", 0}, {"SCALE", 0}}},
    };
    for (const Expected& expected : all) {
        const fs::path path = folder.file("new.dxf");
        WriteOptions options;
        options.version = expected.version;
        ASSERT_EQ(writeDrawing(database, path.wstring(), options), Acad::eOk);
        expectSound(path);
        const OpenedDrawing opened = openDrawing(path.wstring());
        ASSERT_TRUE(opened.reader);
        std::map<std::string, int> found;
        for (const auto& [handle, object] : DrawingContents::of(*opened.reader).objects)
            ++found[object.name];
        for (const auto& [name, count] : expected.records)
            EXPECT_EQ(found[name], count) << name << " in " << nameOf(expected.version);
    }
}

TEST(NewDrawing, KnowsWhenItWasMadeAndIsNoOther)
{
    OutputFolder folder;
    AcDbDatabase first, second;
    const DrawingContents one = savedContents(first, folder.file("a.dxf")), other = savedContents(second, folder.file("b.dxf"));
    for (const char* guid : {"$FINGERPRINTGUID", "$VERSIONGUID"}) {
        ASSERT_EQ(one.header.at(guid).size(), 1u);
        EXPECT_NE(*one.header.at(guid).begin(), *other.header.at(guid).begin());
    }
    // 2459000 is a day of 2020; dates are Julian days.
    const std::string created = *one.header.at("$TDUCREATE").begin();
    EXPECT_GT(std::stod(created.substr(created.find_first_of(" :=") + 1)), 2459000.0) << created;
}

#include "../dxf/SavedDrawing.h"

#include "DatabaseFixture.h"
#include "Drawn.h"
#include "PictureHeader.h"
#include "RecordLists.h"
#include "acutads.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "dbwipe.h"
#include "imgdef.h"
#include "imgent.h"
#include "imgvars.h"

#include <cmath>
#include <fstream>

namespace
{
AcGePoint2dArray pixels(std::initializer_list<AcGePoint2d> list)
{
    AcGePoint2dArray points;
    for (const AcGePoint2d& point : list)
        points.append(point);
    return points;
}

std::vector<AcGePoint3d> vertices(const AcDbRasterImage& image)
{
    AcGePoint3dArray points;
    EXPECT_EQ(image.getVertices(points), Acad::eOk);
    return {points.begin(), points.end()};
}

class RasterImage : public DatabaseFixture
{
protected:
    /// A definition of a PNG file of 4 by 2 pixels; only the head of the file is there.
    AcDbObjectId addDefinition(const std::filesystem::path& file)
    {
        std::ofstream(file, std::ios::binary)
            << std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x04\0\0\0\x02\x08\x02\0\0\0", 29);
        AcDbObjectId dictionaryId, id;
        EXPECT_EQ(AcDbRasterImageDef::createImageDictionary(&mDatabase, dictionaryId), Acad::eOk);
        const AcDbDictionaryPointer dictionary(dictionaryId, AcDb::kForWrite);
        auto* definition = new AcDbRasterImageDef;
        EXPECT_EQ(definition->setSourceFileName(file.wstring().c_str()), Acad::eOk);
        ACHAR* name = nullptr;
        EXPECT_EQ(AcDbRasterImageDef::suggestName(dictionary.object(), file.wstring().c_str(), name), Acad::eOk);
        EXPECT_EQ(dictionary->setAt(name, definition, id), Acad::eOk);
        acutDelString(name);
        definition->close();
        return id;
    }
    AcDbObjectId addImage(AcDbObjectId definition)
    {
        auto* image = new AcDbRasterImage;
        EXPECT_EQ(image->setImageDefId(definition), Acad::eOk);
        EXPECT_EQ(image->setOrientation({10, 20, 0}, {8, 0, 0}, {0, 4, 0}), Acad::eOk);
        const AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, &mDatabase, AcDb::kForWrite);
        AcDbObjectId id, reactorId;
        EXPECT_EQ(space->appendAcDbEntity(id, image), Acad::eOk);
        auto* reactor = new AcDbRasterImageDefReactor(id);
        EXPECT_EQ(mDatabase.addAcDbObject(reactorId, reactor, id), Acad::eOk);
        reactor->close();
        image->setReactorId(reactorId);
        image->close();
        return id;
    }

    dxftest::OutputFolder folder;
};
} // namespace

TEST(PictureHeaders, SizesAreReadFromTheFirstBytes)
{
    struct Case {
        PictureHeader::Kind kind;
        std::string bytes;
    };
    using Kind = PictureHeader::Kind;
    // Each of them 258 by 3 (0x0102, 0x0003).
    const Case cases[] = {
        {Kind::png, std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\1\2\0\0\0\3", 24)},
        {Kind::jpeg, std::string("\xFF\xD8\xFF\xE0\0\4ab\xFF\xC2\0\x11\x08\0\3\1\2", 17)},
        {Kind::gif, std::string("GIF89a\2\1\3\0", 10)},
        {Kind::bmp, std::string("BM\0\0\0\0\0\0\0\0\0\0\0\0\x28\0\0\0\2\1\0\0\xFD\xFF\xFF\xFF", 26)},
    };
    for (const Case& test : cases) {
        const auto* bytes = reinterpret_cast<const unsigned char*>(test.bytes.data());
        const PictureHeader header = pictureHeaderOf(bytes, test.bytes.size());
        EXPECT_EQ(header.kind, test.kind);
        EXPECT_EQ(header.width, 258);
        EXPECT_EQ(header.height, 3);
        for (std::size_t size = 0; size < test.bytes.size(); ++size)
            EXPECT_EQ(pictureHeaderOf(bytes, size).kind, Kind::unknown) << "cut off after " << size;
    }
}

TEST_F(RasterImage, DefinitionKnowsItsFileAndImagesTakeItsSize)
{
    const AcDbObjectId id = addDefinition(folder.file("plan.png"));
    const AcDbObjectPointer<AcDbRasterImageDef> definition(id);
    EXPECT_TRUE(definition->isLoaded());
    EXPECT_EQ(definition->size(), AcGeVector2d(4, 2));
    EXPECT_EQ(AcDbRasterImageDef::imageDictionary(&mDatabase), definition->ownerId());
    const AcDbObjectId first = addImage(id);
    addImage(id);
    EXPECT_EQ(definition->entityCount(), 2);
    const AcDbObjectPointer<AcDbRasterImage> image(first);
    EXPECT_EQ(image->imageSize(), AcGeVector2d(4, 2));
    EXPECT_EQ(image->scale(), AcGeVector2d(2, 2));
    AcDbRasterImageDef missing;
    EXPECT_EQ(missing.setSourceFileName(L"nowhere.png"), Acad::eOk);
    EXPECT_EQ(missing.load(), Acad::eFileNotFound);
    EXPECT_FALSE(missing.isLoaded());
}

TEST_F(RasterImage, PixelsRunDownFromTheUpperLeftCorner)
{
    AcDbRasterImage image;
    ASSERT_EQ(image.setImageDefId(addDefinition(folder.file("plan.png"))), Acad::eOk);
    ASSERT_EQ(image.setOrientation({10, 20, 0}, {8, 0, 0}, {0, 4, 0}), Acad::eOk);
    AcGeMatrix3d map;
    image.getPixelToModelTransform(map);
    // The picture is 4 by 2 pixels of 2 units; its upper left pixel has its middle at (11, 23).
    EXPECT_TRUE((map * AcGePoint3d::kOrigin).isEqualTo({11, 23, 0}));
    EXPECT_TRUE((map * AcGePoint3d(3, 1, 0)).isEqualTo({17, 21, 0}));
    EXPECT_EQ(image.setOrientation({0, 0, 0}, {1, 0, 0}, {2, 0, 0}), Acad::eInvalidInput);
    EXPECT_EQ(image.setOrientation({0, 0, 0}, {std::nan(""), 0, 0}, {0, 1, 0}), Acad::eInvalidInput);
    EXPECT_EQ(image.setFade(101), Acad::eInvalidInput);
}

TEST_F(RasterImage, BoundaryCutsFrameAndExtents)
{
    AcDbRasterImage image;
    image.setImageDefId(addDefinition(folder.file("plan.png")));
    image.setOrientation({0, 0, 0}, {8, 0, 0}, {0, 4, 0});
    EXPECT_FALSE(image.isClipped());
    EXPECT_EQ(vertices(image).size(), 4u);
    // The right half of the picture.
    EXPECT_EQ(image.setClipBoundary(AcDbRasterImage::kRect, pixels({{1.5, -0.5}, {3.5, 1.5}})), Acad::eOk);
    EXPECT_TRUE(image.isClipped());
    AcDbExtents box;
    ASSERT_EQ(image.getGeomExtents(box), Acad::eOk);
    EXPECT_TRUE(box.minPoint().isEqualTo({4, 0, 0}));
    EXPECT_TRUE(box.maxPoint().isEqualTo({8, 4, 0}));
    const AcGePoint2dArray triangle = pixels({{-0.5, -0.5}, {3.5, -0.5}, {-0.5, 1.5}, {-0.5, -0.5}});
    EXPECT_EQ(image.setClipBoundary(AcDbRasterImage::kPoly, triangle), Acad::eOk);
    EXPECT_EQ(vertices(image).size(), 3u);
    EXPECT_EQ(image.setClipBoundary(AcDbRasterImage::kPoly, pixels({{0, 0}, {1, 1}, {2, 0}})), Acad::eInvalidInput)
        << "not closed";
    EXPECT_EQ(image.setClipBoundaryToWholeImage(), Acad::eOk);
    EXPECT_FALSE(image.isClipped());
}

TEST_F(RasterImage, FilesKeepEverythingAndOtherReadersAgree)
{
    const AcDbObjectId definition = addDefinition(folder.file("plan.png"));
    const AcDbObjectId id = addImage(definition);
    {
        const AcDbObjectPointer<AcDbRasterImage> image(id, AcDb::kForWrite);
        image->setClipBoundary(AcDbRasterImage::kRect, pixels({{0.5, 0.5}, {2.5, 1.5}}));
        image->setFade(30);
        AcDbRasterVariables* variables = nullptr;
        ASSERT_EQ(AcDbRasterVariables::openRasterVariables(variables, AcDb::kForWrite, &mDatabase), Acad::eOk);
        variables->setImageFrame(AcDbRasterVariables::kImageFrameOff);
        variables->close();
    }
    const std::filesystem::path file = folder.file("image.dxf");
    ASSERT_EQ(mDatabase.saveAs(file.wstring().c_str()), Acad::eOk);
    dxftest::expectSound(file);
    AcDbDatabase read(false);
    ASSERT_EQ(read.readDwgFile(file.wstring().c_str()), Acad::eOk);
    EXPECT_FALSE(read.needsRecovery());
    AcDbObjectId again;
    ASSERT_EQ(read.getAcDbObjectId(again, false, id.handle()), Acad::eOk);
    const AcDbObjectPointer<AcDbRasterImage> image(again), before(id);
    ASSERT_EQ(image.openStatus(), Acad::eOk);
    EXPECT_EQ(textOf(written(*image.object())), textOf(written(*before.object())));
    EXPECT_EQ(image->fade(), 30);
    EXPECT_FALSE(image->reactorId().isNull());
    const AcDbObjectPointer<AcDbRasterImageDef> picture(image->imageDefId());
    EXPECT_EQ(picture->size(), AcGeVector2d(4, 2));
}

TEST_F(RasterImage, AMissingPictureShowsItsFrameAndName)
{
    AcDbObjectId id = addImage(addDefinition(folder.file("plan.png")));
    std::filesystem::remove(folder.file("plan.png"));
    const AcDbObjectPointer<AcDbRasterImage> image(id);
    const DrawnPicture drawn(*image.object());
    EXPECT_EQ(drawn.shapes.lines.size(), 4u);
    ASSERT_EQ(drawn.shapes.texts.size(), 1u);
    EXPECT_EQ(drawn.shapes.texts[0], L"plan.png");
}

TEST_F(RasterImage, CornersScaleAboutTheOppositeOne)
{
    AcDbRasterImage image;
    image.setOrientation({0, 0, 0}, {8, 0, 0}, {0, 4, 0});
    AcGePoint3dArray grips;
    AcDbIntArray modes, ids, second;
    image.getGripPoints(grips, modes, ids);
    for (int i = 0; i < 4; ++i) {
        if (grips[i].isEqualTo({8, 4, 0})) second.append(i);
    }
    ASSERT_EQ(second.length(), 1);
    EXPECT_EQ(image.moveGripPointsAt(second, {8, 4, 0}), Acad::eOk);
    AcGePoint3d origin;
    AcGeVector3d u, v;
    image.getOrientation(origin, u, v);
    EXPECT_TRUE(origin.isEqualTo({0, 0, 0}));
    EXPECT_TRUE(u.isEqualTo({16, 0, 0}) && v.isEqualTo({0, 8, 0}));
}

TEST(Wipeout, HidesAPolygonInAnyPlane)
{
    AcGePoint3dArray corners;
    for (const AcGePoint3d& corner : {AcGePoint3d(1, 5, 1), AcGePoint3d(4, 5, 1), AcGePoint3d(4, 5, 9)})
        corners.append(corner);
    AcDbWipeout wipeout;
    ASSERT_EQ(wipeout.setFromPolygon(corners, AcGeVector3d::kYAxis), Acad::eOk);
    const std::vector<AcGePoint3d> frame = vertices(wipeout);
    ASSERT_EQ(frame.size(), 3u);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(frame[static_cast<std::size_t>(i)].isEqualTo(corners[i])) << i;
    const DrawnPicture drawn(wipeout);
    EXPECT_EQ(drawn.shapes.areas, 1);
    EXPECT_EQ(drawn.shapes.lines.size(), 3u);
    corners.removeLast();
    EXPECT_EQ(wipeout.setFromPolygon(corners), Acad::eInvalidInput);
}

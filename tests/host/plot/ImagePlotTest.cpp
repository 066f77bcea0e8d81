#include "DrawingFixture.h"

#include "dbdict.h"
#include "dbwipe.h"
#include "imgdef.h"
#include "imgent.h"

namespace
{
class ImagePlot : public DrawingFixture
{
protected:
    /// A picture of 2 by 2 pixels: red and green above, blue and half clear black below.
    AcDbObjectId addPicture()
    {
        const std::filesystem::path file = folder / "picture.png";
        cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 2, 2);
        auto* row = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface));
        row[0] = 0xFFFF0000;
        row[1] = 0xFF00FF00;
        row += cairo_image_surface_get_stride(surface) / 4;
        row[0] = 0xFF0000FF;
        row[1] = 0x00000000;
        cairo_surface_mark_dirty(surface);
        cairo_surface_write_to_png(surface, file.c_str());
        cairo_surface_destroy(surface);
        AcDbObjectId dictionaryId, id;
        AcDbRasterImageDef::createImageDictionary(&database, dictionaryId);
        const AcDbDictionaryPointer dictionary(dictionaryId, AcDb::kForWrite);
        auto* definition = new AcDbRasterImageDef;
        EXPECT_EQ(definition->setSourceFileName(file.wstring().c_str()), Acad::eOk);
        EXPECT_EQ(dictionary->setAt(L"picture", definition, id), Acad::eOk);
        definition->close();
        return id;
    }
};
} // namespace

TEST_F(ImagePlot, PixelsLieWhereTheImageSays)
{
    auto image = std::make_unique<AcDbRasterImage>();
    image->setImageDefId(addPicture());
    // From (20, 20) to (80, 60).
    image->setOrientation({20, 20, 0}, {60, 0, 0}, {0, 40, 0});
    add(std::move(image));
    plotModel();
    EXPECT_EQ(at(30, 55), red);
    EXPECT_EQ(at(70, 55), green);
    EXPECT_EQ(at(30, 25), blue);
    EXPECT_EQ(at(70, 25), white);
    EXPECT_EQ(at(30, 70), white);
}

TEST_F(ImagePlot, BoundariesCutPicturesAndWipeoutsHide)
{
    auto image = std::make_unique<AcDbRasterImage>();
    image->setImageDefId(addPicture());
    image->setOrientation({20, 20, 0}, {60, 0, 0}, {0, 40, 0});
    AcGePoint2dArray left;
    left.append(AcGePoint2d(-0.5, -0.5));
    left.append(AcGePoint2d(0.5, 1.5));
    image->setClipBoundary(AcDbRasterImage::kRect, left);
    add(std::move(image));
    AcGePoint3dArray corners;
    for (const AcGePoint3d& corner :
         {AcGePoint3d(25, 22, 0), AcGePoint3d(35, 22, 0), AcGePoint3d(35, 32, 0), AcGePoint3d(25, 32, 0)})
        corners.append(corner);
    auto wipeout = std::make_unique<AcDbWipeout>();
    wipeout->setFromPolygon(corners);
    add(std::move(wipeout));
    plotModel();
    EXPECT_EQ(at(40, 55), red);
    EXPECT_EQ(at(70, 55), white) << "cut away";
    EXPECT_EQ(at(30, 27), white) << "under the wipeout";
    EXPECT_EQ(at(45, 27), blue) << "beside it";
}

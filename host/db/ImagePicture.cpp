/// What images and wipeouts draw, and where they are taken hold of.

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "ImageFields.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "acgi.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "dbwipe.h"
#include "gecurv3d.h"
#include "gelnsg3d.h"
#include "imgdef.h"
#include "imgvars.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbWipeout, AcDbRasterImage, WIPEOUT)

const DxfClass AcDbWipeout::dxf("AcDbWipeout", &AcDbEntity::dxf, ACDB_IMAGE_FIELDS);

namespace
{
/// An object of the named objects of a drawing; null when it is not there.
template <class T>
const T* namedObject(const AcDbDatabase* database, const ACHAR* name)
{
    const auto* named = database ? AcDbDictionary::cast(residentObject(database->namedObjectsDictionaryId())) : nullptr;
    AcDbObjectId id;
    return named && named->getAt(name, id) == Acad::eOk ? T::cast(residentObject(id)) : nullptr;
}

std::vector<AcGePoint3d> closed(const AcGePoint3dArray& vertices)
{
    std::vector<AcGePoint3d> points(vertices.begin(), vertices.end());
    if (!points.empty()) points.push_back(points.front());
    return points;
}

/// The end of a path for a name.
CString fileNameOf(const CString& path)
{
    const int separator = std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/'));
    return path.Mid(separator + 1);
}
} // namespace

bool AcDbRasterImage::hasFrame() const
{
    const auto* variables = namedObject<AcDbRasterVariables>(database(), L"ACAD_IMAGE_VARS");
    return !variables || variables->imageFrame() == AcDbRasterVariables::kImageFrameAbove ||
           variables->imageFrame() == AcDbRasterVariables::kImageFrameBelow;
}

void AcDbRasterImage::drawFrame(AcGiWorldDraw& draw) const
{
    AcGePoint3dArray vertices;
    getVertices(vertices);
    const std::vector<AcGePoint3d> frame = closed(vertices);
    draw.geometry().polyline(static_cast<unsigned>(frame.size()), frame.data());
}

/// What is shown outside of a boundary lies between it and the picture's edge: one loop that goes round both.
std::vector<AcGePoint3d> AcDbRasterImage::shownLoop() const
{
    AcGePoint3dArray vertices;
    getVertices(vertices);
    if (!isClipped() || !mClipInverted) return {vertices.begin(), vertices.end()};
    AcGePoint3d origin;
    AcGeVector3d u, v;
    getOrientation(origin, u, v);
    std::vector<AcGePoint3d> loop = {origin, origin + u, origin + u + v, origin + v, origin};
    const std::vector<AcGePoint3d> hole = closed(vertices);
    loop.insert(loop.end(), hole.begin(), hole.end());
    return loop;
}

bool AcDbRasterImage::subWorldDraw(AcGiWorldDraw* draw)
{
    const auto* definition = AcDbRasterImageDef::cast(residentObject(mDefinition));
    const std::vector<AcGePoint3d> loop = shownLoop();
    AcGiImageFile picture;
    picture.path = definition ? definition->activeFileName() : L"";
    getOrientation(picture.origin, picture.width, picture.height);
    picture.clip = {loop.data(), static_cast<unsigned>(loop.size())};
    picture.brightness = mBrightness;
    picture.contrast = mContrast;
    picture.fade = mFade;
    picture.isTransparent = isSetDisplayOpt(kTransparent);
    const bool isWanted = isSetDisplayOpt(kShow) && definition && definition->isLoaded();
    const bool isShown = isWanted && !picture.path.IsEmpty() && draw->geometry().imageFile(picture);
    if (!isShown || hasFrame()) drawFrame(*draw);
    if (isShown || !definition) return true;
    // An image without its picture says which one is missing, as large as fits its lower edge.
    const CString name = fileNameOf(definition->sourceFileName());
    const double height = std::min(picture.width.length() / std::max(name.GetLength(), 1), picture.height.length() / 2.0);
    const AcGeVector3d normal = picture.width.crossProduct(picture.height);
    if (height > 0.0 && !normal.isZeroLength())
        draw->geometry().text(picture.origin + picture.height / 4.0, normal.normal(), picture.width.normal(), height, 1.0,
                              0.0, name);
    return true;
}

Acad::ErrorStatus AcDbRasterImage::subGetGeomExtents(AcDbExtents& extents) const
{
    AcGePoint3dArray vertices;
    getVertices(vertices);
    for (const AcGePoint3d& vertex : vertices)
        extents.addPoint(vertex);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRasterImage::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    return getVertices(gripPoints);
}

Acad::ErrorStatus AcDbRasterImage::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    AcGePoint3dArray grips;
    getVertices(grips);
    if (indices.length() == grips.length()) return subTransformBy(AcGeMatrix3d().setToTranslation(offset));
    if (!isClipped()) {
        const AcGePoint3d fixed = grips[(indices[0] + 2) % 4], moved = grips[indices[0]];
        const AcGeVector3d diagonal = moved - fixed;
        const double factor = 1.0 + offset.dotProduct(diagonal) / diagonal.lengthSqrd();
        if (!(factor > 0.0)) return Acad::eInvalidInput;
        return subTransformBy(AcGeMatrix3d().setToScaling(factor, fixed));
    }
    AcGeMatrix3d map;
    getPixelToModelTransform(map);
    std::vector<AcGePoint2d> points = framePoints();
    for (const int index : indices) {
        const AcGePoint3d pixel = map.inverse() * (grips[index] + offset);
        points[static_cast<std::size_t>(index)].set(pixel.x, pixel.y);
    }
    // A rectangle stays one only while it moves as a whole.
    points.push_back(points.front());
    mClip = std::move(points);
    mClipType = kPoly;
    forgetPreview();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRasterImage::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d&, const AcGePoint3d&,
                                                  AcGePoint3dArray& points) const
{
    if (mode == AcDb::kOsModeEnd) return getVertices(points);
    if (mode == AcDb::kOsModeIns) points.append(mOrigin);
    return Acad::eOk;
}

void AcDbRasterImage::intersectionCurves(Curves& curves, bool) const
{
    AcGePoint3dArray vertices;
    getVertices(vertices);
    const std::vector<AcGePoint3d> frame = closed(vertices);
    for (std::size_t i = 1; i < frame.size(); ++i) {
        if (!frame[i].isEqualTo(frame[i - 1])) curves.push_back(std::make_unique<AcGeLineSeg3d>(frame[i - 1], frame[i]));
    }
}

AcDbWipeout::AcDbWipeout() { setDisplayOpt(kTransparent, false); }

Acad::ErrorStatus AcDbWipeout::setFromPolygon(const AcGePoint3dArray& points, const AcGeVector3d& normal)
{
    if (points.length() < 3 || normal.isZeroLength()) return Acad::eInvalidInput;
    const AcGeMatrix3d toPlane = worldToOcs(normal), toWorld = ocsToWorld(normal);
    AcDbExtents box;
    for (const AcGePoint3d& point : points) {
        if (!isFinite(point)) return Acad::eInvalidInput;
        box.addPoint(toPlane * point);
    }
    const AcGeVector3d diagonal = box.maxPoint() - box.minPoint();
    const double side = std::max(diagonal.x, diagonal.y);
    if (!(side > 0.0)) return Acad::eInvalidInput;
    const AcGePoint3d corner = box.minPoint();
    Acad::ErrorStatus status = setOrientation(toWorld * corner, toWorld * AcGeVector3d(side, 0.0, 0.0),
                                              toWorld * AcGeVector3d(0.0, side, 0.0));
    AcGePoint2dArray clip;
    for (const AcGePoint3d& point : points) {
        const AcGePoint3d at = toPlane * point;
        clip.append(AcGePoint2d((at.x - corner.x) / side - 0.5, 0.5 - (at.y - corner.y) / side));
    }
    if (!clip[0].isEqualTo(clip[clip.length() - 1])) clip.append(clip[0]);
    return status == Acad::eOk ? setClipBoundary(kPoly, clip) : status;
}

bool AcDbWipeout::subWorldDraw(AcGiWorldDraw* draw)
{
    AcGePoint3dArray vertices;
    getVertices(vertices);
    const std::vector<AcGePoint3d> frame = closed(vertices);
    const AcGiLoop loop{frame.data(), static_cast<unsigned>(frame.size())};
    AcGiSubEntityTraits& traits = draw->subEntityTraits();
    if (isSetDisplayOpt(kShow)) {
        // Paper is white.
        traits.setTrueColor(AcCmEntityColor(255, 255, 255));
        traits.setFillType(kAcGiFillAlways);
        draw->geometry().polyPolygon(1, &loop);
        subSetAttributes(&traits);
    }
    const auto* variables = namedObject<AcDbWipeoutVariables>(database(), L"ACAD_WIPEOUT_VARS");
    if (variables && !variables->showFrame()) return true;
    draw->geometry().polyline(static_cast<unsigned>(frame.size()), frame.data());
    return true;
}

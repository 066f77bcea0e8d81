#include "acgi.h"
#include "ClassRegistration.h"
#include "dbdatabase.h"
#include "dblead.h"
#include "dbline.h"
#include "dbsolid.h"
#include "dbsymtb.h"
#include "DimVariables.h"
#include "DxfFields.h"
#include "genurb3d.h"
#include "geplin3d.h"
#include "PlanarCoords.h"
#include "Stub.h"

#include <algorithm>
#include <cmath>

ACDB_DXF_CLASS(AcDbLeader, AcDbCurve, LEADER)

struct LeaderFields {
    static AcDbLeader& of(AcDbObject& object) { return static_cast<AcDbLeader&>(object); }
    static const AcDbLeader& of(const AcDbObject& object) { return static_cast<const AcDbLeader&>(object); }

    static void skip(AcDbObject&, const DxfField&, DxfSource& source) { source.take(); }
    static void writeCount(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, of(object).numVertices());
    }
    static void readVertex(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        AcGePoint3d point;
        dxf::takeCoordinate(source, field.code, point.x);
        dxf::takeCoordinate(source, field.code + 10, point.y);
        dxf::takeCoordinate(source, field.code + 20, point.z);
        of(object).mVertices.push_back(point);
    }
    static void writeVertices(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        for (const AcGePoint3d& p : of(object).mVertices)
            sink.point(field.code, p.x, p.y, p.z);
    }
};

const DxfClass AcDbLeader::dxf("AcDbLeader", &AcDbCurve::dxf,
                               {
                                   dxf::record<&AcDbLeader::mStyle>(3),
                                   dxf::integer<&AcDbLeader::mHasArrow>(71),
                                   dxf::integer<&AcDbLeader::mIsSplined>(72),
                                   dxf::integer<&AcDbLeader::mAnnotationType>(73),
                                   dxf::integer<&AcDbLeader::mHookAlongX>(74),
                                   dxf::integer<&AcDbLeader::mHasHook>(75),
                                   dxf::real<&AcDbLeader::mTextHeight>(40),
                                   dxf::real<&AcDbLeader::mTextWidth>(41),
                                   dxf::custom(76, LeaderFields::skip, LeaderFields::writeCount),
                                   dxf::custom(10, LeaderFields::readVertex, LeaderFields::writeVertices),
                                   dxf::integer<&AcDbLeader::mColor>(77),
                                   dxf::reference<&AcDbLeader::mAnnotation>(340),
                                   dxf::point<&AcDbLeader::mNormal>(210),
                                   dxf::point<&AcDbLeader::mHorizontal>(211),
                                   dxf::point<&AcDbLeader::mBlockOffset>(212),
                                   dxf::point<&AcDbLeader::mAnnotationOffset>(213),
                               });

namespace
{
AcGePoint3dArray arrayOf(const std::vector<AcGePoint3d>& points)
{
    AcGePoint3dArray array;
    for (const AcGePoint3d& point : points)
        array.append(point);
    return array;
}
} // namespace

Acad::ErrorStatus AcDbLeader::setFlag(bool& flag, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) flag = on;
    return status;
}

Acad::ErrorStatus AcDbLeader::setPlane(const AcGePlane& plane)
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mNormal = plane.normal();
    for (AcGePoint3d& vertex : mVertices)
        vertex = vertex.orthoProject(plane);
    return status;
}

bool AcDbLeader::appendVertex(const AcGePoint3d& vertex)
{
    if (!isFinite(vertex) || (!mVertices.empty() && mVertices.back().isEqualTo(vertex))) return false;
    if (beginChange() != Acad::eOk) return false;
    mVertices.push_back(vertex);
    return true;
}

Acad::ErrorStatus AcDbLeader::setVertexAt(int index, const AcGePoint3d& vertex)
{
    if (index < 0 || index >= numVertices()) return Acad::eInvalidIndex;
    if (!isFinite(vertex)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mVertices[static_cast<std::size_t>(index)] = vertex;
    return status;
}

AcGePoint3d AcDbLeader::vertexAt(int index) const
{
    const bool isThere = index >= 0 && index < numVertices();
    return isThere ? mVertices[static_cast<std::size_t>(index)] : AcGePoint3d::kOrigin;
}

Acad::ErrorStatus AcDbLeader::removeLastVertex()
{
    if (numVertices() <= 2) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mVertices.pop_back();
    return status;
}

void AcDbLeader::subSetDatabaseDefaults(AcDbDatabase* db) { mStyle = db->dimstyle(); }

Acad::ErrorStatus AcDbLeader::setDimensionStyle(AcDbObjectId style)
{
    if (!AcDbDimStyleTableRecord::cast(residentObject(style))) return Acad::eInvalidDimStyle;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mStyle = style;
    return status;
}

Acad::ErrorStatus AcDbLeader::attachAnnotation(AcDbObjectId annotation)
{
    const AcDbObject* object = residentObject(annotation);
    static const struct {
        const wchar_t* name;
        AnnoType type;
    } kinds[] = {{L"AcDbMText", kMText}, {L"AcDbFcf", kFcf}, {L"AcDbBlockReference", kBlockRef}};
    for (const auto& kind : kinds) {
        const AcRxClass* aClass = acrxClassOfName(kind.name);
        if (!object || !aClass || !object->isKindOf(aClass)) continue;
        const Acad::ErrorStatus status = beginChange();
        if (status != Acad::eOk) return status;
        mAnnotation = annotation;
        mAnnotationType = static_cast<std::int8_t>(kind.type);
        return status;
    }
    return Acad::eWrongObjectType;
}

Acad::ErrorStatus AcDbLeader::evaluateLeader()
{
    const auto* text = AcDbEntity::cast(residentObject(mAnnotation));
    AcDbExtents box;
    if (!text || mAnnotation.isErased() || mVertices.size() < 2 || text->getGeomExtents(box) != Acad::eOk)
        return Acad::eNotApplicable;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const AcGePoint3d middle = box.minPoint() + (box.maxPoint() - box.minPoint()) / 2.0;
    const AcGeVector3d along = mHorizontal.normal();
    const double half = std::fabs((box.maxPoint() - middle).dotProduct(along));
    const double side = (middle - mVertices[mVertices.size() - 2]).dotProduct(along) >= 0.0 ? -1.0 : 1.0;
    const DimVariables look = variables();
    mVertices.back() = middle + along * (side * (half + look.scaled(look.dimgap)));
    mHookAlongX = side < 0.0;
    mHasHook = mAnnotationType == kMText;
    return status;
}

Acad::ErrorStatus AcDbLeader::detachAnnotation()
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mAnnotation.setNull();
    mAnnotationType = kNoAnno;
    return status;
}

Acad::ErrorStatus AcDbLeader::setAnnotationOffset(const AcGeVector3d& offset)
{
    if (!std::isfinite(offset.lengthSqrd())) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mAnnotationOffset = offset;
    return status;
}

DimVariables AcDbLeader::variables() const
{
    return dimVariablesOf(mStyle, *this);
}

double AcDbLeader::dimasz() const
{
    return variables().dimasz;
}
double AcDbLeader::dimgap() const
{
    return variables().dimgap;
}
double AcDbLeader::dimscale() const
{
    return variables().dimscale;
}
double AcDbLeader::dimtxt() const
{
    return variables().dimtxt;
}
AcDbObjectId AcDbLeader::dimldrblk() const
{
    return variables().dimldrblk;
}
AcCmColor AcDbLeader::dimclrd() const
{
    AcCmColor color;
    color.setColorIndex(variables().dimclrd);
    return color;
}

// Codes of dimension styles.
Acad::ErrorStatus AcDbLeader::setDimasz(double size)
{
    return setDimOverride(*this, 41, size);
}
Acad::ErrorStatus AcDbLeader::setDimgap(double gap)
{
    return setDimOverride(*this, 147, gap);
}
Acad::ErrorStatus AcDbLeader::setDimscale(double scale)
{
    return setDimOverride(*this, 40, scale);
}
Acad::ErrorStatus AcDbLeader::setDimtxt(double height)
{
    return setDimOverride(*this, 140, height);
}
Acad::ErrorStatus AcDbLeader::setDimclrd(const AcCmColor& color)
{
    return setDimOverride(*this, 176, static_cast<int>(color.colorIndex()));
}
Acad::ErrorStatus AcDbLeader::setDimldrblk(AcDbObjectId block)
{
    return setDimOverride(*this, 341, block);
}

Acad::ErrorStatus AcDbLeader::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(firstVertex(), mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

std::unique_ptr<AcGeCurve3d> AcDbLeader::makeGeCurve() const
{
    if (mVertices.size() < 2) return nullptr;
    if (mIsSplined && mVertices.size() > 2)
        return std::make_unique<AcGeNurbCurve3d>(arrayOf(mVertices), AcGeContext::gTol);
    return std::make_unique<AcGePolyline3d>(arrayOf(mVertices));
}

Acad::ErrorStatus AcDbLeader::subTransformBy(const AcGeMatrix3d& xform)
{
    const AcGeVector3d horizontal = xform * mHorizontal;
    mNormal = mappedNormal(xform, mNormal);
    for (AcGePoint3d& vertex : mVertices)
        vertex.transformBy(xform);
    if (!horizontal.isZeroLength()) mHorizontal = horizontal.normal();
    mBlockOffset.transformBy(xform);
    mAnnotationOffset.transformBy(xform);
    return Acad::eOk;
}

bool AcDbLeader::arrowHead(AcGePoint3d (&corners)[3]) const
{
    if (!mHasArrow || mVertices.size() < 2) return false;
    const DimVariables v = variables();
    const double size = v.scaled(v.dimasz);
    const AcGeVector3d along = mVertices[1] - mVertices[0];
    // An arrow that its first segment is shorter than twice over is left out.
    if (!(size > 0.0) || along.length() < 2.0 * size) return false;
    const AcGeVector3d direction = along.normal();
    const AcGeVector3d side = mNormal.crossProduct(direction) * (size / 6.0);
    corners[0] = mVertices[0];
    corners[1] = mVertices[0] + direction * size + side;
    corners[2] = mVertices[0] + direction * size - side;
    return true;
}

Acad::ErrorStatus AcDbLeader::subGetGeomExtents(AcDbExtents& extents) const
{
    AcGePoint3d corners[3];
    const Acad::ErrorStatus status = AcDbCurve::subGetGeomExtents(extents);
    if (status == Acad::eOk && arrowHead(corners)) {
        for (const AcGePoint3d& corner : corners)
            extents.addPoint(corner);
    }
    return status;
}

bool AcDbLeader::subWorldDraw(AcGiWorldDraw* draw)
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    if (!curve) return true;
    const int color = variables().dimclrd;
    if (color != 0) draw->subEntityTraits().setColor(static_cast<std::uint16_t>(color));
    if (mIsSplined && mVertices.size() > 2) {
        draw->geometry().nurbs(static_cast<const AcGeNurbCurve3d&>(*curve));
    } else {
        draw->geometry().polyline(static_cast<unsigned>(mVertices.size()), mVertices.data());
    }
    AcGePoint3d corners[3];
    if (arrowHead(corners)) {
        draw->subEntityTraits().setFillType(kAcGiFillAlways);
        draw->geometry().polygon(3, corners);
        draw->subEntityTraits().setFillType(kAcGiFillNever);
    }
    return true;
}

Acad::ErrorStatus AcDbLeader::subExplode(AcDbVoidPtrArray& entitySet) const
{
    if (mIsSplined || mVertices.size() < 2) return Acad::eCannotExplodeEntity;
    for (std::size_t i = 1; i < mVertices.size(); ++i)
        entitySet.append(new AcDbLine(mVertices[i - 1], mVertices[i]));
    AcGePoint3d corners[3];
    if (!arrowHead(corners)) return Acad::eOk;
    auto* solid = new AcDbSolid;
    solid->setNormal(mNormal);
    for (std::uint16_t i = 0; i < 4; ++i)
        solid->setPointAt(i, corners[std::min<int>(i, 2)]);
    entitySet.append(solid);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                               AcDbIntArray&) const
{
    gripPoints.append(arrayOf(mVertices));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    for (int i = 0; i < numVertices(); ++i) {
        if (indices.contains(i)) mVertices[static_cast<std::size_t>(i)] += offset;
    }
    return Acad::eOk;
}

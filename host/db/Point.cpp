#include "dbpoint.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "PlanarCoords.h"
#include "acgi.h"

ACDB_DXF_CLASS(AcDbPoint, AcDbEntity, POINT)

namespace
{
/// Files give the angle of the mark's X axis clockwise.
void readRotation(AcDbObject& object, const DxfField&, DxfSource& source)
{
    static_cast<AcDbPoint&>(object).setEcsRotation(-source.peek()->real * dxf::radiansPerDegree);
    source.take();
}

void writeRotation(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    const double rotation = static_cast<const AcDbPoint&>(object).ecsRotation();
    if (rotation != 0.0) sink.real(50, -rotation / dxf::radiansPerDegree);
}
} // namespace

const DxfClass AcDbPoint::dxf("AcDbPoint", &AcDbEntity::dxf,
                              {
                                  dxf::point<&AcDbPoint::mPosition>(10),
                                  dxf::real<&AcDbPoint::mThickness>(39).unless(0.0),
                                  dxf::direction<&AcDbPoint::mNormal>(210).unlessZAxis(),
                                  dxf::custom(50, readRotation, writeRotation),
                              });

Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& position)
{
    if (!isFinite(position)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mPosition = position;
    return status;
}

Acad::ErrorStatus AcDbPoint::setThickness(double thickness)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mThickness = thickness;
    return status;
}

Acad::ErrorStatus AcDbPoint::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbPoint::setEcsRotation(double rotation)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mRotation = rotation;
    return status;
}

Acad::ErrorStatus AcDbPoint::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(mPosition, mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subTransformBy(const AcGeMatrix3d& xform)
{
    mPosition.transformBy(xform);
    mThickness = mappedThickness(xform, mNormal, mThickness);
    mNormal = mappedNormal(xform, mNormal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subGetGeomExtents(AcDbExtents& extents) const
{
    extents.addPoint(mPosition);
    if (mThickness != 0.0) extents.expandBy(mThickness * mNormal);
    return Acad::eOk;
}

bool AcDbPoint::subWorldDraw(AcGiWorldDraw* draw)
{
    draw->geometry().pointMark(mPosition);
    return true;
}

Acad::ErrorStatus AcDbPoint::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(mPosition);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d&, const AcGePoint3d&,
                                               AcGePoint3dArray& points) const
{
    if (mode == AcDb::kOsModeNode) points.append(mPosition);
    return Acad::eOk;
}

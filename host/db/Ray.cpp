#include "dbray.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "acgi.h"
#include "geline3d.h"
#include "geray3d.h"

ACDB_DXF_CLASS(AcDbRay, AcDbCurve, RAY)

const DxfClass AcDbRay::dxf("AcDbRay", &AcDbCurve::dxf,
                              {
                                  dxf::point<&AcDbRay::mBase>(10),
                                  dxf::point<&AcDbRay::mDirection>(11),
                              });

Acad::ErrorStatus AcDbRay::setBasePoint(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mBase = point;
    return status;
}

Acad::ErrorStatus AcDbRay::setUnitDir(const AcGeVector3d& direction)
{
    if (direction.isZeroLength()) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mDirection = direction.normal();
    return status;
}

Acad::ErrorStatus AcDbRay::setSecondPoint(const AcGePoint3d& point) { return setUnitDir(point - mBase); }

Acad::ErrorStatus AcDbRay::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(mBase, mDirection.perpVector());
    planarity = AcDb::kLinear;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRay::getArea(double&) const { return Acad::eNotApplicable; }

Acad::ErrorStatus AcDbRay::reverseCurve() { return Acad::eNotApplicable; }

std::unique_ptr<AcGeCurve3d> AcDbRay::makeGeCurve() const { return std::make_unique<AcGeRay3d>(mBase, mDirection); }

std::unique_ptr<AcGeCurve3d> AcDbRay::makeExtendedGeCurve() const
{
    return std::make_unique<AcGeLine3d>(mBase, mDirection);
}

Acad::ErrorStatus AcDbRay::subTransformBy(const AcGeMatrix3d& xform)
{
    mBase.transformBy(xform);
    mDirection = (xform * mDirection).normal();
    return Acad::eOk;
}

bool AcDbRay::subWorldDraw(AcGiWorldDraw* draw) const
{
    draw->geometry().ray(mBase, secondPoint());
    return true;
}

Acad::ErrorStatus AcDbRay::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(mBase);
    gripPoints.append(secondPoint());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRay::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    if (indices.contains(0)) {
        mBase += offset;
        return Acad::eOk;
    }
    const AcGeVector3d direction = mDirection + offset;
    if (direction.isZeroLength()) return Acad::eInvalidInput;
    mDirection = direction.normal();
    return Acad::eOk;
}

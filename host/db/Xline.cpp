#include "dbxline.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "acgi.h"
#include "geline3d.h"

ACDB_DXF_CLASS(AcDbXline, AcDbCurve, XLINE)

const DxfClass AcDbXline::dxf("AcDbXline", &AcDbCurve::dxf,
                              {
                                  dxf::point<&AcDbXline::mBase>(10),
                                  dxf::point<&AcDbXline::mDirection>(11),
                              });

Acad::ErrorStatus AcDbXline::setBasePoint(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mBase = point;
    return status;
}

Acad::ErrorStatus AcDbXline::setUnitDir(const AcGeVector3d& direction)
{
    if (direction.isZeroLength()) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mDirection = direction.normal();
    return status;
}

Acad::ErrorStatus AcDbXline::setSecondPoint(const AcGePoint3d& point) { return setUnitDir(point - mBase); }

Acad::ErrorStatus AcDbXline::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(mBase, mDirection.perpVector());
    planarity = AcDb::kLinear;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXline::getArea(double&) const { return Acad::eNotApplicable; }

Acad::ErrorStatus AcDbXline::reverseCurve()
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mDirection.negate();
    return status;
}

std::unique_ptr<AcGeCurve3d> AcDbXline::makeGeCurve() const { return std::make_unique<AcGeLine3d>(mBase, mDirection); }

std::unique_ptr<AcGeCurve3d> AcDbXline::makeExtendedGeCurve() const
{
    return std::make_unique<AcGeLine3d>(mBase, mDirection);
}

Acad::ErrorStatus AcDbXline::subTransformBy(const AcGeMatrix3d& xform)
{
    mBase.transformBy(xform);
    mDirection = (xform * mDirection).normal();
    return Acad::eOk;
}

bool AcDbXline::subWorldDraw(AcGiWorldDraw* draw) const
{
    draw->geometry().xline(mBase, secondPoint());
    return true;
}

Acad::ErrorStatus AcDbXline::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(mBase);
    gripPoints.append(secondPoint());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXline::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
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

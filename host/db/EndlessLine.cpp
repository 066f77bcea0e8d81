#include "dbendlessline.h"

#include "geline3d.h"

Acad::ErrorStatus DbEndlessLine::setBasePoint(const AcGePoint3d& point)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mBase = point;
    return status;
}

Acad::ErrorStatus DbEndlessLine::setUnitDir(const AcGeVector3d& direction)
{
    if (direction.isZeroLength()) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mDirection = direction.normal();
    return status;
}

Acad::ErrorStatus DbEndlessLine::setSecondPoint(const AcGePoint3d& point)
{
    return setUnitDir(point - mBase);
}

Acad::ErrorStatus DbEndlessLine::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(mBase, mDirection.perpVector());
    planarity = AcDb::kLinear;
    return Acad::eOk;
}

Acad::ErrorStatus DbEndlessLine::getArea(double&) const
{
    return Acad::eNotApplicable;
}

std::unique_ptr<AcGeCurve3d> DbEndlessLine::makeExtendedGeCurve() const
{
    return std::make_unique<AcGeLine3d>(mBase, mDirection);
}

Acad::ErrorStatus DbEndlessLine::subTransformBy(const AcGeMatrix3d& xform)
{
    mBase.transformBy(xform);
    mDirection = (xform * mDirection).normal();
    return Acad::eOk;
}

Acad::ErrorStatus DbEndlessLine::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                                  AcDbIntArray&) const
{
    gripPoints.append(mBase);
    gripPoints.append(secondPoint());
    return Acad::eOk;
}

Acad::ErrorStatus DbEndlessLine::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
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

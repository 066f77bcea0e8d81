#include "dbabstrviewtblrec.h"

#include "ClassRegistration.h"
#include "Stub.h"
#include "dbucs.h"

#include <cmath>

ACDB_ABSTRACT_CLASS(AcDbAbstractViewTableRecord, AcDbSymbolTableRecord)

void AcDbAbstractViewTableRecord::setHeight(double height)
{
    if (height > 0.0 && std::isfinite(height)) assign(mHeight, height);
}

void AcDbAbstractViewTableRecord::setWidth(double width)
{
    if (width > 0.0 && std::isfinite(width)) assign(mWidth, width);
}

void AcDbAbstractViewTableRecord::setViewDirection(const AcGeVector3d& direction)
{
    if (!direction.isZeroLength()) assign(mDirection, direction);
}

Acad::ErrorStatus AcDbAbstractViewTableRecord::setRenderMode(RenderMode mode)
{
    if (mode < k2DOptimized || mode > kGouraudShadedWithWireframe) return Acad::eInvalidInput;
    return assign(mRenderMode, static_cast<std::int16_t>(mode));
}

Acad::ErrorStatus AcDbAbstractViewTableRecord::getUcs(AcGePoint3d& origin, AcGeVector3d& xAxis,
                                                      AcGeVector3d& yAxis) const
{
    origin = mUcsOrigin;
    xAxis = mUcsXAxis;
    yAxis = mUcsYAxis;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAbstractViewTableRecord::setUcs(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                                      const AcGeVector3d& yAxis)
{
    if (xAxis.isZeroLength() || yAxis.isZeroLength() || !xAxis.isPerpendicularTo(yAxis)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    mUcsOrigin = origin;
    mUcsXAxis = xAxis.normal();
    mUcsYAxis = yAxis.normal();
    mOrthographicType = AcDb::kNonOrthoView;
    mUcsName.setNull();
    mUcsBase.setNull();
    return status;
}

Acad::ErrorStatus AcDbAbstractViewTableRecord::setUcs(AcDbObjectId ucs)
{
    const auto* record = AcDbUCSTableRecord::cast(residentObject(ucs));
    if (!record) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setUcs(record->origin(), record->xAxis(), record->yAxis());
    if (status == Acad::eOk) mUcsName = ucs;
    return status;
}

Acad::ErrorStatus AcDbAbstractViewTableRecord::setUcsToWorld()
{
    return setUcs(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis);
}

bool AcDbAbstractViewTableRecord::isUcsOrthographic(AcDb::OrthographicView& view) const
{
    view = static_cast<AcDb::OrthographicView>(mOrthographicType);
    return view != AcDb::kNonOrthoView;
}

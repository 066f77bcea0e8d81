#pragma once

/// AcDbWipeout: a polygon that hides what was drawn before.

#include "imgent.h"

/// An image without a picture: one pixel large, its boundary is what it hides.
class AcDbWipeout : public AcDbRasterImage
{
public:
    ACRX_DECLARE_MEMBERS(AcDbWipeout);
    ACDB_STATE_MEMBERS(AcDbWipeout)
    AcDbWipeout();

    /// Hides a polygon of world points in a plane with the normal; the last point may repeat the first. eInvalidInput for
    /// fewer than three points and for a polygon without extent.
    Acad::ErrorStatus setFromPolygon(const AcGePoint3dArray& points, const AcGeVector3d& normal = AcGeVector3d::kZAxis);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool subWorldDraw(AcGiWorldDraw* draw) override;
};

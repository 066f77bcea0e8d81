#pragma once

/// AcDbRay: a line that begins at a point and has no end.

#include "dbendlessline.h"

class AcDbRay : public DbEndlessLine
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRay);
    ACDB_STATE_MEMBERS(AcDbRay)
    AcDbRay() = default;

    /// eNotApplicable.
    Acad::ErrorStatus reverseCurve() override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
};

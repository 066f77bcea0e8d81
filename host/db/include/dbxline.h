#pragma once

/// AcDbXline: a line without ends, for construction.

#include "dbendlessline.h"

class AcDbXline : public DbEndlessLine
{
public:
    ACRX_DECLARE_MEMBERS(AcDbXline);
    ACDB_STATE_MEMBERS(AcDbXline)
    AcDbXline() = default;

    Acad::ErrorStatus reverseCurve() override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
};

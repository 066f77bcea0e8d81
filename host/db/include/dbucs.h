#pragma once

#include "acdb.h"
#include "dbsymbase.h"
#include "gepnt3d.h"
#include "gevec3d.h"

/// A named coordinate system, in world coordinates.
class AcDbUCSTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord);
    ACDB_STATE_MEMBERS(AcDbUCSTableRecord)
    AcDbUCSTableRecord() = default;

    AcGePoint3d origin() const { return mOrigin; }
    void setOrigin(const AcGePoint3d& origin) { assign(mOrigin, origin); }
    AcGeVector3d xAxis() const { return mXAxis; }
    void setXAxis(const AcGeVector3d& axis);
    AcGeVector3d yAxis() const { return mYAxis; }
    void setYAxis(const AcGeVector3d& axis);
    /// The origin of an orthographic system that is based on this one.
    AcGePoint3d ucsBaseOrigin(AcDb::OrthographicView view) const;
    /// eInvalidInput for kNonOrthoView.
    Acad::ErrorStatus setUcsBaseOrigin(const AcGePoint3d& origin, AcDb::OrthographicView view);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend struct UcsAccess;
    struct BaseOrigin {
        int view;
        AcGePoint3d origin;
    };

    AcGePoint3d mOrigin;
    AcGeVector3d mXAxis{1.0, 0.0, 0.0};
    AcGeVector3d mYAxis{0.0, 1.0, 0.0};
    double mElevation = 0.0;
    std::int16_t mOrthographicType = 0;
    AcDbObjectId mBase;
    std::vector<BaseOrigin> mBaseOrigins;
};

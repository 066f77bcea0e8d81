#pragma once

/// AcDbOrdinateDimension: how far a feature lies from an origin along the X or the Y axis.

#include "dbdimension.h"

/// The axes are those of the dimension's plane, turned by its horizontal direction. The text stands behind
/// the end of the leader, along it; the leader bends where the end does not lie straight across from the
/// feature.
class AcDbOrdinateDimension : public AcDbDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbOrdinateDimension);
    ACDB_STATE_MEMBERS(AcDbOrdinateDimension)
    AcDbOrdinateDimension() : AcDbDimension(ordinateType) {}
    /// `dimText` null or empty: the measure; the current style for the null id.
    AcDbOrdinateDimension(bool useXAxis, const AcGePoint3d& definingPoint, const AcGePoint3d& leaderEndPoint,
                          const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);
    AcDbOrdinateDimension(const AcGePoint3d& origin, bool useXAxis, const AcGePoint3d& definingPoint,
                          const AcGePoint3d& leaderEndPoint, const ACHAR* dimText = nullptr,
                          AcDbObjectId dimStyle = AcDbObjectId::kNull);

    /// Whether the distance along X is measured, or that along Y.
    bool isUsingXAxis() const { return (mFlags & xAxis) != 0; }
    bool isUsingYAxis() const { return !isUsingXAxis(); }
    Acad::ErrorStatus useXAxis();
    Acad::ErrorStatus useYAxis();

    AcGePoint3d origin() const { return mDefPoint; }
    Acad::ErrorStatus setOrigin(const AcGePoint3d& point) { return change(mDefPoint, point); }
    AcGePoint3d definingPoint() const { return mFeature; }
    Acad::ErrorStatus setDefiningPoint(const AcGePoint3d& point) { return change(mFeature, point); }
    AcGePoint3d leaderEndPoint() const { return mLeaderEnd; }
    Acad::ErrorStatus setLeaderEndPoint(const AcGePoint3d& point) { return change(mLeaderEnd, point); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    double measure() const override;
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    void mapPoints(const AcGeMatrix3d& xform) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;

private:
    static constexpr int xAxis = 64;
    /// The direction of a leader that is straight: across the measured axis.
    AcGeVector2d across() const;

    AcGePoint3d mFeature, mLeaderEnd;
};

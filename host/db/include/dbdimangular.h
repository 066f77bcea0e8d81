#pragma once

/// Dimensions along an arc: AcDb2LineAngularDimension, AcDb3PointAngularDimension (both angles in radians)
/// and AcDbArcDimension (a length).

#include "dbdimension.h"
#include "gepnt2d.h"

#include <vector>

/// Where the arc of such a dimension lies, in its plane; angles ascend counter-clockwise.
struct DimensionArc {
    AcGePoint2d center;
    double radius = 0.0;
    double from = 0.0, to = 0.0;
    AcGePoint2d point1, point2; ///< what the extension lines start from; the first at the angle `from`
};

/// What they have in common.
class DbArcingDimension : public AcDbDimension
{
protected:
    using AcDbDimension::AcDbDimension;
    /// False for points that make no arc.
    virtual bool findArc(const DimensionPicture& picture, DimensionArc& arc) const = 0;
    bool isAngular() const override { return true; }
    double measure() const override;
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    void mapPoints(const AcGeMatrix3d& xform) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;
    /// The points beside mDefPoint, which the class measures or draws by.
    virtual std::vector<AcGePoint3d*> ownPoints() = 0;
    DimensionArc arcOfPoints() const;
};

/// The angle between two lines, in the sector that holds the arc point.
class AcDb2LineAngularDimension : public DbArcingDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDb2LineAngularDimension);
    ACDB_STATE_MEMBERS(AcDb2LineAngularDimension)
    AcDb2LineAngularDimension() : DbArcingDimension(angularType) {}
    AcDb2LineAngularDimension(const AcGePoint3d& xLine1Start, const AcGePoint3d& xLine1End,
                              const AcGePoint3d& xLine2Start, const AcGePoint3d& xLine2End,
                              const AcGePoint3d& arcPoint, const ACHAR* dimText = nullptr,
                              AcDbObjectId dimStyle = AcDbObjectId::kNull);

    /// A point of the arc.
    AcGePoint3d arcPoint() const;
    Acad::ErrorStatus setArcPoint(const AcGePoint3d& point);
    AcGePoint3d xLine1Start() const { return mLine1Start; }
    Acad::ErrorStatus setXLine1Start(const AcGePoint3d& point) { return change(mLine1Start, point); }
    AcGePoint3d xLine1End() const { return mLine1End; }
    Acad::ErrorStatus setXLine1End(const AcGePoint3d& point) { return change(mLine1End, point); }
    AcGePoint3d xLine2Start() const { return mLine2Start; }
    Acad::ErrorStatus setXLine2Start(const AcGePoint3d& point) { return change(mLine2Start, point); }
    AcGePoint3d xLine2End() const { return mDefPoint; }
    Acad::ErrorStatus setXLine2End(const AcGePoint3d& point) { return change(mDefPoint, point); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool findArc(const DimensionPicture& picture, DimensionArc& arc) const override;
    std::vector<AcGePoint3d*> ownPoints() override;
    void mapAngles(const AcGeMatrix3d& map) override { mArcPoint.transformBy(map); }

private:
    AcGePoint3d mLine1Start, mLine1End, mLine2Start;
    AcGePoint3d mArcPoint; ///< in object coordinates
};

/// An arc around a centre, between two points and through a third.
class DbCenteredArcDimension : public DbArcingDimension
{
public:
    /// A point of the arc.
    AcGePoint3d arcPoint() const { return mDefPoint; }
    Acad::ErrorStatus setArcPoint(const AcGePoint3d& point) { return change(mDefPoint, point); }
    /// The two points; those of AcDbArcDimension are the ends of the arc, counter-clockwise.
    AcGePoint3d xLine1Point() const { return mPoint1; }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& point) { return change(mPoint1, point); }
    AcGePoint3d xLine2Point() const { return mPoint2; }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& point) { return change(mPoint2, point); }
    AcGePoint3d centerPoint() const { return mCenter; }
    Acad::ErrorStatus setCenterPoint(const AcGePoint3d& point) { return change(mCenter, point); }

protected:
    using DbArcingDimension::DbArcingDimension;
    DbCenteredArcDimension(Type type, const AcGePoint3d& center, const AcGePoint3d& point1,
                           const AcGePoint3d& point2, const AcGePoint3d& arcPoint, const ACHAR* dimText,
                           AcDbObjectId dimStyle);
    bool findArc(const DimensionPicture& picture, DimensionArc& arc) const override;
    std::vector<AcGePoint3d*> ownPoints() override;

    AcGePoint3d mPoint1, mPoint2, mCenter;
};

/// The angle that two points are seen under from a third, on the side of the arc point.
class AcDb3PointAngularDimension : public DbCenteredArcDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDb3PointAngularDimension);
    ACDB_STATE_MEMBERS(AcDb3PointAngularDimension)
    AcDb3PointAngularDimension() : DbCenteredArcDimension(angular3PointType) {}
    AcDb3PointAngularDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                               const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint,
                               const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

};

/// The length of an arc.
class AcDbArcDimension : public DbCenteredArcDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbArcDimension);
    ACDB_STATE_MEMBERS(AcDbArcDimension)
    AcDbArcDimension() : DbCenteredArcDimension(arcType) {}
    AcDbArcDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                     const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint,
                     const ACHAR* dimText = nullptr, AcDbObjectId dimStyle = AcDbObjectId::kNull);

    bool isPartial() const { return mIsPartial; }
    Acad::ErrorStatus setIsPartial(bool partial);
    /// Angles on the arc between which a part is measured.
    double arcStartParam() const { return mStartParam; }
    Acad::ErrorStatus setArcStartParam(double param) { return change(mStartParam, param); }
    double arcEndParam() const { return mEndParam; }
    Acad::ErrorStatus setArcEndParam(double param) { return change(mEndParam, param); }
    bool hasLeader() const { return mHasLeader; }
    Acad::ErrorStatus setHasLeader(bool leader);
    AcGePoint3d leader1Point() const { return mLeader1; }
    Acad::ErrorStatus setLeader1Point(const AcGePoint3d& point) { return change(mLeader1, point); }
    AcGePoint3d leader2Point() const { return mLeader2; }
    Acad::ErrorStatus setLeader2Point(const AcGePoint3d& point) { return change(mLeader2, point); }
    /// 0 the arc sign stands before the text, 1 above it, 2 there is none: DIMARCSYM.
    int arcSymbolType() const { return dimarcsym(); }
    Acad::ErrorStatus setArcSymbolType(int type) { return setDimarcsym(type); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    double measure() const override;
    bool isAngular() const override { return false; }
    const wchar_t* measureSign() const override { return L""; }
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    std::vector<AcGePoint3d*> ownPoints() override;

private:
    AcGePoint3d mLeader1, mLeader2;
    double mStartParam = 0.0, mEndParam = 0.0;
    bool mIsPartial = false, mHasLeader = false;
};

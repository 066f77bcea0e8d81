#pragma once

/// Linear dimensions: AcDbAlignedDimension along its two points, AcDbRotatedDimension along a direction of
/// its own.

#include "dbdimension.h"

/// What both have in common, which is also one section of their records in files.
class DbLinearDimension : public AcDbDimension
{
public:
    /// The points that are measured.
    AcGePoint3d xLine1Point() const { return mPoint1; }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& point) { return change(mPoint1, point); }
    AcGePoint3d xLine2Point() const { return mPoint2; }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& point) { return change(mPoint2, point); }
    /// A point of the dimension line.
    AcGePoint3d dimLinePoint() const { return mDefPoint; }
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& point) { return change(mDefPoint, point); }
    /// The angle between dimension line and extension lines; 0 stands for a right angle.
    double oblique() const { return mOblique; }
    Acad::ErrorStatus setOblique(double angle) { return change(mOblique, angle); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    explicit DbLinearDimension(Type type) : AcDbDimension(type) {}
    DbLinearDimension(Type type, const AcGePoint3d& point1, const AcGePoint3d& point2,
                      const AcGePoint3d& linePoint, const ACHAR* dimText, AcDbObjectId dimStyle);

    /// The angle of the dimension line in the dimension's plane.
    virtual double direction() const = 0;
    double measure() const override;
    bool layOut(DimensionPicture& picture, AcGePoint2d& textMiddle) const override;
    void mapPoints(const AcGeMatrix3d& xform) override;
    void mapAngles(const AcGeMatrix3d& map) override;
    AcGePoint3dArray definingPoints() const override;
    void setDefiningPoint(int index, const AcGePoint3d& point) override;

    AcGePoint3d mPoint1, mPoint2;
    double mOblique = 0.0;
    double mRotation = 0.0; ///< of rotated dimensions; files give it in this section

private:
    friend struct LinearShape;
    friend struct LinearFields;
    bool mGivesRotation = false, mGivesOblique = false;
};

class AcDbAlignedDimension : public DbLinearDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbAlignedDimension);
    ACDB_STATE_MEMBERS(AcDbAlignedDimension)
    AcDbAlignedDimension() : DbLinearDimension(alignedType) {}
    /// `dimText` null or empty: the measure; the current style for the null id.
    AcDbAlignedDimension(const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                         const AcGePoint3d& dimLinePoint, const ACHAR* dimText = nullptr,
                         AcDbObjectId dimStyle = AcDbObjectId::kNull)
        : DbLinearDimension(alignedType, xLine1Point, xLine2Point, dimLinePoint, dimText, dimStyle)
    {
    }

protected:
    double direction() const override;
};

class AcDbRotatedDimension : public DbLinearDimension
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRotatedDimension);
    ACDB_STATE_MEMBERS(AcDbRotatedDimension)
    AcDbRotatedDimension() : DbLinearDimension(rotatedType) {}
    /// `rotation` is that of the dimension line from the X axis of the plane.
    AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1Point, const AcGePoint3d& xLine2Point,
                         const AcGePoint3d& dimLinePoint, const ACHAR* dimText = nullptr,
                         AcDbObjectId dimStyle = AcDbObjectId::kNull)
        : DbLinearDimension(rotatedType, xLine1Point, xLine2Point, dimLinePoint, dimText, dimStyle)
    {
        setRotation(rotation);
    }

    double rotation() const { return mRotation; }
    Acad::ErrorStatus setRotation(double rotation) { return change(mRotation, rotation); }

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    double direction() const override { return mRotation; }
};

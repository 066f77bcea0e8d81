#pragma once

/// DbCircularCurve: what circles and arcs have in common, which is also one section of their records in
/// files.

#include "dbcurve.h"

/// Parameters are angles in radians from the X axis of the object coordinate system (AcGeVector3d::perpVector
/// of the normal), turning right-handed about the normal.
class DbCircularCurve : public AcDbCurve
{
public:
    /// In world coordinates.
    AcGePoint3d center() const;
    /// eInvalidInput for coordinates that are not finite.
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    double radius() const { return mRadius; }
    /// eInvalidInput when negative or not finite.
    Acad::ErrorStatus setRadius(double radius);
    double thickness() const { return mThickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return mNormal; }
    /// The centre stays where it is in the world. eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;
    void getEcs(AcGeMatrix3d& matrix) const override;
    /// Circles and arcs turn right-handed about their normal always.
    Acad::ErrorStatus reverseCurve() override { return Acad::eNotApplicable; }
    Acad::ErrorStatus getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    DbCircularCurve() = default;
    DbCircularCurve(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);

    /// The angles where the curve starts and ends; the end lies above the start by a full turn at most.
    virtual void angleRange(double& start, double& end) const = 0;
    /// Told that the map changes the sense of turning.
    virtual void turnOver(const AcGeMatrix3d&, const AcGePoint3d& /*start*/, const AcGePoint3d& /*end*/) {}
    AcGePoint3d pointAtAngle(double angle) const;
    /// The angle at which a point is seen from the centre, 0 <= angle < 2 pi.
    double angleOf(const AcGePoint3d& point) const;
    bool holdsAngle(double angle) const;
    Acad::ErrorStatus setCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);

    std::unique_ptr<AcDbCurve> makePiece(double from, double to) const override;
    std::unique_ptr<AcGeCurve3d> makeGeCurve() const override;
    std::unique_ptr<AcGeCurve3d> makeExtendedGeCurve() const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                        const AcGePoint3d& last, AcGePoint3dArray& points) const override;

private:
    void appendQuadrants(const AcGePoint3d& pick, AcGePoint3dArray& points) const;
    void appendPerpendiculars(const AcGePoint3d& last, AcGePoint3dArray& points) const;
    void appendTangents(const AcGePoint3d& last, AcGePoint3dArray& points) const;

    AcGePoint3d mCenter; ///< in the object coordinate system, as in files
    double mRadius = 0.0;
    double mThickness = 0.0;
    AcGeVector3d mNormal = AcGeVector3d::kZAxis;
};

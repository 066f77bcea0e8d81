#pragma once

/// AcDbRegion: a planar area, of one face or several, bounded by curves.

#include "dbentity.h"

struct DbRegionBody;

/// What is measured or changed needs the shape. Members that need it return eGeneralModelingFailure for a
/// region whose file holds it in a form that is not understood (binary modeller data, surfaces that are not
/// planes); such a region keeps its groups and is written back as it was read.
class AcDbRegion : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbRegion);
    ACDB_STATE_MEMBERS(AcDbRegion)
    AcDbRegion() = default;

    /// Appends one new region, which the caller owns, for each closed chain of the curves (AcDbCurve*; in any
    /// order and direction, ends within 1e-6 units of each other meet). Nothing is appended on failure:
    /// eInvalidInput for an empty list, an object that is no curve, an endless curve, and ends that meet none
    /// or several others; eNonPlanarEntity for a chain that lies in no plane; eGeneralModelingFailure for one
    /// that crosses itself.
    static Acad::ErrorStatus createFromCurves(const AcDbVoidPtrArray& curveSegments,
                                              AcDbVoidPtrArray& regions);

    /// Square drawing units; 0 for an empty region.
    virtual Acad::ErrorStatus getArea(double& area) const;
    /// The length of all boundaries, those of holes too.
    virtual Acad::ErrorStatus getPerimeter(double& perimeter) const;
    /// In the coordinates of `origin` and two perpendicular unit axes, which must span the region's plane:
    /// centroid, second moments about the axes, product of inertia, principal moments about the centroid and
    /// their directions, radii of gyration about the axes, and the box along them. eInvalidInput, and nothing
    /// changed, for other axes or an empty region.
    virtual Acad::ErrorStatus getAreaProp(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                          const AcGeVector3d& yAxis, double& perimeter, double& area,
                                          AcGePoint2d& centroid, double momInertia[2], double& prodInertia,
                                          double prinMoments[2], AcGeVector2d prinAxes[2],
                                          double radiiGyration[2], AcGePoint2d& extentsLow,
                                          AcGePoint2d& extentsHigh) const;

    /// Makes this region the union, the intersection or the difference with another of its plane, which is
    /// empty afterwards. Both must be open for write. eNonCoplanarGeometry for another plane; nothing is
    /// changed on failure.
    virtual Acad::ErrorStatus booleanOper(AcDb::BoolOperType operation, AcDbRegion* otherRegion);

    /// No face is left.
    virtual bool isNull() const;
    /// A unit vector.
    virtual Acad::ErrorStatus getNormal(AcGeVector3d& normal) const;
    virtual Acad::ErrorStatus getPlane(AcGePlane& plane) const;
    /// How often the shape was changed since the region was made or read.
    virtual Adesk::UInt32 numChanges() const { return mChanges; }

    bool isPlanar() const override { return true; }
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
    /// Several faces: a region of each; one face: its boundary curves.
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    bool subWorldDraw(AcGiWorldDraw* draw) override;
    void intersectionCurves(Curves& curves, bool extended) const override;

private:
    friend struct RegionAccess;
    std::shared_ptr<const DbRegionBody> mBody; ///< shared by copies, never changed; null: an empty region
    Adesk::UInt32 mChanges = 0;
};

#pragma once

/// Planar areas bounded by curves.

#include "gecurv3d.h"
#include "Side.h"

#include <memory>
#include <vector>

namespace kernel
{
enum class RegionStatus : char {
    kOk,
    kNoCurves,     ///< nothing given
    kBadCurve,     ///< a curve is null, unbounded, not finite, or a point
    kOpen,         ///< an end of a curve meets no other
    kBranching,    ///< more than two ends of curves meet in a point
    kNotPlanar,    ///< a loop, or a face, does not lie in a plane
    kSelfCrossing, ///< the curves of a loop cross, touch or overlap, or enclose nothing
    kNotCoplanar,  ///< the operands lie in different planes
    kSingular      ///< a map makes the region a line or a point
};

enum class BooleanKind : char { kUnion, kIntersect, kSubtract };

using LoopCurves = std::vector<std::shared_ptr<const AcGeCurve3d>>;
/// Loops of one face: the curves follow each other end to start, and with the normal towards the viewer the
/// first loop runs counter-clockwise around the face and the others clockwise around its holes.
using FaceCurves = std::vector<LoopCurves>;

/// What is measured of a region, in a plane coordinate system given by the caller.
struct RegionMeasures {
    double area = 0, perimeter = 0; ///< the perimeter counts the holes too
    AcGePoint2d centroid;
    double momentX = 0, momentY = 0; ///< second moments about the X and the Y axis
    double product = 0;              ///< product of inertia: the integral of x y
    double principal[2] = {0, 0};    ///< second moments about the principal axes through the centroid
    AcGeVector2d principalAxes[2];   ///< unit vectors; the first lies within 45 degrees of the X axis
    double gyration[2] = {0, 0};     ///< radii of gyration about the X and the Y axis
    AcGePoint2d low, high;           ///< the box along the axes
};

/// Faces in one plane. Values are cheap to copy: the body is shared and never changes. A region without faces
/// is empty; its plane is the world's XY plane.
class Region
{
public:
    Region();

    /// One region for each closed chain of the curves, in the order of their first curves. The curves may
    /// come in any order and direction; ends no further apart than tol (drawing units) meet. Chains may lie
    /// in different planes, and may contain or cross each other. On failure the list is empty; the faults
    /// count in the order of RegionStatus. The normal of a region points up (+Z), or else to +Y, or else to
    /// +X.
    static std::vector<Region> fromCurves(const std::vector<const AcGeCurve3d*>& curves, RegionStatus& status,
                                          double tol = 1e-6);

    /// A region of faces as a file holds them: loops in any direction, the outer one of a face anywhere.
    /// Curves of a loop must follow each other. Empty on failure.
    static Region fromFaces(const std::vector<FaceCurves>& faces, const AcGeVector3d& normal,
                            RegionStatus& status, double tol = 1e-6);

    bool isEmpty() const;
    /// The plane: its coordinates to the world's. Axes are unit vectors, Z is the normal.
    const AcGeMatrix3d& planeToWorld() const;
    AcGeVector3d normal() const;

    double area() const;
    double perimeter() const;
    AcGePoint3d centroid() const;
    /// False, and the box unchanged, for an empty region.
    bool extents(AcGePoint3d& low, AcGePoint3d& high) const;
    /// In the coordinate system of a point and two perpendicular unit vectors, which must span the region's
    /// plane (the point need not lie in it). False, and nothing changed, when they do not, or the region is
    /// empty.
    bool measure(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                 RegionMeasures& measures) const;

    /// Copies of the curves in the world.
    std::vector<FaceCurves> faces() const;

    /// Where a point of the world lies: kOn within tol of the boundary. Points further than tol from the
    /// plane are outside.
    Side classify(const AcGePoint3d& p, double tol = 1e-8) const;

    /// This region with another one of the same plane. Parts of the boundary that lie on one line or circle
    /// are one curve in the result. kNotCoplanar: the result is unchanged.
    RegionStatus combine(BooleanKind kind, const Region& other, Region& result) const;

    /// The image under an affine map; scales need not be even. kSingular: unchanged.
    RegionStatus transformBy(const AcGeMatrix3d& map);

private:
    struct Body;
    explicit Region(std::shared_ptr<const Body> body) : mBody(std::move(body)) {}

    std::shared_ptr<const Body> mBody;
};
} // namespace kernel

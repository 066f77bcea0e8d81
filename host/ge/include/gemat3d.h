#pragma once

#include "gemat2d.h"
#include "gepnt3d.h"

class AcGeLine3d;

/// An affine or projective map of space: columns 0 to 2 are the images of the axes, column 3 is that of the
/// origin. Points and vectors are columns to the right of the matrix: (a * b) * p == a * (b * p).
class AcGeMatrix3d
{
public:
    AcGeMatrix3d() noexcept { setToIdentity(); }

    static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d& setToIdentity() noexcept;
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b) { return *this = a * b; }

    /// The inverse of the whole 4 x 4 matrix; a singular matrix is its own result.
    AcGeMatrix3d inverse(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeMatrix3d& invert() { return *this = inverse(); }
    /// The determinant of the linear part is no more than tol.equalVector() of its columns' lengths
    /// multiplied.
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeMatrix3d transpose() const;
    AcGeMatrix3d& transposeIt() { return *this = transpose(); }
    bool operator==(const AcGeMatrix3d& m) const { return isEqualTo(m); }
    bool operator!=(const AcGeMatrix3d& m) const { return !isEqualTo(m); }
    /// Every pair of entries differs by tol.equalVector() at most.
    bool isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The columns of the linear part are perpendicular to each other, and of one length.
    bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The columns of the linear part are perpendicular to each other.
    bool isScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The determinant of the linear part; negative when the map mirrors.
    double det() const;
    /// The length of the longest column of the linear part.
    double scale() const;
    /// The entry of the linear part that is largest in size.
    double norm() const;

    AcGeMatrix3d& setTranslation(const AcGeVector3d& vec);
    AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                 const AcGeVector3d& yAxis, const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                        AcGeVector3d& zAxis) const;

    AcGeMatrix3d& setToTranslation(const AcGeVector3d& vec);
    /// Rotation about `axis` through `center`; identity for a zero axis.
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(double scale, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToMirroring(const AcGePlane& plane);
    AcGeMatrix3d& setToMirroring(const AcGePoint3d& pnt);
    /// The half turn about the line.
    AcGeMatrix3d& setToMirroring(const AcGeLine3d& line);
    /// Projection along a direction onto the plane; identity when the direction is parallel to the plane.
    AcGeMatrix3d& setToProjection(const AcGePlane& plane, const AcGeVector3d& projectDir);
    /// The map that takes the first coordinate system to the second.
    AcGeMatrix3d& setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                     const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                     const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                     const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis);
    /// Maps of world coordinates to those of a plane and back. With a normal alone the plane passes through
    /// the world's origin and its axes follow the arbitrary axis rule (AcGeVector3d::perpVector).
    AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal);
    AcGeMatrix3d& setToWorldToPlane(const AcGePlane& plane);
    AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal);
    AcGeMatrix3d& setToPlaneToWorld(const AcGePlane& plane);

    static AcGeMatrix3d translation(const AcGeVector3d& vec);
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double scale, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d mirroring(const AcGePlane& plane);
    static AcGeMatrix3d mirroring(const AcGePoint3d& pnt);
    static AcGeMatrix3d mirroring(const AcGeLine3d& line);
    static AcGeMatrix3d projection(const AcGePlane& plane, const AcGeVector3d& projectDir);
    static AcGeMatrix3d alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                      const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                      const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                      const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
    static AcGeMatrix3d worldToPlane(const AcGePlane& plane);
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    static AcGeMatrix3d planeToWorld(const AcGePlane& plane);

    /// The map within planes of `normal` (a unit vector) when this maps such planes into each other: `normal`
    /// becomes the image's normal and `elev` the image of the elevation, both by the arbitrary axis rule.
    AcGeMatrix2d convertToLocal(AcGeVector3d& normal, double& elev) const;

    double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }
    double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }

    double entry[4][4]; ///< [row][column]
};

// A map whose last row is not 0 0 0 1 divides by the fourth coordinate.
inline AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p)
{
    const auto row = [&](int i) {
        return m.entry[i][0] * p.x + m.entry[i][1] * p.y + m.entry[i][2] * p.z + m.entry[i][3];
    };
    const double w = row(3);
    return w == 1 || w == 0 ? AcGePoint3d(row(0), row(1), row(2))
                            : AcGePoint3d(row(0) / w, row(1) / w, row(2) / w);
}

inline AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v)
{
    const auto row = [&](int i) { return m.entry[i][0] * v.x + m.entry[i][1] * v.y + m.entry[i][2] * v.z; };
    return {row(0), row(1), row(2)};
}

#pragma once

#include "gepnt2d.h"

class AcGeLine2d;

/// An affine map of the plane: columns 0 and 1 are the images of the axes, column 2 is that of the origin.
/// Points and vectors are columns to the right of the matrix: (a * b) * p == a * (b * p).
class AcGeMatrix2d
{
public:
    AcGeMatrix2d() noexcept { setToIdentity(); }

    static const AcGeMatrix2d kIdentity;

    AcGeMatrix2d& setToIdentity() noexcept;
    AcGeMatrix2d operator*(const AcGeMatrix2d& right) const;
    AcGeMatrix2d& operator*=(const AcGeMatrix2d& right) { return *this = *this * right; }
    AcGeMatrix2d& preMultBy(const AcGeMatrix2d& left) { return *this = left * *this; }
    AcGeMatrix2d& postMultBy(const AcGeMatrix2d& right) { return *this = *this * right; }
    AcGeMatrix2d& setToProduct(const AcGeMatrix2d& a, const AcGeMatrix2d& b) { return *this = a * b; }

    /// The inverse; a singular matrix is its own result.
    AcGeMatrix2d inverse() const;
    AcGeMatrix2d& invert() { return *this = inverse(); }
    /// The determinant of the linear part is no more than tol.equalVector() of its columns' lengths.
    bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeMatrix2d transpose() const;
    AcGeMatrix2d& transposeIt() { return *this = transpose(); }
    bool operator==(const AcGeMatrix2d& m) const { return isEqualTo(m); }
    bool operator!=(const AcGeMatrix2d& m) const { return !isEqualTo(m); }
    /// Every pair of entries differs by tol.equalVector() at most.
    bool isEqualTo(const AcGeMatrix2d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    /// The columns of the linear part are perpendicular, and of one length.
    bool isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The columns of the linear part are perpendicular.
    bool isScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The length of the longest column of the linear part.
    double scale() const;
    double det() const { return entry[0][0] * entry[1][1] - entry[0][1] * entry[1][0]; }

    AcGeMatrix2d& setTranslation(const AcGeVector2d& vec);
    AcGeVector2d translation() const { return {entry[0][2], entry[1][2]}; }
    bool isConformal(double& scale, double& angle, bool& isMirror, AcGeVector2d& reflex) const;
    AcGeMatrix2d& setCoordSystem(const AcGePoint2d& origin, const AcGeVector2d& e0, const AcGeVector2d& e1);
    void getCoordSystem(AcGePoint2d& origin, AcGeVector2d& e0, AcGeVector2d& e1) const;

    AcGeMatrix2d& setToTranslation(const AcGeVector2d& vec);
    AcGeMatrix2d& setToRotation(double angle, const AcGePoint2d& center = AcGePoint2d::kOrigin);
    AcGeMatrix2d& setToScaling(double scale, const AcGePoint2d& center = AcGePoint2d::kOrigin);
    AcGeMatrix2d& setToMirroring(const AcGePoint2d& pnt);
    AcGeMatrix2d& setToMirroring(const AcGeLine2d& line);
    /// The map that takes the first coordinate system to the second.
    AcGeMatrix2d& setToAlignCoordSys(const AcGePoint2d& fromOrigin, const AcGeVector2d& fromE0,
                                     const AcGeVector2d& fromE1, const AcGePoint2d& toOrigin,
                                     const AcGeVector2d& toE0, const AcGeVector2d& toE1);

    static AcGeMatrix2d translation(const AcGeVector2d& vec);
    static AcGeMatrix2d rotation(double angle, const AcGePoint2d& center = AcGePoint2d::kOrigin);
    static AcGeMatrix2d scaling(double scale, const AcGePoint2d& center = AcGePoint2d::kOrigin);
    static AcGeMatrix2d mirroring(const AcGePoint2d& pnt);
    static AcGeMatrix2d mirroring(const AcGeLine2d& line);
    static AcGeMatrix2d alignCoordSys(const AcGePoint2d& fromOrigin, const AcGeVector2d& fromE0,
                                      const AcGeVector2d& fromE1, const AcGePoint2d& toOrigin,
                                      const AcGeVector2d& toE0, const AcGeVector2d& toE1);

    double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }
    double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }

    double entry[3][3]; ///< [row][column]
};

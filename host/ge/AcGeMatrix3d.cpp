#include "gemat3d.h"

#include "geline3d.h"
#include "geplane.h"

#include <algorithm>

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

namespace
{
struct Axes {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
};

Axes axesOf(const AcGeMatrix3d& matrix)
{
    Axes axes;
    matrix.getCoordSystem(axes.origin, axes.x, axes.y, axes.z);
    return axes;
}

double volumeOf(const Axes& axes)
{
    return axes.x.dotProduct(axes.y.crossProduct(axes.z));
}

/// Gauss-Jordan elimination with the largest pivot of the column. False when a column has no pivot.
bool eliminate(double (&a)[4][4], double (&b)[4][4])
{
    for (int column = 0; column < 4; ++column) {
        int pivot = column;
        for (int row = column + 1; row < 4; ++row)
            if (std::fabs(a[row][column]) > std::fabs(a[pivot][column])) pivot = row;
        if (a[pivot][column] == 0 || !std::isfinite(a[pivot][column])) return false;
        std::swap(a[column], a[pivot]);
        std::swap(b[column], b[pivot]);
        for (int row = 0; row < 4; ++row) {
            const double factor = row == column ? 0 : a[row][column] / a[column][column];
            for (int i = 0; i < 4; ++i) {
                a[row][i] -= factor * a[column][i];
                b[row][i] -= factor * b[column][i];
            }
        }
    }
    return true;
}

/// The system of planes with this normal through a point, by the arbitrary axis rule.
AcGeMatrix3d systemOfNormal(const AcGeVector3d& normal)
{
    const double size = normal.length();
    if (!(size > 0)) return AcGeMatrix3d::kIdentity;
    const AcGeVector3d z = normal / size, x = z.perpVector();
    return AcGeMatrix3d().setCoordSystem(AcGePoint3d::kOrigin, x, z.crossProduct(x), z);
}
} // namespace

AcGeMatrix3d& AcGeMatrix3d::setToIdentity() noexcept
{
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            entry[row][column] = row == column;
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const
{
    AcGeMatrix3d product;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            product.entry[row][column] =
                entry[row][0] * right.entry[0][column] + entry[row][1] * right.entry[1][column] +
                entry[row][2] * right.entry[2][column] + entry[row][3] * right.entry[3][column];
    return product;
}

AcGeMatrix3d AcGeMatrix3d::inverse(const AcGeTol&) const
{
    AcGeMatrix3d rest(*this), result;
    if (!eliminate(rest.entry, result.entry)) return *this;
    for (int row = 0; row < 4; ++row)
        for (double& value : result.entry[row])
            value /= rest.entry[row][row];
    return result;
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const
{
    const Axes a = axesOf(*this);
    return !(std::fabs(volumeOf(a)) > tol.equalVector() * a.x.length() * a.y.length() * a.z.length());
}

AcGeMatrix3d AcGeMatrix3d::transpose() const
{
    AcGeMatrix3d result;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            result.entry[row][column] = entry[column][row];
    return result;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol) const
{
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            if (!(std::fabs(entry[row][column] - m.entry[row][column]) <= tol.equalVector())) return false;
    return true;
}

bool AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const
{
    const Axes a = axesOf(*this);
    const double x = a.x.length(), y = a.y.length(), z = a.z.length();
    return isScaledOrtho(tol) &&
           std::max({x, y, z}) - std::min({x, y, z}) <= tol.equalVector() * std::max({x, y, z});
}

bool AcGeMatrix3d::isScaledOrtho(const AcGeTol& tol) const
{
    const Axes a = axesOf(*this);
    return a.x.isPerpendicularTo(a.y, tol) && a.y.isPerpendicularTo(a.z, tol) &&
           a.z.isPerpendicularTo(a.x, tol);
}

double AcGeMatrix3d::det() const
{
    return volumeOf(axesOf(*this));
}

double AcGeMatrix3d::scale() const
{
    const Axes a = axesOf(*this);
    return std::max({a.x.length(), a.y.length(), a.z.length()});
}

double AcGeMatrix3d::norm() const
{
    double largest = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            largest = std::max(largest, std::fabs(entry[row][column]));
    return largest;
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& vec)
{
    for (int row = 0; row < 3; ++row)
        entry[row][3] = vec[row];
    return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis)
{
    setToIdentity();
    for (int row = 0; row < 3; ++row) {
        entry[row][0] = xAxis[row];
        entry[row][1] = yAxis[row];
        entry[row][2] = zAxis[row];
        entry[row][3] = origin[row];
    }
    return *this;
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const
{
    xAxis.set(entry[0][0], entry[1][0], entry[2][0]);
    yAxis.set(entry[0][1], entry[1][1], entry[2][1]);
    zAxis.set(entry[0][2], entry[1][2], entry[2][2]);
    origin.set(entry[0][3], entry[1][3], entry[2][3]);
}

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& vec)
{
    return setToIdentity().setTranslation(vec);
}

AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    AcGeVector3d x(1, 0, 0), y(0, 1, 0), z(0, 0, 1), moved = center.asVector();
    for (AcGeVector3d* v : {&x, &y, &z, &moved})
        v->rotateBy(angle, axis);
    return setCoordSystem(center - moved, x, y, z);
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double factor, const AcGePoint3d& center)
{
    return setCoordSystem(center * (1 - factor), {factor, 0, 0}, {0, factor, 0}, {0, 0, factor});
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePlane& plane)
{
    AcGeVector3d x(1, 0, 0), y(0, 1, 0), z(0, 0, 1), moved = plane.pointOnPlane().asVector();
    for (AcGeVector3d* v : {&x, &y, &z, &moved})
        v->mirror(plane.normal());
    return setCoordSystem(plane.pointOnPlane() - moved, x, y, z);
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGePoint3d& pnt)
{
    return setToScaling(-1, pnt);
}

AcGeMatrix3d& AcGeMatrix3d::setToMirroring(const AcGeLine3d& line)
{
    AcGeVector3d x(1, 0, 0), y(0, 1, 0), z(0, 0, 1), moved = line.pointOnLine().asVector();
    for (AcGeVector3d* v : {&x, &y, &z, &moved})
        *v = -v->mirror(line.direction());
    return setCoordSystem(line.pointOnLine() - moved, x, y, z);
}

AcGeMatrix3d& AcGeMatrix3d::setToProjection(const AcGePlane& plane, const AcGeVector3d& projectDir)
{
    const AcGeVector3d normal = plane.normal(), moved = plane.pointOnPlane().asVector();
    const auto foot = [&](const AcGeVector3d& v) { return v.project(normal, projectDir); };
    return setCoordSystem(plane.pointOnPlane() - foot(moved), foot({1, 0, 0}), foot({0, 1, 0}),
                          foot({0, 0, 1}));
}

AcGeMatrix3d& AcGeMatrix3d::setToAlignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                               const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                               const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                               const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis)
{
    AcGeMatrix3d from, to;
    from.setCoordSystem(fromOrigin, fromXAxis, fromYAxis, fromZAxis);
    to.setCoordSystem(toOrigin, toXAxis, toYAxis, toZAxis);
    return *this = to * from.inverse();
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGeVector3d& normal)
{
    return *this = systemOfNormal(normal).transpose();
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGePlane& plane)
{
    return setToPlaneToWorld(plane).invert();
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGeVector3d& normal)
{
    return *this = systemOfNormal(normal);
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGePlane& plane)
{
    AcGePoint3d origin;
    AcGeVector3d u, v;
    plane.getCoordSystem(origin, u, v);
    return setCoordSystem(origin, u, v, plane.normal());
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& vec)
{
    return AcGeMatrix3d().setToTranslation(vec);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    return AcGeMatrix3d().setToRotation(angle, axis, center);
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center)
{
    return AcGeMatrix3d().setToScaling(factor, center);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePlane& plane)
{
    return AcGeMatrix3d().setToMirroring(plane);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& pnt)
{
    return AcGeMatrix3d().setToMirroring(pnt);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGeLine3d& line)
{
    return AcGeMatrix3d().setToMirroring(line);
}

AcGeMatrix3d AcGeMatrix3d::projection(const AcGePlane& plane, const AcGeVector3d& projectDir)
{
    return AcGeMatrix3d().setToProjection(plane, projectDir);
}

AcGeMatrix3d AcGeMatrix3d::alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                         const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                         const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                         const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis)
{
    return AcGeMatrix3d().setToAlignCoordSys(fromOrigin, fromXAxis, fromYAxis, fromZAxis, toOrigin, toXAxis,
                                             toYAxis, toZAxis);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal)
{
    return AcGeMatrix3d().setToWorldToPlane(normal);
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGePlane& plane)
{
    return AcGeMatrix3d().setToWorldToPlane(plane);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal)
{
    return AcGeMatrix3d().setToPlaneToWorld(normal);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGePlane& plane)
{
    return AcGeMatrix3d().setToPlaneToWorld(plane);
}

AcGeMatrix2d AcGeMatrix3d::convertToLocal(AcGeVector3d& normal, double& elev) const
{
    const Axes from = axesOf(planeToWorld(normal));
    AcGeVector3d image = (*this * from.x).crossProduct(*this * from.y).normal();
    const AcGeMatrix3d local = worldToPlane(image) * *this * planeToWorld(normal);
    const AcGePoint3d origin = local * AcGePoint3d(0, 0, elev);
    normal = image;
    elev = origin.z;
    return AcGeMatrix2d().setCoordSystem({origin.x, origin.y}, {local(0, 0), local(1, 0)},
                                         {local(0, 1), local(1, 1)});
}

#include "gemat2d.h"

#include "geline2d.h"

#include <algorithm>

const AcGeMatrix2d AcGeMatrix2d::kIdentity;

AcGeMatrix2d& AcGeMatrix2d::setToIdentity() noexcept
{
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            entry[row][column] = row == column;
    return *this;
}

AcGeMatrix2d AcGeMatrix2d::operator*(const AcGeMatrix2d& right) const
{
    AcGeMatrix2d product;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            product.entry[row][column] = entry[row][0] * right.entry[0][column] +
                                         entry[row][1] * right.entry[1][column] +
                                         entry[row][2] * right.entry[2][column];
    return product;
}

AcGeMatrix2d AcGeMatrix2d::inverse() const
{
    const double d = det();
    if (d == 0 || !std::isfinite(d)) return *this;
    const AcGeVector2d e0(entry[1][1] / d, -entry[1][0] / d), e1(-entry[0][1] / d, entry[0][0] / d);
    const AcGeVector2d moved = e0 * entry[0][2] + e1 * entry[1][2];
    return AcGeMatrix2d().setCoordSystem(AcGePoint2d(-moved.x, -moved.y), e0, e1);
}

bool AcGeMatrix2d::isSingular(const AcGeTol& tol) const
{
    AcGePoint2d origin;
    AcGeVector2d e0, e1;
    getCoordSystem(origin, e0, e1);
    return !(std::fabs(det()) > tol.equalVector() * e0.length() * e1.length());
}

AcGeMatrix2d AcGeMatrix2d::transpose() const
{
    AcGeMatrix2d result;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            result.entry[row][column] = entry[column][row];
    return result;
}

bool AcGeMatrix2d::isEqualTo(const AcGeMatrix2d& m, const AcGeTol& tol) const
{
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            if (!(std::fabs(entry[row][column] - m.entry[row][column]) <= tol.equalVector())) return false;
    return true;
}

bool AcGeMatrix2d::isUniScaledOrtho(const AcGeTol& tol) const
{
    AcGePoint2d origin;
    AcGeVector2d e0, e1;
    getCoordSystem(origin, e0, e1);
    const double size = std::max(e0.length(), e1.length());
    return isScaledOrtho(tol) && std::fabs(e0.length() - e1.length()) <= tol.equalVector() * size;
}

bool AcGeMatrix2d::isScaledOrtho(const AcGeTol& tol) const
{
    AcGePoint2d origin;
    AcGeVector2d e0, e1;
    getCoordSystem(origin, e0, e1);
    return e0.isPerpendicularTo(e1, tol);
}

double AcGeMatrix2d::scale() const
{
    return std::max(std::hypot(entry[0][0], entry[1][0]), std::hypot(entry[0][1], entry[1][1]));
}

AcGeMatrix2d& AcGeMatrix2d::setTranslation(const AcGeVector2d& vec)
{
    entry[0][2] = vec.x;
    entry[1][2] = vec.y;
    return *this;
}

bool AcGeMatrix2d::isConformal(double& scaleFactor, double& angle, bool& isMirror, AcGeVector2d& reflex) const
{
    if (!isUniScaledOrtho()) return false;
    const AcGeVector2d e0(entry[0][0], entry[1][0]);
    scaleFactor = e0.length();
    isMirror = det() < 0;
    angle = isMirror ? 0 : e0.angle();
    reflex = isMirror ? AcGeVector2d::kXAxis : AcGeVector2d::kIdentity;
    if (isMirror) reflex.rotateBy(e0.angle() / 2);
    return true;
}

AcGeMatrix2d& AcGeMatrix2d::setCoordSystem(const AcGePoint2d& origin, const AcGeVector2d& e0,
                                           const AcGeVector2d& e1)
{
    setToIdentity();
    const AcGeVector2d columns[] = {e0, e1, origin.asVector()};
    for (int column = 0; column < 3; ++column) {
        entry[0][column] = columns[column].x;
        entry[1][column] = columns[column].y;
    }
    return *this;
}

void AcGeMatrix2d::getCoordSystem(AcGePoint2d& origin, AcGeVector2d& e0, AcGeVector2d& e1) const
{
    e0.set(entry[0][0], entry[1][0]);
    e1.set(entry[0][1], entry[1][1]);
    origin.set(entry[0][2], entry[1][2]);
}

AcGeMatrix2d& AcGeMatrix2d::setToTranslation(const AcGeVector2d& vec)
{
    return setToIdentity().setTranslation(vec);
}

AcGeMatrix2d& AcGeMatrix2d::setToRotation(double angle, const AcGePoint2d& center)
{
    const AcGeVector2d e0(std::cos(angle), std::sin(angle)), e1 = e0.perpVector();
    return setCoordSystem(center - e0 * center.x - e1 * center.y, e0, e1);
}

AcGeMatrix2d& AcGeMatrix2d::setToScaling(double factor, const AcGePoint2d& center)
{
    return setCoordSystem(center * (1 - factor), {factor, 0}, {0, factor});
}

AcGeMatrix2d& AcGeMatrix2d::setToMirroring(const AcGePoint2d& pnt)
{
    return setToScaling(-1, pnt);
}

AcGeMatrix2d& AcGeMatrix2d::setToMirroring(const AcGeLine2d& line)
{
    const AcGePoint2d on = line.pointOnLine();
    AcGeVector2d e0(1, 0), e1(0, 1), moved = on.asVector();
    e0.mirror(line.direction());
    e1.mirror(line.direction());
    moved.mirror(line.direction());
    return setCoordSystem(on - moved, e0, e1);
}

AcGeMatrix2d& AcGeMatrix2d::setToAlignCoordSys(const AcGePoint2d& fromOrigin, const AcGeVector2d& fromE0,
                                               const AcGeVector2d& fromE1, const AcGePoint2d& toOrigin,
                                               const AcGeVector2d& toE0, const AcGeVector2d& toE1)
{
    AcGeMatrix2d from, to;
    from.setCoordSystem(fromOrigin, fromE0, fromE1);
    to.setCoordSystem(toOrigin, toE0, toE1);
    return *this = to * from.inverse();
}

AcGeMatrix2d AcGeMatrix2d::translation(const AcGeVector2d& vec)
{
    return AcGeMatrix2d().setToTranslation(vec);
}

AcGeMatrix2d AcGeMatrix2d::rotation(double angle, const AcGePoint2d& center)
{
    return AcGeMatrix2d().setToRotation(angle, center);
}

AcGeMatrix2d AcGeMatrix2d::scaling(double factor, const AcGePoint2d& center)
{
    return AcGeMatrix2d().setToScaling(factor, center);
}

AcGeMatrix2d AcGeMatrix2d::mirroring(const AcGePoint2d& pnt)
{
    return AcGeMatrix2d().setToMirroring(pnt);
}

AcGeMatrix2d AcGeMatrix2d::mirroring(const AcGeLine2d& line)
{
    return AcGeMatrix2d().setToMirroring(line);
}

AcGeMatrix2d AcGeMatrix2d::alignCoordSys(const AcGePoint2d& fromOrigin, const AcGeVector2d& fromE0,
                                         const AcGeVector2d& fromE1, const AcGePoint2d& toOrigin,
                                         const AcGeVector2d& toE0, const AcGeVector2d& toE1)
{
    return AcGeMatrix2d().setToAlignCoordSys(fromOrigin, fromE0, fromE1, toOrigin, toE0, toE1);
}

#include "gevec2d.h"

#include "gemat2d.h"

const AcGeVector2d AcGeVector2d::kIdentity{0, 0};
const AcGeVector2d AcGeVector2d::kXAxis{1, 0};
const AcGeVector2d AcGeVector2d::kYAxis{0, 1};

namespace
{
constexpr double kTwoPi = 6.28318530717958647692;

/// The unit vectors of both; the flag is kOk only when neither is zero.
struct Directions {
    AcGeVector2d a, b;
    AcGeError flag;
};

Directions directionsOf(const AcGeVector2d& a, const AcGeVector2d& b, const AcGeTol& tol)
{
    const AcGeError flag = a.isZeroLength(tol)   ? AcGe::k0This
                           : b.isZeroLength(tol) ? AcGe::k0Arg1
                                                 : AcGe::kOk;
    return {a.normal(tol), b.normal(tol), flag};
}
} // namespace

AcGeVector2d operator*(const AcGeMatrix2d& m, const AcGeVector2d& v)
{
    return {m.entry[0][0] * v.x + m.entry[0][1] * v.y, m.entry[1][0] * v.x + m.entry[1][1] * v.y};
}

AcGeVector2d& AcGeVector2d::setToProduct(const AcGeMatrix2d& matrix, const AcGeVector2d& vec)
{
    return *this = matrix * vec;
}

AcGeVector2d& AcGeVector2d::transformBy(const AcGeMatrix2d& matrix)
{
    return *this = matrix * *this;
}

AcGeVector2d& AcGeVector2d::rotateBy(double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    return set(c * x - s * y, s * x + c * y);
}

AcGeVector2d& AcGeVector2d::mirror(const AcGeVector2d& line)
{
    const double size = line.lengthSqrd();
    if (size > 0) *this = line * (2 * dotProduct(line) / size) - *this;
    return *this;
}

double AcGeVector2d::angle() const
{
    const double a = std::atan2(y, x);
    if (a >= 0) return a + 0.0;
    return a + kTwoPi < kTwoPi ? a + kTwoPi : 0;
}

double AcGeVector2d::angleTo(const AcGeVector2d& vec) const
{
    return std::atan2(std::fabs(crossProduct(vec)), dotProduct(vec));
}

AcGeVector2d AcGeVector2d::normal(const AcGeTol& tol) const
{
    const double size = length();
    return size > tol.equalVector() ? *this / size : AcGeVector2d();
}

AcGeVector2d& AcGeVector2d::normalize(const AcGeTol& tol, AcGeError& flag)
{
    flag = isZeroLength(tol) ? AcGe::k0This : AcGe::kOk;
    if (flag == AcGe::kOk) normalize(tol);
    return *this;
}

bool AcGeVector2d::isParallelTo(const AcGeVector2d& vec, const AcGeTol& tol) const
{
    AcGeError flag;
    return isParallelTo(vec, tol, flag);
}

bool AcGeVector2d::isParallelTo(const AcGeVector2d& vec, const AcGeTol& tol, AcGeError& flag) const
{
    const Directions d = directionsOf(*this, vec, tol);
    flag = d.flag;
    return flag == AcGe::kOk && (d.a.isEqualTo(d.b, tol) || d.a.isEqualTo(-d.b, tol));
}

bool AcGeVector2d::isCodirectionalTo(const AcGeVector2d& vec, const AcGeTol& tol) const
{
    AcGeError flag;
    return isCodirectionalTo(vec, tol, flag);
}

bool AcGeVector2d::isCodirectionalTo(const AcGeVector2d& vec, const AcGeTol& tol, AcGeError& flag) const
{
    const Directions d = directionsOf(*this, vec, tol);
    flag = d.flag;
    return flag == AcGe::kOk && d.a.isEqualTo(d.b, tol);
}

bool AcGeVector2d::isPerpendicularTo(const AcGeVector2d& vec, const AcGeTol& tol) const
{
    AcGeError flag;
    return isPerpendicularTo(vec, tol, flag);
}

bool AcGeVector2d::isPerpendicularTo(const AcGeVector2d& vec, const AcGeTol& tol, AcGeError& flag) const
{
    const Directions d = directionsOf(*this, vec, tol);
    flag = d.flag;
    return flag == AcGe::kOk && std::fabs(d.a.dotProduct(d.b)) <= tol.equalVector();
}

AcGeVector2d::operator AcGeMatrix2d() const
{
    return AcGeMatrix2d::translation(*this);
}

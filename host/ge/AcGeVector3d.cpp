#include "gevec3d.h"

#include "gemat3d.h"
#include "geplanar.h"

const AcGeVector3d AcGeVector3d::kIdentity{0, 0, 0};
const AcGeVector3d AcGeVector3d::kXAxis{1, 0, 0};
const AcGeVector3d AcGeVector3d::kYAxis{0, 1, 0};
const AcGeVector3d AcGeVector3d::kZAxis{0, 0, 1};

namespace
{
constexpr double kTwoPi = 6.28318530717958647692;

/// The unit vectors of both; the flag is kOk only when neither is zero.
struct Directions {
    AcGeVector3d a, b;
    AcGeError flag;
};

Directions directionsOf(const AcGeVector3d& a, const AcGeVector3d& b, const AcGeTol& tol)
{
    const AcGeError flag = a.isZeroLength(tol)   ? AcGe::k0This
                           : b.isZeroLength(tol) ? AcGe::k0Arg1
                                                 : AcGe::kOk;
    return {a.normal(tol), b.normal(tol), flag};
}
} // namespace

AcGeVector3d::AcGeVector3d(const AcGePlanarEnt& plane, const AcGeVector2d& v)
{
    set(plane, v);
}

AcGeVector3d& AcGeVector3d::setToProduct(const AcGeMatrix3d& matrix, const AcGeVector3d& vec)
{
    return *this = matrix * vec;
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

// Rodrigues' rotation formula.
AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis)
{
    const double size = axis.length();
    if (!(size > 0)) return *this;
    const AcGeVector3d k = axis / size;
    const double c = std::cos(angle), s = std::sin(angle);
    return *this = *this * c + k.crossProduct(*this) * s + k * (k.dotProduct(*this) * (1 - c));
}

AcGeVector3d& AcGeVector3d::mirror(const AcGeVector3d& normalToPlane)
{
    const double size = normalToPlane.lengthSqrd();
    if (size > 0) *this -= normalToPlane * (2 * dotProduct(normalToPlane) / size);
    return *this;
}

AcGeVector2d AcGeVector3d::convert2d(const AcGePlanarEnt& plane) const
{
    const AcGePoint2d end = plane.AcGePlanarEnt::paramOf(plane.pointOnPlane() + *this);
    return {end.x, end.y};
}

AcGeVector3d AcGeVector3d::perpVector() const
{
    const double size = length();
    if (!(size > 0)) return {};
    constexpr double nearZ = 1.0 / 64;
    const bool alongZ = std::fabs(x) < nearZ * size && std::fabs(y) < nearZ * size;
    const AcGeVector3d perp = (alongZ ? kYAxis : kZAxis).crossProduct(*this);
    return perp / perp.length();
}

double AcGeVector3d::angleTo(const AcGeVector3d& vec) const
{
    return std::atan2(crossProduct(vec).length(), dotProduct(vec));
}

double AcGeVector3d::angleTo(const AcGeVector3d& vec, const AcGeVector3d& refVec) const
{
    const double angle = angleTo(vec);
    if (refVec.dotProduct(crossProduct(vec)) >= 0) return angle;
    return kTwoPi - angle < kTwoPi ? kTwoPi - angle : 0;
}

double AcGeVector3d::angleOnPlane(const AcGePlanarEnt& plane) const
{
    const AcGeVector3d normal = plane.normal();
    AcGePoint3d origin;
    AcGeVector3d u, v;
    plane.getCoordSystem(origin, u, v);
    return AcGeVector2d(dotProduct(u) / u.length(), dotProduct(normal.crossProduct(u)) / u.length()).angle();
}

AcGeVector3d& AcGeVector3d::normalize(const AcGeTol& tol, AcGeError& flag)
{
    flag = isZeroLength(tol) ? AcGe::k0This : AcGe::kOk;
    if (flag == AcGe::kOk) normalize(tol);
    return *this;
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& vec, const AcGeTol& tol) const
{
    AcGeError flag;
    return isParallelTo(vec, tol, flag);
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& vec, const AcGeTol& tol, AcGeError& flag) const
{
    const Directions d = directionsOf(*this, vec, tol);
    flag = d.flag;
    return flag == AcGe::kOk && (d.a.isEqualTo(d.b, tol) || d.a.isEqualTo(-d.b, tol));
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& vec, const AcGeTol& tol) const
{
    AcGeError flag;
    return isCodirectionalTo(vec, tol, flag);
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& vec, const AcGeTol& tol, AcGeError& flag) const
{
    const Directions d = directionsOf(*this, vec, tol);
    flag = d.flag;
    return flag == AcGe::kOk && d.a.isEqualTo(d.b, tol);
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& vec, const AcGeTol& tol) const
{
    AcGeError flag;
    return isPerpendicularTo(vec, tol, flag);
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& vec, const AcGeTol& tol, AcGeError& flag) const
{
    const Directions d = directionsOf(*this, vec, tol);
    flag = d.flag;
    return flag == AcGe::kOk && std::fabs(d.a.dotProduct(d.b)) <= tol.equalVector();
}

AcGeMatrix3d AcGeVector3d::rotateTo(const AcGeVector3d& vec, const AcGeVector3d& axis) const
{
    const AcGeVector3d turn = crossProduct(vec);
    const bool opposite = turn.isZeroLength() && dotProduct(vec) < 0;
    const AcGeVector3d about = !opposite ? turn : axis.isZeroLength() ? perpVector() : axis;
    return AcGeMatrix3d::rotation(angleTo(vec), about);
}

AcGeVector3d AcGeVector3d::project(const AcGeVector3d& planeNormal,
                                   const AcGeVector3d& projectDirection) const
{
    AcGeError flag;
    return project(planeNormal, projectDirection, AcGeContext::gTol, flag);
}

AcGeVector3d AcGeVector3d::project(const AcGeVector3d& planeNormal, const AcGeVector3d& projectDirection,
                                   const AcGeTol& tol, AcGeError& flag) const
{
    flag = planeNormal.isZeroLength(tol)                          ? AcGe::k0Arg1
           : projectDirection.isZeroLength(tol)                   ? AcGe::k0Arg2
           : planeNormal.isPerpendicularTo(projectDirection, tol) ? AcGe::kPerpendicularArg1Arg2
                                                                  : AcGe::kOk;
    if (flag != AcGe::kOk) return *this;
    return *this - projectDirection * (dotProduct(planeNormal) / projectDirection.dotProduct(planeNormal));
}

AcGeVector3d AcGeVector3d::orthoProject(const AcGeVector3d& planeNormal) const
{
    AcGeError flag;
    return orthoProject(planeNormal, AcGeContext::gTol, flag);
}

AcGeVector3d AcGeVector3d::orthoProject(const AcGeVector3d& planeNormal, const AcGeTol& tol,
                                        AcGeError& flag) const
{
    return project(planeNormal, planeNormal, tol, flag);
}

unsigned int AcGeVector3d::largestElement() const
{
    const double a = std::fabs(x), b = std::fabs(y), c = std::fabs(z);
    return a >= b && a >= c ? 0 : b >= c ? 1 : 2;
}

AcGeVector3d& AcGeVector3d::set(const AcGePlanarEnt& plane, const AcGeVector2d& v)
{
    return *this = plane.evalPoint({v.x, v.y}) - plane.pointOnPlane();
}

AcGeVector3d::operator AcGeMatrix3d() const
{
    return AcGeMatrix3d::translation(*this);
}

#include "geray2d.h"

#include <cmath>
#include <limits>

namespace
{
constexpr double kInfinity = std::numeric_limits<double>::infinity();
}

AcGeRay2d::AcGeRay2d() : AcGeRay2d({0, 0}, AcGeVector2d(1, 0)) {}

AcGeRay2d::AcGeRay2d(const AcGePoint2d& pnt, const AcGeVector2d& vec)
    : AcGeLinearEnt2d(pnt, vec, 0, kInfinity)
{
}

bool AcGeRay2d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || hi != kInfinity) return false;
    mLo = lo;
    mHi = hi;
    return true;
}

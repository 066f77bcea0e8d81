#include "geray3d.h"

#include <cmath>
#include <limits>

namespace
{
constexpr double kInfinity = std::numeric_limits<double>::infinity();
}

AcGeRay3d::AcGeRay3d() : AcGeRay3d({0, 0, 0}, AcGeVector3d(1, 0, 0)) {}

AcGeRay3d::AcGeRay3d(const AcGePoint3d& pnt, const AcGeVector3d& vec)
    : AcGeLinearEnt3d(pnt, vec, 0, kInfinity)
{
}

bool AcGeRay3d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || hi != kInfinity) return false;
    mLo = lo;
    mHi = hi;
    return true;
}

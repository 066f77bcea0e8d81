#include "geline3d.h"

#include <limits>

namespace
{
constexpr double kInfinity = std::numeric_limits<double>::infinity();
}

const AcGeLine3d AcGeLine3d::kXAxis({0, 0, 0}, AcGeVector3d(1, 0, 0));
const AcGeLine3d AcGeLine3d::kYAxis({0, 0, 0}, AcGeVector3d(0, 1, 0));
const AcGeLine3d AcGeLine3d::kZAxis({0, 0, 0}, AcGeVector3d(0, 0, 1));

AcGeLine3d::AcGeLine3d() : AcGeLine3d({0, 0, 0}, AcGeVector3d(1, 0, 0)) {}

AcGeLine3d::AcGeLine3d(const AcGePoint3d& pnt, const AcGeVector3d& vec)
    : AcGeLinearEnt3d(pnt, vec, -kInfinity, kInfinity)
{
}

bool AcGeLine3d::setBounds(double lo, double hi)
{
    return lo == -kInfinity && hi == kInfinity;
}

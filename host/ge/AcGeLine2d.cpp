#include "geline2d.h"

#include <limits>

namespace
{
constexpr double kInfinity = std::numeric_limits<double>::infinity();
}

const AcGeLine2d AcGeLine2d::kXAxis({0, 0}, AcGeVector2d(1, 0));
const AcGeLine2d AcGeLine2d::kYAxis({0, 0}, AcGeVector2d(0, 1));

AcGeLine2d::AcGeLine2d() : AcGeLine2d({0, 0}, AcGeVector2d(1, 0)) {}

AcGeLine2d::AcGeLine2d(const AcGePoint2d& pnt, const AcGeVector2d& vec)
    : AcGeLinearEnt2d(pnt, vec, -kInfinity, kInfinity)
{
}

bool AcGeLine2d::setBounds(double lo, double hi)
{
    return lo == -kInfinity && hi == kInfinity;
}

#include "geell2d.h"

#include "DimensionNames.h"
#include "gearc2d.h"
#include "gelent2d.h"
#include "geline2d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeEllipArc.inl"

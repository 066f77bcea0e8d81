#include "gelnsg3d.h"

#include "geline3d.h"
#include "geplane.h"

void AcGeLineSeg3d::getBisector(AcGePlane& plane) const
{
    plane.set(midPoint(), direction());
}

AcGePoint3d AcGeLineSeg3d::baryComb(double blendCoeff) const
{
    return mOrigin + mVector * (mLo + (mHi - mLo) * blendCoeff);
}

bool AcGeLineSeg3d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi)) return false;
    mLo = lo;
    mHi = hi;
    return true;
}

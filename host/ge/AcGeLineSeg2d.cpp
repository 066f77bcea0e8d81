#include "gelnsg2d.h"

#include "geline2d.h"

void AcGeLineSeg2d::getBisector(AcGeLine2d& line) const
{
    line.set(midPoint(), direction().perpVector());
}

AcGePoint2d AcGeLineSeg2d::baryComb(double blendCoeff) const
{
    return mOrigin + mVector * (mLo + (mHi - mLo) * blendCoeff);
}

bool AcGeLineSeg2d::setBounds(double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi)) return false;
    mLo = lo;
    mHi = hi;
    return true;
}

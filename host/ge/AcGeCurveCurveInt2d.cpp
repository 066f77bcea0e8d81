#include "gecint2d.h"

#include "DimensionNames.h"
#include "geponc2d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(2d)
} // namespace

#include "AcGeCurveCurveInt.inl"

AcGeCurveCurveInt2d::AcGeCurveCurveInt2d() : mResults(std::make_shared<std::vector<Result>>()) {}

AcGeCurveCurveInt2d::AcGeCurveCurveInt2d(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2,
                                         const AcGeTol& tol)
{
    set(curve1, curve2, tol);
}

AcGeCurveCurveInt2d::AcGeCurveCurveInt2d(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2,
                                         const AcGeInterval& range1, const AcGeInterval& range2,
                                         const AcGeTol& tol)
{
    set(curve1, curve2, range1, range2, tol);
}

AcGeCurveCurveInt2d& AcGeCurveCurveInt2d::set(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2,
                                              const AcGeTol& tol)
{
    return set(curve1, curve2, AcGeInterval(), AcGeInterval(), tol);
}

AcGeCurveCurveInt2d& AcGeCurveCurveInt2d::set(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2,
                                              const AcGeInterval& range1, const AcGeInterval& range2,
                                              const AcGeTol& tol)
{
    mCurve1 = &curve1;
    mCurve2 = &curve2;
    mRange1 = range1;
    mRange2 = range2;
    mTol = tol;
    const Arrow normal(0, 0, 1);
    const CurveForm a = within(curve1.form(), range1), b = within(curve2.form(), range2);
    const Meetings found = a.lo <= a.hi && b.lo <= b.hi ? meet(a, b, tol.equalPoint()) : Meetings();
    mOverlaps = overlapsOf(found);
    mResults =
        std::make_shared<const std::vector<Result>>(resultsOf<Result>(a, b, found, range1, range2, normal));
    return *this;
}

AcGeCurveCurveInt2d& AcGeCurveCurveInt2d::changeCurveOrder()
{
    return mCurve1 ? set(*mCurve2, *mCurve1, AcGeInterval(mRange2), AcGeInterval(mRange1), AcGeTol(mTol))
                   : *this;
}

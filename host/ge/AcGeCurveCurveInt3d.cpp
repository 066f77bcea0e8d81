#include "gecint3d.h"

#include "DimensionNames.h"
#include "geponc3d.h"

using namespace gecore;

namespace
{
GE_DIMENSION_NAMES(3d)
} // namespace

#include "AcGeCurveCurveInt.inl"

AcGeCurveCurveInt3d::AcGeCurveCurveInt3d() : mResults(std::make_shared<std::vector<Result>>()) {}

AcGeCurveCurveInt3d::AcGeCurveCurveInt3d(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                         const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    set(curve1, curve2, planeNormal, tol);
}

AcGeCurveCurveInt3d::AcGeCurveCurveInt3d(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                         const AcGeInterval& range1, const AcGeInterval& range2,
                                         const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    set(curve1, curve2, range1, range2, planeNormal, tol);
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::set(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                              const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    return set(curve1, curve2, AcGeInterval(), AcGeInterval(), planeNormal, tol);
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::set(const AcGeCurve3d& curve1, const AcGeCurve3d& curve2,
                                              const AcGeInterval& range1, const AcGeInterval& range2,
                                              const AcGeVector3d& planeNormal, const AcGeTol& tol)
{
    mCurve1 = &curve1;
    mCurve2 = &curve2;
    mRange1 = range1;
    mRange2 = range2;
    mNormal = planeNormal;
    mTol = tol;
    const Arrow normal = lift(mNormal).length() > 0 ? lift(mNormal) : Arrow(0, 0, 1);
    const CurveForm a = within(curve1.form(), range1), b = within(curve2.form(), range2);
    const Meetings found = a.lo <= a.hi && b.lo <= b.hi ? meet(a, b, tol.equalPoint()) : Meetings();
    mOverlaps = overlapsOf(found);
    mResults =
        std::make_shared<const std::vector<Result>>(resultsOf<Result>(a, b, found, range1, range2, normal));
    return *this;
}

AcGeCurveCurveInt3d& AcGeCurveCurveInt3d::changeCurveOrder()
{
    return mCurve1 ? set(*mCurve2, *mCurve1, AcGeInterval(mRange2), AcGeInterval(mRange1),
                         AcGeVector3d(mNormal), AcGeTol(mTol))
                   : *this;
}

#pragma once

#include "gecurv2d.h"

#include <memory>
#include <vector>

class AcGePointOnCurve2d;

/// The intersections of two curves, computed when the object is made. The curves are not owned; what refers
/// to them (curve1, getPointOnCurve1 ...) needs them alive. A contact that stays within the tolerance over a
/// stretch is one point when the curves touch there, and an overlap when they share the stretch. Indices
/// count from 0; one out of range yields the origin or 0 and the error kXXIndexOutOfRange.
class AcGeCurveCurveInt2d : public AcGeEntity2d
{
public:
    AcGeCurveCurveInt2d();
    AcGeCurveCurveInt2d(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2,
                        const AcGeTol& tol = AcGeContext::gTol);
    /// Within the ranges of the curves only.
    AcGeCurveCurveInt2d(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2, const AcGeInterval& range1,
                        const AcGeInterval& range2, const AcGeTol& tol = AcGeContext::gTol);

    AcGe::EntityId type() const override { return AcGe::kCurveCurveInt2d; }
    AcGeCurveCurveInt2d* copy() const override { return new AcGeCurveCurveInt2d(*this); }
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    /// Results do not move: nothing happens.
    AcGeCurveCurveInt2d& transformBy(const AcGeMatrix2d&) override { return *this; }
    /// True for a point next to one of the intersections.
    bool isOn(const AcGePoint2d& pnt, const AcGeTol& tol = AcGeContext::gTol) const override;

    const AcGeCurve2d* curve1() const { return mCurve1; }
    const AcGeCurve2d* curve2() const { return mCurve2; }
    void getIntRanges(AcGeInterval& range1, AcGeInterval& range2) const;
    AcGeTol tolerance() const { return mTol; }

    int numIntPoints() const;
    int numIntPoints(AcGeIntersectError& err) const;
    AcGePoint2d intPoint(int intNum) const;
    AcGePoint2d intPoint(int intNum, AcGeIntersectError& err) const;
    void getIntParams(int intNum, double& param1, double& param2) const;
    void getIntParams(int intNum, double& param1, double& param2, AcGeIntersectError& err) const;
    void getPointOnCurve1(int intNum, AcGePointOnCurve2d& pnt) const;
    void getPointOnCurve2(int intNum, AcGePointOnCurve2d& pnt) const;
    /// How the second curve passes the first, and the reverse: kLeftRight crosses from left to right,
    /// kLeftLeft stays left, kPointLeft and kPointRight meet an end.
    void getIntConfigs(int intNum, AcGe::AcGeXConfig& config1wrt2, AcGe::AcGeXConfig& config2wrt1) const;
    bool isTangential(int intNum) const;
    bool isTransversal(int intNum) const;
    double intPointTol(int intNum) const;

    int overlapCount() const;
    /// True when the curves run in the same direction on the overlap.
    bool overlapDirection() const;
    void getOverlapRanges(int overlapNum, AcGeInterval& range1, AcGeInterval& range2) const;

    AcGeCurveCurveInt2d& orderWrt1();
    AcGeCurveCurveInt2d& orderWrt2();
    AcGeCurveCurveInt2d& changeCurveOrder();
    AcGeCurveCurveInt2d& set(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2,
                             const AcGeTol& tol = AcGeContext::gTol);
    AcGeCurveCurveInt2d& set(const AcGeCurve2d& curve1, const AcGeCurve2d& curve2, const AcGeInterval& range1,
                             const AcGeInterval& range2, const AcGeTol& tol = AcGeContext::gTol);

private:
    struct Result;
    const Result* resultAt(int intNum) const;

    const AcGeCurve2d* mCurve1 = nullptr;
    const AcGeCurve2d* mCurve2 = nullptr;
    AcGeInterval mRange1, mRange2;
    AcGeTol mTol;
    AcGeDoubleArray mOverlaps; ///< s0, s1, t0, t1 of each
    std::shared_ptr<const std::vector<Result>> mResults;
};

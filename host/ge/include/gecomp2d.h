#pragma once

#include "gecurv2d.h"

#include <memory>
#include <vector>

namespace gecore
{
struct ChainLink;
}

/// Bounded curves one after the other. The parameter starts at 0 and runs through the interval of each curve
/// in turn. Curves are copied unless they are handed over; unbounded ones and null pointers are left out.
class AcGeCompositeCurve2d : public AcGeCurve2d
{
public:
    AcGeCompositeCurve2d();
    AcGeCompositeCurve2d(const AcGeVoidPointerArray& curveList);
    /// Curves whose flag is not 0 are handed over: they are deleted with the composite.
    AcGeCompositeCurve2d(const AcGeVoidPointerArray& curveList, const AcGeIntArray& isOwnerOfCurves);
    AcGeCompositeCurve2d(const AcGeCompositeCurve2d& other);
    AcGeCompositeCurve2d& operator=(const AcGeCompositeCurve2d& other);
    ~AcGeCompositeCurve2d() override;

    AcGe::EntityId type() const override { return AcGe::kCompositeCrv2d; }
    AcGeCompositeCurve2d* copy() const override { return new AcGeCompositeCurve2d(*this); }
    bool isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeCompositeCurve2d& transformBy(const AcGeMatrix2d& xfm) override;

    /// The curves themselves (AcGeCurve2d*), which stay the composite's and live as long as it is unchanged.
    void getCurveList(AcGeVoidPointerArray& curveList) const;
    AcGeCompositeCurve2d& setCurveList(const AcGeVoidPointerArray& curveList);
    AcGeCompositeCurve2d& setCurveList(const AcGeVoidPointerArray& curveList,
                                       const AcGeIntArray& isOwnerOfCurves);
    /// The parameter of a curve of the list, and its index, for one of the composite, and back.
    double globalToLocalParam(double param, int& crvNum) const;
    double localToGlobalParam(double param, int crvNum) const;

    gecore::CurveForm form() const override;

protected:
    void turnRound() override;
    bool setBounds(double lo, double hi) override;

private:
    void link(double start);

    std::vector<std::unique_ptr<AcGeCurve2d>> mCurves;
    std::vector<gecore::ChainLink> mLinks;
};

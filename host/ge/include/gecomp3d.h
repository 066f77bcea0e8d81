#pragma once

#include "gecurv3d.h"

#include <memory>
#include <vector>

namespace gecore
{
struct ChainLink;
}

/// Bounded curves one after the other. The parameter starts at 0 and runs through the interval of each curve
/// in turn. Curves are copied unless they are handed over; unbounded ones and null pointers are left out.
class AcGeCompositeCurve3d : public AcGeCurve3d
{
public:
    AcGeCompositeCurve3d();
    AcGeCompositeCurve3d(const AcGeVoidPointerArray& curveList);
    /// Curves whose flag is not 0 are handed over: they are deleted with the composite.
    AcGeCompositeCurve3d(const AcGeVoidPointerArray& curveList, const AcGeIntArray& isOwnerOfCurves);
    AcGeCompositeCurve3d(const AcGeCompositeCurve3d& other);
    AcGeCompositeCurve3d& operator=(const AcGeCompositeCurve3d& other);
    ~AcGeCompositeCurve3d() override;

    AcGe::EntityId type() const override { return AcGe::kCompositeCrv3d; }
    AcGeCompositeCurve3d* copy() const override { return new AcGeCompositeCurve3d(*this); }
    bool isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGeCompositeCurve3d& transformBy(const AcGeMatrix3d& xfm) override;

    /// The curves themselves (AcGeCurve3d*), which stay the composite's and live as long as it is unchanged.
    void getCurveList(AcGeVoidPointerArray& curveList) const;
    AcGeCompositeCurve3d& setCurveList(const AcGeVoidPointerArray& curveList);
    AcGeCompositeCurve3d& setCurveList(const AcGeVoidPointerArray& curveList,
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

    std::vector<std::unique_ptr<AcGeCurve3d>> mCurves;
    std::vector<gecore::ChainLink> mLinks;
};

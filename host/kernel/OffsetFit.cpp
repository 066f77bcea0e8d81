#include "OffsetFit.h"

#include "CurveFactory.h"
#include "Spline.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
constexpr int kDeepest = 14;
constexpr int kSamples = 32; // between two breaks, to find where the offset turns back

struct Moved {
    AcGePoint3d point;
    AcGeVector3d derivative;
    double reach = 1; ///< 1 - distance * curvature: negative where the offset runs backwards
};

class Fit
{
public:
    Fit(const CurveForm& form, double distance, double tol) : mForm(form), mDistance(distance), mTol(tol) {}

    /// O = C + d N with N' = -k C' (k the curvature), hence O' = (1 - d k) C'.
    Moved at(double t) const
    {
        AcGeVector3d d[3];
        derivatives(mForm, t, 2, d);
        const AcGeVector2d tangent = tangentAt(mForm, t);
        Moved result;
        result.point = AcGePoint3d::kOrigin + d[0] + AcGeVector3d(-tangent.y, tangent.x, 0) * mDistance;
        const double speed = std::hypot(d[1].x, d[1].y);
        if (speed > 0)
            result.reach = 1 - mDistance * (d[1].x * d[2].y - d[1].y * d[2].x) / (speed * speed * speed);
        result.derivative = d[1] * result.reach;
        return result;
    }

    std::vector<double> turns() const
    {
        std::vector<double> result{mForm.lo};
        const std::vector<double> breaks = smoothBreaks(mForm);
        for (std::size_t i = 1; i < breaks.size(); ++i)
            for (int k = 0; k < kSamples; ++k) {
                const double width = (breaks[i] - breaks[i - 1]) / kSamples;
                const double a = breaks[i - 1] + width * k, b = a + width;
                if ((at(a).reach < 0) != (at(b).reach < 0)) result.push_back(turnBetween(a, b));
            }
        result.push_back(mForm.hi);
        return result;
    }

    CurvePtr between(double lo, double hi) const
    {
        std::vector<double> params{lo};
        double from = lo;
        for (const double t : smoothBreaks(mForm)) {
            if (t <= lo || t >= hi) continue;
            refine(from, t, kDeepest, params);
            from = t;
        }
        refine(from, hi, kDeepest, params);
        std::vector<AcGePoint3d> points;
        std::vector<AcGeVector3d> slopes;
        for (const double t : params) {
            const Moved moved = at(t);
            points.push_back(moved.point);
            slopes.push_back(moved.derivative);
        }
        const Spline spline = hermite(points, params, slopes);
        return CurvePtr(curve2dOf(splineForm(spline)));
    }

private:
    double turnBetween(double a, double b) const
    {
        const bool back = at(a).reach < 0;
        for (int i = 0; i < 60; ++i) {
            const double t = (a + b) / 2;
            ((at(t).reach < 0) == back ? a : b) = t;
        }
        return (a + b) / 2;
    }

    /// Halves the stretch until the cubic with the ends and slopes of the offset is near enough.
    void refine(double a, double b, int depth, std::vector<double>& params) const
    {
        if (depth > 0 && !isNear(a, b)) {
            refine(a, (a + b) / 2, depth - 1, params);
            refine((a + b) / 2, b, depth - 1, params);
        } else {
            params.push_back(b);
        }
    }

    bool isNear(double a, double b) const
    {
        const Moved start = at(a), end = at(b);
        const Spline cubic = hermite({start.point, end.point}, {a, b}, {start.derivative, end.derivative});
        for (int i = 1; i <= 3; ++i) {
            AcGeVector3d p;
            const double t = a + (b - a) * i / 4;
            cubic.derivatives(t, 0, &p);
            if (!((AcGePoint3d::kOrigin + p).distanceTo(at(t).point) <= mTol)) return false;
        }
        return true;
    }

    const CurveForm& mForm;
    double mDistance, mTol;
};
} // namespace

AcGeVector2d tangentAt(const CurveForm& form, double t)
{
    AcGeVector3d d[2];
    derivatives(form, t, 1, d);
    const double width = form.hi - form.lo, inside = t - form.lo > width / 2 ? -1 : 1;
    for (double step = 1e-9; d[1].length() < 1e-12 && step < 1e-2; step *= 10)
        derivatives(form, t + inside * step * width, 1, d);
    return AcGeVector2d(d[1].x, d[1].y).normal();
}

std::vector<CurvePtr> offsetPieces(const CurveForm& form, double distance, double fit)
{
    const std::unique_ptr<AcGeCurve2d> curve(curve2dOf(form));
    if (CurvePtr exact{offsetOf(*curve, distance, AcGeContext::gTol)}) return {exact};
    if (form.kind == FormKind::kLine || isCircle(form)) return {};
    const Fit offset(form, distance, fit);
    std::vector<CurvePtr> pieces;
    const std::vector<double> turns = offset.turns();
    for (std::size_t i = 1; i < turns.size(); ++i)
        if (turns[i] > turns[i - 1]) pieces.push_back(offset.between(turns[i - 1], turns[i]));
    return pieces;
}
} // namespace kernel

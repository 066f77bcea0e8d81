#include "CurveSample.h"

#include "Span.h"

#include <algorithm>

namespace gecore
{
namespace
{
constexpr std::size_t kMostSamples = 100000;
constexpr int kDeepest = 30;

/// True when three points between strays no further than eps from the chord.
bool isFlat(const CurveForm& form, double a, double b, double eps)
{
    const AcGePoint3d start = pointAt(form, a), end = pointAt(form, b);
    for (int i = 1; i <= 3; ++i)
        if (distanceToSegment(pointAt(form, a + (b - a) * i / 4), start, end) > eps) return false;
    return true;
}

void sample(const CurveForm& form, double a, double b, double eps, int depth, std::vector<double>& params)
{
    const double middle = a + (b - a) / 2;
    if (depth < kDeepest && params.size() < kMostSamples && !isFlat(form, a, b, eps)) {
        sample(form, a, middle, eps, depth + 1, params);
        sample(form, middle, b, eps, depth + 1, params);
    } else {
        params.push_back(b);
    }
}

/// Equal steps whose arcs rise no more than eps above their chords.
void sampleCircle(const CurveForm& form, double a, double b, double eps, std::vector<double>& params)
{
    const double radius = form.u.length(), half = eps < radius ? std::acos(1 - eps / radius) : kPi / 4;
    const double step = std::clamp(2 * half, (b - a) / static_cast<double>(kMostSamples - 1), kPi / 2);
    const int count =
        static_cast<int>(std::clamp(std::ceil((b - a) / step - 1e-9), 1.0, 1.0 * (kMostSamples - 1)));
    for (int i = 1; i <= count; ++i)
        params.push_back(i == count ? b : a + (b - a) * i / count);
}
} // namespace

std::vector<double> sampleParams(const CurveForm& form, double a, double b, double eps)
{
    if (!std::isfinite(a) || !std::isfinite(b) || !isFinite(form)) return {};
    if (b < a) {
        std::vector<double> params = sampleParams(form, b, a, eps);
        std::reverse(params.begin(), params.end());
        return params;
    }
    std::vector<double> params{a};
    if (!(b > a)) return params;
    if (isCircle(form)) {
        sampleCircle(form, a, b, eps, params);
        return params;
    }
    std::vector<double> stops;
    for (const double t : smoothBreaks(form))
        if (t > a && t < b) stops.push_back(t);
    stops.push_back(b);
    for (const double t : stops) {
        const double from = params.back();
        const int cuts = form.kind == FormKind::kLine ? 1 : 2; // a symmetric wave could look flat as a whole
        for (int i = 1; i <= cuts; ++i)
            sample(form, from + (t - from) * (i - 1) / cuts, i == cuts ? t : from + (t - from) * i / cuts,
                   eps, 0, params);
    }
    return params;
}
} // namespace gecore

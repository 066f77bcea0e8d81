#include "AcisCurves.h"

#include "CurveFactory.h"
#include "Spline.h"
#include "SplineBuild.h"

#include <cmath>

namespace kernel
{
using namespace gecore;

namespace
{
constexpr double kSame = 1e-6; // vertices of a file are no better than this
constexpr int kMostKnots = 100000;

std::shared_ptr<const AcGeCurve3d> made(const CurveForm& form, bool against)
{
    std::unique_ptr<AcGeCurve3d> curve(curve3dOf(form));
    if (against) curve->reverseParam();
    return curve;
}

/// The form from the parameter of one point to that of the other, over the start of a closed curve.
void cutConic(CurveForm& form, const AcGePoint3d& from, const AcGePoint3d& to)
{
    const auto angle = [&](const AcGePoint3d& p) {
        const AcGeVector3d off = p - form.origin;
        return std::atan2(off.dotProduct(form.v) / form.v.lengthSqrd(),
                          off.dotProduct(form.u) / form.u.lengthSqrd());
    };
    form.lo = angle(from);
    form.hi = from.distanceTo(to) <= kSame ? form.lo + kTwoPi : angle(to);
    if (form.hi <= form.lo) form.hi += kTwoPi;
}

AcisStatus readConic(AcisFields& in, const AcGePoint3d& from, const AcGePoint3d& to, bool against,
                     std::shared_ptr<const AcGeCurve3d>& curve)
{
    const AcGePoint3d center = in.point();
    const AcGeVector3d normal = in.vector(), major = in.vector();
    const double ratio = in.real();
    if (!in.ok() || !(normal.length() > 0) || !(major.length() > 0) || !(ratio > 0))
        return AcisStatus::kDamaged;
    CurveForm form = conicForm(center, major, normal.normal().crossProduct(major) * ratio, 0, kTwoPi);
    against ? cutConic(form, to, from) : cutConic(form, from, to);
    curve = made(form, against);
    return AcisStatus::kOk;
}

/// Knots are given once with their multiplicity, which at the ends is one less than that of a clamped spline.
bool readKnots(AcisFields& in, Spline& spline)
{
    const int count = in.whole();
    if (count < 2 || count > kMostKnots) return false;
    for (int i = 0; i < count && in.ok(); ++i) {
        const double knot = in.real();
        const int times = in.whole(), extra = i == 0 || i == count - 1 ? 1 : 0;
        const bool suits = extra ? times == spline.degree : times >= 1 && times <= spline.degree;
        if (!suits) return false;
        spline.knots.insert(spline.knots.end(), static_cast<std::size_t>(times + extra), knot);
    }
    return in.ok();
}

AcisStatus readNurbs(AcisFields& in, Spline& spline)
{
    const std::string kind = in.word();
    if (kind != "nubs" && kind != "nurbs") return AcisStatus::kUnsupported;
    spline.degree = in.whole();
    in.skip(); // open, closed or periodic: the knots tell
    if (!in.ok() || spline.degree < 1 || spline.degree > kMaxDegree) return AcisStatus::kDamaged;
    if (!readKnots(in, spline)) return AcisStatus::kDamaged;
    for (std::size_t i = static_cast<std::size_t>(spline.degree) + 1; i < spline.knots.size() && in.ok();
         ++i) {
        spline.points.push_back(in.point());
        if (kind == "nurbs") spline.weights.push_back(in.real());
    }
    return in.ok() && spline.isValid() ? AcisStatus::kOk : AcisStatus::kDamaged;
}

AcisStatus readSpline(AcisFields& in, const AcGePoint3d& from, const AcGePoint3d& to, bool against,
                      std::shared_ptr<const AcGeCurve3d>& curve)
{
    if (in.accept("reversed")) {
        against = !against;
    } else if (!in.accept("forward")) {
        return AcisStatus::kDamaged;
    }
    if (!in.accept("{") || !in.accept("exactcur")) return AcisStatus::kUnsupported;
    in.accept("full");
    Spline spline;
    const AcisStatus status = readNurbs(in, spline);
    if (status != AcisStatus::kOk) return status;
    const std::unique_ptr<AcGeCurve3d> whole(curve3dOf(splineForm(spline)));
    CurveForm form = whole->form();
    const AcGePoint3d &first = against ? to : from, &last = against ? from : to;
    if (startOf(form).distanceTo(first) > kSame) form.lo = whole->paramOf(first);
    if (endOf(form).distanceTo(last) > kSame) form.hi = whole->paramOf(last);
    if (!(form.lo < form.hi)) return AcisStatus::kUnsupported;
    curve = made(form, against);
    return AcisStatus::kOk;
}

std::string splineText(const Spline& spline, int version)
{
    const bool closed = spline.points.front().distanceTo(spline.points.back()) <= kSame;
    std::string text = spline.isRational() ? "nurbs " : "nubs ";
    std::string knots;
    int count = 0;
    for (std::size_t i = 0; i < spline.knots.size(); ++count) {
        std::size_t next = i;
        while (next < spline.knots.size() && spline.knots[next] == spline.knots[i])
            ++next;
        const std::size_t times = next - i - (i == 0 || next == spline.knots.size() ? 1 : 0);
        knots += " " + acisNumber(spline.knots[i]) + " " + std::to_string(times);
        i = next;
    }
    text += std::to_string(spline.degree) + (closed ? " closed " : " open ") + std::to_string(count) + knots;
    for (std::size_t i = 0; i < spline.points.size(); ++i) {
        text += " " + acisText(spline.points[i]);
        if (spline.isRational()) text += " " + acisNumber(spline.weights[i]);
    }
    // No fit tolerance, no surfaces, no curves on them; from version 500 on no discontinuities either.
    return text + " 0 null_surface null_surface nullbs nullbs I I" + (version >= 500 ? " 0 0 0" : "");
}
} // namespace

std::string acisText(const AcGePoint3d& p)
{
    return acisNumber(p.x) + " " + acisNumber(p.y) + " " + acisNumber(p.z);
}

AcisStatus readAcisCurve(const AcisRecord& record, int version, const AcGePoint3d& from,
                         const AcGePoint3d& to, bool against, std::shared_ptr<const AcGeCurve3d>& curve)
{
    AcisFields in(record, version);
    if (record.name == "straight-curve") {
        if (from.distanceTo(to) <= 0) return AcisStatus::kDamaged;
        curve = made(lineForm(from, to - from, 0, 1), false);
        return AcisStatus::kOk;
    }
    if (record.name == "ellipse-curve") return readConic(in, from, to, against, curve);
    if (record.name == "intcurve-curve") return readSpline(in, from, to, against, curve);
    return AcisStatus::kUnsupported;
}

std::string acisCurveRecord(const AcGeCurve3d& curve, int version, const std::string& base)
{
    const CurveForm form = curve.form();
    if (form.kind == FormKind::kLine)
        return "straight-curve" + base + " " + acisText(startOf(form)) + " " + acisText(form.u.normal()) +
               " I I";
    if (form.kind == FormKind::kConic) {
        const bool swapped = form.v.length() > form.u.length(); // the ratio is at most 1
        const AcGeVector3d normal = form.u.crossProduct(form.v).normal(), major = swapped ? form.v : form.u;
        const double ratio = swapped ? form.u.length() / form.v.length() : form.v.length() / form.u.length();
        return "ellipse-curve" + base + " " + acisText(form.origin) + " " + acisText(normal) + " " +
               acisText(major) + " " + acisNumber(isCircle(form) ? 1 : ratio) + " I I";
    }
    Spline part = *form.spline; // trimming also clamps what is periodic
    part.trim(form.lo, form.hi);
    return "intcurve-curve" + base + " forward { exactcur " + (version >= 500 ? "full " : "") +
           splineText(part, version) + " } I I";
}
} // namespace kernel

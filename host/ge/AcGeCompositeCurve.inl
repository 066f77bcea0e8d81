/// The members of AcGeCompositeCurve2d and AcGeCompositeCurve3d that are the same in the plane and in space.

#include "CurveForm.h"

#include <algorithm>

CompositeCurve& CompositeCurve::operator=(const CompositeCurve& other)
{
    if (this == &other) return *this;
    mCurves.clear();
    for (const auto& curve : other.mCurves)
        mCurves.emplace_back(static_cast<Curve*>(curve->copy()));
    link(other.mLinks.empty() ? 0 : other.mLinks.front().start);
    return *this;
}

bool CompositeCurve::isEqualTo(const Entity& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const CompositeCurve&>(entity);
    const auto same = [&](const auto& a, const auto& b) { return a->isEqualTo(*b, tol); };
    return std::equal(mCurves.begin(), mCurves.end(), other.mCurves.begin(), other.mCurves.end(), same);
}

CompositeCurve& CompositeCurve::transformBy(const Matrix& xfm)
{
    const double start = mLinks.empty() ? 0 : mLinks.front().start;
    for (const auto& curve : mCurves)
        curve->transformBy(xfm);
    link(start);
    return *this;
}

void CompositeCurve::getCurveList(AcGeVoidPointerArray& curveList) const
{
    curveList.removeAll();
    for (const auto& curve : mCurves)
        curveList.append(curve.get());
}

CompositeCurve& CompositeCurve::setCurveList(const AcGeVoidPointerArray& curveList)
{
    return setCurveList(curveList, AcGeIntArray());
}

CompositeCurve& CompositeCurve::setCurveList(const AcGeVoidPointerArray& curveList,
                                             const AcGeIntArray& isOwnerOfCurves)
{
    std::vector<std::unique_ptr<Curve>> curves;
    for (int i = 0; i < curveList.length(); ++i) {
        auto* curve = static_cast<Curve*>(curveList[i]);
        if (!curve) continue;
        const bool owned = i < isOwnerOfCurves.length() && isOwnerOfCurves[i] != 0;
        std::unique_ptr<Curve> taken(owned ? curve : static_cast<Curve*>(curve->copy()));
        if (taken->form().isBounded()) curves.push_back(std::move(taken));
    }
    mCurves = std::move(curves);
    link(0);
    return *this;
}

double CompositeCurve::globalToLocalParam(double param, int& crvNum) const
{
    crvNum = 0;
    if (mLinks.empty()) return 0;
    const ChainLink& found = linkAt(mLinks, param);
    crvNum = static_cast<int>(&found - mLinks.data());
    return found.inner(param);
}

double CompositeCurve::localToGlobalParam(double param, int crvNum) const
{
    const bool known = crvNum >= 0 && crvNum < static_cast<int>(mLinks.size());
    return known ? mLinks[static_cast<std::size_t>(crvNum)].outer(param) : 0;
}

CurveForm CompositeCurve::form() const
{
    return chainForm(mLinks);
}

void CompositeCurve::turnRound()
{
    std::reverse(mCurves.begin(), mCurves.end());
    for (const auto& curve : mCurves)
        curve->reverseParam();
    link(mLinks.empty() ? 0 : mLinks.front().start);
}

bool CompositeCurve::setBounds(double lo, double hi)
{
    if (mLinks.empty() || !(lo < hi) || lo < mLinks.front().start || hi > mLinks.back().stop) return false;
    std::vector<std::unique_ptr<Curve>> kept;
    for (std::size_t i = 0; i < mLinks.size(); ++i) {
        const double from = std::max(lo, mLinks[i].start), to = std::min(hi, mLinks[i].stop);
        if (!(from < to)) continue;
        mCurves[i]->setInterval(AcGeInterval(mLinks[i].inner(from), mLinks[i].inner(to)));
        kept.push_back(std::move(mCurves[i]));
    }
    mCurves = std::move(kept);
    link(lo);
    return true;
}

void CompositeCurve::link(double start)
{
    mLinks.clear();
    for (const auto& curve : mCurves) {
        const CurveForm form = curve->form();
        mLinks.push_back({form, start, start + (form.hi - form.lo)});
        start = mLinks.back().stop;
    }
}

/// System variables that say what the active viewport shows.

#include "DisplayCoordinates.h"
#include "Documents.h"
#include "UcsChange.h"
#include "VariableTable.h"
#include "ViewChange.h"
#include "WindowSize.h"

namespace
{
using ed::CoordinateSystem;
using ed::DisplayView;
using ed::VariableValue;

DisplayView activeView()
{
    return viewOf(ed::activeViewport());
}

AcGePoint3d inUcs(const AcGePoint3d& world)
{
    return ed::ucsToWorld().inverse() * world;
}

/// A point of the view's plane in the UCS, by how far it lies to the right and up in half widths and heights.
AcGePoint3d ofView(double right, double up)
{
    const DisplayView view = activeView();
    const double half = view.height / 2.0, wide = half * aspectOf(ed::activeViewport());
    return inUcs(displayToWorld(view) *
                 AcGePoint3d(view.center.x + right * wide, view.center.y + up * half, 0.0));
}

long viewMode(const DisplayView& view)
{
    return view.isPerspective | view.isFrontClipped << 1 | view.isBackClipped << 2 | view.followsUcs << 3 |
           !view.isFrontClipAtEye << 4;
}

/// A read-only variable that a view says.
template <class Read>
void bindView(const wchar_t* name, short type, Read read)
{
    ed::bindVariable(name, type, {[=] { return read(activeView()); }, nullptr});
}

void bindPoints()
{
    const auto corner = [](double right, double up) { return VariableValue::ofPoint(ofView(right, up)); };
    bindView(L"VIEWCTR", RT3DPOINT, [=](const DisplayView&) { return corner(0.0, 0.0); });
    bindView(L"VSMIN", RT3DPOINT, [=](const DisplayView&) { return corner(-1.0, -1.0); });
    bindView(L"VSMAX", RT3DPOINT, [=](const DisplayView&) { return corner(1.0, 1.0); });
    bindView(L"TARGET", RT3DPOINT,
             [](const DisplayView& view) { return VariableValue::ofPoint(inUcs(view.target)); });
    bindView(L"VIEWDIR", RT3DPOINT, [](const DisplayView& view) {
        return VariableValue::ofPoint(AcGePoint3d::kOrigin + ed::ucsToWorld().inverse() * view.direction);
    });
}

void bindNumbers()
{
    bindView(L"VIEWSIZE", RTREAL, [](const DisplayView& view) { return VariableValue::ofReal(view.height); });
    bindView(L"VIEWTWIST", RTREAL, [](const DisplayView& view) { return VariableValue::ofReal(view.twist); });
    bindView(L"LENSLENGTH", RTREAL,
             [](const DisplayView& view) { return VariableValue::ofReal(view.lensLength); });
    bindView(L"FRONTZ", RTREAL,
             [](const DisplayView& view) { return VariableValue::ofReal(view.frontClip); });
    bindView(L"BACKZ", RTREAL, [](const DisplayView& view) { return VariableValue::ofReal(view.backClip); });
    bindView(L"VIEWMODE", RTSHORT,
             [](const DisplayView& view) { return VariableValue::ofInteger(viewMode(view)); });
}

bool changeView(bool DisplayView::*flag, bool on)
{
    DisplayView view = activeView();
    view.*flag = on;
    return setView(ed::activeViewport(), view) == Acad::eOk;
}

void bindSwitches()
{
    ed::bindSwitch(
        L"PERSPECTIVE", [] { return activeView().isPerspective; },
        [](bool on) { return changeView(&DisplayView::isPerspective, on); });
    ed::bindSwitch(
        L"UCSFOLLOW", [] { return activeView().followsUcs; },
        [](bool on) {
            if (!changeView(&DisplayView::followsUcs, on)) return false;
            return !on || ed::showPlan(ed::ucsToWorld()) == Acad::eOk; // the plan is shown at once
        });
}

[[maybe_unused]] const bool allBound = (bindPoints(), bindNumbers(), bindSwitches(), true);
} // namespace

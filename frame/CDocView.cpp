#include "CDocView.h"

#include "acedads.h"
#include "CFamStuGlobe.h"
#include "CFamStuSysVar.h"
#include "CFamStuUcs.h"
#include "geassign.h"

namespace
{
bool ucsToDcs(AcGePoint3d& point)
{
    return acdbUcs2Wcs(asDblArray(point), asDblArray(point), false) && CFamStuUcs::WcsToDCS(point);
}

bool dcsToUcs(AcGePoint3d& point)
{
    return CFamStuUcs::DCSToWCS(point) && acdbWcs2Ucs(asDblArray(point), asDblArray(point), false);
}
} // namespace

void CArxUtils::CDocView::ActivateAcad()
{
    acedGetAcadFrame()->SetForegroundWindow();
    CFamStuGlobe::ActivateAcad();
}

int CArxUtils::CDocView::ScrlbrtPt(AcGePoint3d& lowerLeft, AcGePoint3d& upperRight)
{
    AcGePoint3d center, screen;
    double height = 0.0;
    if (!CFamStuSysVar::Get(L"VIEWCTR", center) || !CFamStuSysVar::Get(L"VIEWSIZE", height) ||
        !CFamStuSysVar::Get(L"SCREENSIZE", screen) || screen.y <= 0.0 || !ucsToDcs(center))
        return 0;
    const AcGeVector3d half(height * screen.x / screen.y / 2.0, height / 2.0, 0.0);
    AcGePoint3d low = center - half, high = center + half;
    if (!dcsToUcs(low) || !dcsToUcs(high)) return 0;
    lowerLeft = low;
    upperRight = high;
    return 1;
}

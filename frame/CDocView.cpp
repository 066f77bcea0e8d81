#include "CDocView.h"

#include "acedads.h"
#include "CFamStuGlobe.h"

void CArxUtils::CDocView::ActivateAcad()
{
    acedGetAcadFrame()->SetForegroundWindow();
    CFamStuGlobe::ActivateAcad();
}

#pragma once

#include "CArxUtils.h"
#include "gepnt3d.h"

#include <afxwin.h>

/// AutoCAD's window and what it shows.
class AFX_EXT_CLASS CArxUtils::CDocView
{
public:
    /// Brings AutoCAD's main window before all others and makes it the active one.
    static void ActivateAcad();
    /// The lower left and the upper right corner of the current view, in the current user coordinate system:
    /// the corners of the screen in the plane of the view's target. 1; 0, and nothing changed, without a
    /// document.
    static int ScrlbrtPt(AcGePoint3d& lowerLeft, AcGePoint3d& upperRight);
};

#pragma once

#include "acadstrc.h"
#include "CArxUtils.h"

#include <afxwin.h>
#include <CGTStringW.h>

/// The place that every failed open is told to.
class AFX_EXT_CLASS CArxUtils::CDebugError
{
public:
    /// Take a status and the name of the member that met it. They show and record nothing: no caller may
    /// depend on a report.
    static void RxErrorMsg(Acad::ErrorStatus status);
    static void RxErrorMsg(Acad::ErrorStatus status, CGTStringW text);
};

#pragma once

#include "acutads.h"
#include "gepnt3d.h"

#include <afxwin.h>

/// A system variable that has another value for a while. Names are AutoCAD's, without regard to case.
class AFX_EXT_CLASS CFamStuSysVar
{
public:
    /// Sets a variable; with `restore` not 0 its old value comes back with the object's end. When AutoCAD
    /// refuses the name, the type or the value, nothing is changed and nothing comes back.
    CFamStuSysVar(CString name, CString value, int restore = 1);
    CFamStuSysVar(CString name, int value, int restore = 1);
    CFamStuSysVar(CString name, double value, int restore = 1);
    CFamStuSysVar(CString name, const AcGePoint3d& value, int restore = 1);
    /// The first buffer of the list as it is; it stays the caller's.
    CFamStuSysVar(CString name, resbuf* value, int restore = 1);
    ~CFamStuSysVar();
    CFamStuSysVar(const CFamStuSysVar&) = delete;
    CFamStuSysVar& operator=(const CFamStuSysVar&) = delete;

    /// Brings the old value back at once, also without `restore`; the object's end does nothing more then. 1
    /// for success, 0 when the variable was not changed or AutoCAD refuses.
    int Release();

    /// The value of a variable of just that type (an integer: 16 bits; a point: of 2 or 3 dimensions, z 0). 1
    /// for success; 0, and `value` as it was, for another type or an unknown name.
    static int Get(CString name, int& value);
    static int Get(CString name, double& value);
    static int Get(CString name, CString& value);
    static int Get(CString name, AcGePoint3d& value);

private:
    void change(const CString& name, const resbuf& value, int restore);

    int m_restore = 0;
    CString m_name; ///< empty when nothing was changed
    resbuf m_saved = {};
};

#pragma once

#include "adsdef.h"
#include "dbid.h"
#include "gept2dar.h"
#include "gept3dar.h"
#include "gepnt3d.h"

#include <afxwin.h>

/// Small services that every module leans on: handles as text, points from one form to another, the start of a
/// module. All members are static.
class AFX_EXT_CLASS CFamStuPub
{
public:
    /// Initialises a module that the caller has loaded: calls its export `bool Init()`. False, with a message
    /// box, when it has none or when that gives false.
    static bool DllInit(HINSTANCE module);

    /// The object of the working database with this handle: hexadecimal digits in either case up to the first
    /// other character, of which the first 63 characters count and at most 16 after leading zeros. Returns 1;
    /// 0, and `id` null, when there is no such object. An erased object has its id still.
    static int HandleStrToObjectId(CString text, AcDbObjectId& id);
    /// The hexadecimal digits of a handle as AutoCAD writes them: capitals, no leading zeros.
    static CString HandleToStr(AcDbHandle handle);
    /// The handle of an object as text; empty when the object cannot be opened for read.
    static void ObjectIdToHandleStr(AcDbObjectId id, CString& text);

    static void pt3dToadsPt(AcGePoint3d point, ads_point& adsPoint);
    /// The x and y of every point, in order.
    static AcGePoint2dArray pt3dTopt2d(AcGePoint3dArray points);
};

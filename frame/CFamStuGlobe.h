#pragma once

#include "acadstrc.h"
#include "dbcolor.h"

#include <afxwin.h>

/// Services through which modules reach the editor itself and not an object of a drawing. All members are
/// static and keep no state. Results of type int are 1 for success or yes and 0 for failure or no; nothing
/// throws, and only SameFileVersion shows a message.
class AFX_EXT_CLASS CFamStuGlobe
{
public:
    // Files and modules.

    /// The version text of a file's version resource. A `file` that does not exist is looked for as a name
    /// relative to the folder of this module. 0, and `version` as it was, when there is no such file or it
    /// has no version.
    static int getFileVersion(CString file, CString& version);
    /// 1 when both files carry the same version text, or none of them carries one. Otherwise shows a message
    /// box that names `b` and `a`, and gives 0.
    static int SameFileVersion(CString a, CString b);

    // The network.

    /// The first IPv4 address of a host as "a.b.c.d"; empty when the name cannot be resolved.
    static CString getIpAddr(CString hostName);

    // Colours. RGB values are 0x00RRGGBB.

    /// The colour of an index of AutoCAD's colour table; a number above 255 as it is.
    static DWORD GetColorFromIndex(int index);
    /// The index from 1 to 254 whose colour is nearest: the least sum of the differences of red, green and
    /// blue, the lowest index of several.
    static int GetColorIndexFromRGB(DWORD rgb);
    /// The colour object of an index: 0 by block, 1 to 255, 256 by layer; by layer for other numbers.
    static AcCmColor GetAcCmColorFromIndex(int index);
    /// The colour of an index with its red, green and blue times a factor (below 1 darker, above 1 lighter),
    /// each rounded and kept within 0 to 255; black for a factor that is no number.
    static AcCmColor ChangeColor(int index, float factor);

    // Texts.

    /// Replaces in place every occurrence of `from` in `text` by `to`, from the left to the right; what was
    /// put in is not looked at again. The caller's buffer must have room for the result. Nothing happens when
    /// `text` or `from` is null or empty; a null `to` is an empty one.
    static void replace(wchar_t* text, wchar_t* from, wchar_t* to);

    /// The Chinese text of a status for users. A number that has none gets AutoCAD's own text, with
    /// "未知错误" for its "Unknown error".
    static CString acadErrorStatusTextChs(Acad::ErrorStatus status);
};

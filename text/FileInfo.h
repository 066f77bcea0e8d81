#pragma once

#include <afxwin.h>

/// What files tell of themselves. All members are static.
class AFX_EXT_CLASS FileInfo
{
public:
    /// The text "FileVersion" of a file's version resource in its first language. 1 for success; 0, and
    /// `version` as it was, when there is no such file, resource or text.
    static int QueryFileVersion(const CString& file, CString& version);
};

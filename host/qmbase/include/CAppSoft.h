#pragma once

#include "CGTStringW.h"

/// The running application.
class CAppSoft
{
public:
    /// The program's file name without extension.
    static CGTStringW GetName();
    /// The full path of the program's file.
    static CGTStringW GetPath();
    /// The folder of the program's file, with a trailing backslash.
    static CGTStringW GetInstallDir();
    /// The file version of the program, or of another file, as "a.b.c.d"; empty when it has none.
    static CGTStringW GetVersion();
    static CGTStringW GetVersion(const CGTStringW& path);
};

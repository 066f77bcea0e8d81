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
};

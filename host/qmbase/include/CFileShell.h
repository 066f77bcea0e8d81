#pragma once

#include "CGTStringW.h"

/// Files, folders and the parts of their paths. Both '\' and '/' separate.
class CFileShell
{
public:
    /// 1 for a file of that path; 0 for a folder, or none.
    static int IsFileExist(const CGTStringW& path);
    static int IsDirExist(const CGTStringW& path);

    /// Parts of "Z:\std\line.v2.lin": the name "line.v2.lin", the title "line.v2", the extension "lin", and
    /// the folder with its separator "Z:\std\". What a path does not have is empty.
    static CGTStringW GetFileName(const CGTStringW& path);
    static CGTStringW GetFileTitle(const CGTStringW& path);
    static CGTStringW GetFileExt(const CGTStringW& path);
    static CGTStringW GetFilePath(const CGTStringW& path);

    /// Deletes a file; 0 when there is none or it is read-only or in use.
    static int DelFile(const CGTStringW& path);
    /// Copies a file; without `overwrite` an existing target is left alone and the result is 0.
    static int CopyFile(const CGTStringW& from, const CGTStringW& to, bool overwrite = true);
    /// Makes a folder and those above it; 1 also when it is there already.
    static int CreateDir(const CGTStringW& path);
};

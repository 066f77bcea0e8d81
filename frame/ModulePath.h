#pragma once

#include <afxwin.h>

/// The path of this module's file; empty when it cannot be had or is not shorter than MAX_PATH.
CString modulePath();

/// The folder of a file with its backslash: "C:\a\b\" of "C:\a\b\c.arx". Empty for a name without folder.
CString folderOf(const CString& path);

/// The parent folder of a file's folder with its backslash: "C:\a\" of "C:\a\b\c.arx". A folder without
/// parent stands for its own: "C:\" of "C:\c.arx". Empty for a name without folder.
CString parentOfFolderOf(const CString& path);

#pragma once

/// Export marks of MFC extension modules. A module that is built as one defines _AFXEXT and exports the
/// classes and functions that carry these marks; a module that uses it imports them.

#include <windows.h>

#ifdef _AFXEXT
#define AFX_EXT_CLASS __declspec(dllexport)
#define AFX_EXT_API __declspec(dllexport)
#define AFX_EXT_DATA __declspec(dllexport)
#else
#define AFX_EXT_CLASS __declspec(dllimport)
#define AFX_EXT_API __declspec(dllimport)
#define AFX_EXT_DATA __declspec(dllimport)
#endif

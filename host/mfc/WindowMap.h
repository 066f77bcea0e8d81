#pragma once

#include "afxwnd.h"

namespace mfc
{
/// The objects of windows: permanent ones, entered by Attach, and temporary ones, owned by the map.
CWnd* permanentObject(HWND window);
/// The permanent or a temporary object; `make` makes a new temporary one.
CWnd* anyObject(HWND window, CWnd* (*make)(HWND window));
/// FALSE when the window has a permanent object; a temporary one is deleted.
bool enterPermanent(HWND window, CWnd* object);
void removePermanent(HWND window, const CWnd* object);
void deleteTemporaries();
} // namespace mfc

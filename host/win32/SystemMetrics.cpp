#include "ScreenSize.h"

#include "winuser.h"

#include <mutex>

namespace
{
constexpr int iconSize = 32;
constexpr int smallIconSize = 16;

std::mutex sizeMutex;
SIZE size{1920, 1080};
} // namespace

namespace win32
{
SIZE screenSize()
{
    const std::lock_guard lock(sizeMutex);
    return size;
}

void setScreenSize(SIZE wanted)
{
    const std::lock_guard lock(sizeMutex);
    if (wanted.cx > 0 && wanted.cy > 0) size = wanted;
}
} // namespace win32

int WINAPI GetSystemMetrics(int index)
{
    switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN:
    case SM_CXMAXIMIZED:
    case SM_CXVIRTUALSCREEN:
        return win32::screenSize().cx;
    case SM_CYSCREEN:
    case SM_CYFULLSCREEN:
    case SM_CYMAXIMIZED:
    case SM_CYVIRTUALSCREEN:
        return win32::screenSize().cy;
    case SM_CXICON:
    case SM_CYICON:
    case SM_CXCURSOR:
    case SM_CYCURSOR:
        return iconSize;
    case SM_CXSMICON:
    case SM_CYSMICON:
        return smallIconSize;
    case SM_CMONITORS:
        return 1;
    default:
        return 0;
    }
}

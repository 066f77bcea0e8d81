#include "winuser.h"

#include <algorithm>

namespace
{
RECT commonOf(const RECT& a, const RECT& b)
{
    const RECT common{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                      std::min(a.bottom, b.bottom)};
    return IsRectEmpty(&a) || IsRectEmpty(&b) || IsRectEmpty(&common) ? RECT{} : common;
}

// Coordinates wrap as they do in 32-bit arithmetic.
LONG plus(LONG a, int b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}
} // namespace

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom)
{
    if (rect) *rect = {left, top, right, bottom};
    return rect != nullptr;
}

BOOL WINAPI SetRectEmpty(LPRECT rect)
{
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL WINAPI CopyRect(LPRECT target, const RECT* source)
{
    if (target && source) *target = *source;
    return target && source;
}

BOOL WINAPI IsRectEmpty(const RECT* rect)
{
    return !rect || rect->right <= rect->left || rect->bottom <= rect->top;
}

BOOL WINAPI EqualRect(const RECT* a, const RECT* b)
{
    return a && b && a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL WINAPI PtInRect(const RECT* rect, POINT point)
{
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}

BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy)
{
    if (rect)
        *rect = {plus(rect->left, dx), plus(rect->top, dy), plus(rect->right, dx), plus(rect->bottom, dy)};
    return rect != nullptr;
}

BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy)
{
    if (!rect) return FALSE;
    const int back = plus(0, static_cast<int>(0u - static_cast<DWORD>(dx)));
    const int up = plus(0, static_cast<int>(0u - static_cast<DWORD>(dy)));
    *rect = {plus(rect->left, back), plus(rect->top, up), plus(rect->right, dx), plus(rect->bottom, dy)};
    return TRUE;
}

BOOL WINAPI IntersectRect(LPRECT target, const RECT* first, const RECT* second)
{
    if (!target || !first || !second) return FALSE;
    *target = commonOf(*first, *second);
    return !IsRectEmpty(target);
}

BOOL WINAPI UnionRect(LPRECT target, const RECT* first, const RECT* second)
{
    if (!target || !first || !second) return FALSE;
    const RECT a = *first, b = *second;
    if (IsRectEmpty(&a) || IsRectEmpty(&b)) {
        *target = !IsRectEmpty(&a) ? a : !IsRectEmpty(&b) ? b : RECT{};
        return !IsRectEmpty(target);
    }
    *target = {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
               std::max(a.bottom, b.bottom)};
    return TRUE;
}

BOOL WINAPI SubtractRect(LPRECT target, const RECT* first, const RECT* second)
{
    if (!target || !first || !second) return FALSE;
    RECT rest = *first;
    const RECT common = commonOf(rest, *second);
    const bool wholeHeight = common.top == rest.top && common.bottom == rest.bottom;
    const bool wholeWidth = common.left == rest.left && common.right == rest.right;
    if (!IsRectEmpty(&common) && wholeHeight && wholeWidth) {
        rest = {};
    } else if (!IsRectEmpty(&common) && wholeHeight) {
        if (common.left == rest.left)
            rest.left = common.right;
        else if (common.right == rest.right)
            rest.right = common.left;
    } else if (!IsRectEmpty(&common) && wholeWidth) {
        if (common.top == rest.top)
            rest.top = common.bottom;
        else if (common.bottom == rest.bottom)
            rest.bottom = common.top;
    }
    *target = rest;
    return !IsRectEmpty(target);
}

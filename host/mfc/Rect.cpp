#include "atltypes.h"

#include <algorithm>

void CRect::NormalizeRect() noexcept
{
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
}

BOOL CRect::IntersectRect(const RECT* first, const RECT* second) noexcept
{
    const CRect common(std::max(first->left, second->left), std::max(first->top, second->top),
                       std::min(first->right, second->right), std::min(first->bottom, second->bottom));
    const bool overlap = !CRect(*first).IsRectEmpty() && !CRect(*second).IsRectEmpty() && !common.IsRectEmpty();
    *this = overlap ? common : CRect();
    return overlap;
}

BOOL CRect::UnionRect(const RECT* first, const RECT* second) noexcept
{
    const CRect a(*first), b(*second);
    if (a.IsRectEmpty() || b.IsRectEmpty()) {
        *this = !a.IsRectEmpty() ? a : !b.IsRectEmpty() ? b : CRect();
        return !IsRectEmpty();
    }
    *this = CRect(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                  std::max(a.bottom, b.bottom));
    return TRUE;
}

BOOL CRect::SubtractRect(const RECT* from, const RECT* away) noexcept
{
    CRect rest(*from), common;
    if (common.IntersectRect(from, away)) {
        const bool wholeWidth = common.left == rest.left && common.right == rest.right;
        const bool wholeHeight = common.top == rest.top && common.bottom == rest.bottom;
        if (wholeWidth && wholeHeight) {
            rest.SetRectEmpty();
        } else if (wholeWidth && common.top == rest.top) {
            rest.top = common.bottom;
        } else if (wholeWidth && common.bottom == rest.bottom) {
            rest.bottom = common.top;
        } else if (wholeHeight && common.left == rest.left) {
            rest.left = common.right;
        } else if (wholeHeight && common.right == rest.right) {
            rest.right = common.left;
        }
    }
    *this = rest;
    return !IsRectEmpty();
}

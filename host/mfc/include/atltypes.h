#pragma once

/// Points, sizes and rectangles of windows, in pixels; y grows downwards.

#include <windows.h>

class CPoint;
class CRect;

class CSize : public SIZE
{
public:
    constexpr CSize() noexcept : SIZE{0, 0} {}
    constexpr CSize(int width, int height) noexcept : SIZE{width, height} {}
    constexpr CSize(SIZE size) noexcept : SIZE{size} {}

    constexpr bool operator==(SIZE other) const noexcept { return cx == other.cx && cy == other.cy; }
    constexpr bool operator!=(SIZE other) const noexcept { return !(*this == other); }
    constexpr CSize operator+(SIZE other) const noexcept { return {cx + other.cx, cy + other.cy}; }
    constexpr CSize operator-(SIZE other) const noexcept { return {cx - other.cx, cy - other.cy}; }
    constexpr CSize operator-() const noexcept { return {-cx, -cy}; }
    CSize& operator+=(SIZE other) noexcept { return *this = *this + other; }
    CSize& operator-=(SIZE other) noexcept { return *this = *this - other; }
    void SetSize(int width, int height) noexcept { *this = CSize(width, height); }
};

class CPoint : public POINT
{
public:
    constexpr CPoint() noexcept : POINT{0, 0} {}
    constexpr CPoint(int xPixels, int yPixels) noexcept : POINT{xPixels, yPixels} {}
    constexpr CPoint(POINT point) noexcept : POINT{point} {}
    /// From the parameter of a mouse message: x in the low word, y in the high word, both signed.
    constexpr explicit CPoint(LPARAM position) noexcept
        : POINT{static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(position))),
                static_cast<SHORT>(HIWORD(static_cast<DWORD_PTR>(position)))}
    {
    }

    constexpr bool operator==(POINT other) const noexcept { return x == other.x && y == other.y; }
    constexpr bool operator!=(POINT other) const noexcept { return !(*this == other); }
    constexpr CPoint operator+(SIZE by) const noexcept { return {x + by.cx, y + by.cy}; }
    constexpr CPoint operator-(SIZE by) const noexcept { return {x - by.cx, y - by.cy}; }
    constexpr CPoint operator+(POINT by) const noexcept { return {x + by.x, y + by.y}; }
    constexpr CSize operator-(POINT other) const noexcept { return {x - other.x, y - other.y}; }
    constexpr CPoint operator-() const noexcept { return {-x, -y}; }
    CPoint& operator+=(SIZE by) noexcept { return *this = *this + by; }
    CPoint& operator-=(SIZE by) noexcept { return *this = *this - by; }
    CPoint& operator+=(POINT by) noexcept { return *this = *this + by; }
    CPoint& operator-=(POINT by) noexcept { return *this = CPoint(x - by.x, y - by.y); }
    void Offset(int dx, int dy) noexcept { *this = *this + CSize(dx, dy); }
    void Offset(SIZE by) noexcept { *this = *this + by; }
    void SetPoint(int xPixels, int yPixels) noexcept { *this = CPoint(xPixels, yPixels); }
};

/// A rectangle that holds its left and top edges and not its right and bottom ones. It is normal when
/// left <= right and top <= bottom; the operations that combine rectangles expect normal ones.
class CRect : public RECT
{
public:
    constexpr CRect() noexcept : RECT{0, 0, 0, 0} {}
    constexpr CRect(int l, int t, int r, int b) noexcept : RECT{l, t, r, b} {}
    constexpr CRect(const RECT& rect) noexcept : RECT{rect} {}
    CRect(const RECT* rect) noexcept : RECT{*rect} {}
    constexpr CRect(POINT topLeft, SIZE size) noexcept
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy}
    {
    }
    constexpr CRect(POINT topLeft, POINT bottomRight) noexcept
        : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {
    }

    constexpr int Width() const noexcept { return right - left; }
    constexpr int Height() const noexcept { return bottom - top; }
    constexpr CSize Size() const noexcept { return {Width(), Height()}; }
    /// The corners. Those of a rectangle that may change are its own: assigning to them moves its edges.
    CPoint& TopLeft() noexcept { return *reinterpret_cast<CPoint*>(&left); }
    CPoint& BottomRight() noexcept { return *reinterpret_cast<CPoint*>(&right); }
    constexpr CPoint TopLeft() const noexcept { return {left, top}; }
    constexpr CPoint BottomRight() const noexcept { return {right, bottom}; }
    constexpr CPoint CenterPoint() const noexcept { return {(left + right) / 2, (top + bottom) / 2}; }
    constexpr bool IsRectEmpty() const noexcept { return left >= right || top >= bottom; }
    constexpr bool IsRectNull() const noexcept { return !left && !top && !right && !bottom; }
    constexpr bool PtInRect(POINT p) const noexcept
    {
        return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
    }
    constexpr bool EqualRect(const RECT& o) const noexcept
    {
        return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
    }
    constexpr bool operator==(const RECT& other) const noexcept { return EqualRect(other); }
    constexpr bool operator!=(const RECT& other) const noexcept { return !EqualRect(other); }

    void SetRect(int l, int t, int r, int b) noexcept { *this = CRect(l, t, r, b); }
    void SetRectEmpty() noexcept { *this = CRect(); }
    void CopyRect(const RECT* rect) noexcept { *this = CRect(*rect); }

    /// Moves every edge outwards, each by its own amount; negative values move it inwards.
    void InflateRect(int l, int t, int r, int b) noexcept { *this = CRect(left - l, top - t, right + r, bottom + b); }
    void InflateRect(int dx, int dy) noexcept { InflateRect(dx, dy, dx, dy); }
    void InflateRect(SIZE by) noexcept { InflateRect(by.cx, by.cy); }
    void InflateRect(const RECT* by) noexcept { InflateRect(by->left, by->top, by->right, by->bottom); }
    void DeflateRect(int l, int t, int r, int b) noexcept { InflateRect(-l, -t, -r, -b); }
    void DeflateRect(int dx, int dy) noexcept { InflateRect(-dx, -dy); }
    void DeflateRect(SIZE by) noexcept { DeflateRect(by.cx, by.cy); }
    void DeflateRect(const RECT* by) noexcept { DeflateRect(by->left, by->top, by->right, by->bottom); }

    void OffsetRect(int dx, int dy) noexcept { *this = CRect(left + dx, top + dy, right + dx, bottom + dy); }
    void OffsetRect(POINT by) noexcept { OffsetRect(by.x, by.y); }
    void OffsetRect(SIZE by) noexcept { OffsetRect(by.cx, by.cy); }
    /// Moves the rectangle so that its left and top edges come to lie there; its size stays.
    void MoveToX(int x) noexcept { OffsetRect(x - left, 0); }
    void MoveToY(int y) noexcept { OffsetRect(0, y - top); }
    void MoveToXY(int x, int y) noexcept { OffsetRect(x - left, y - top); }
    void MoveToXY(POINT to) noexcept { MoveToXY(to.x, to.y); }

    /// Exchanges edges so that left <= right and top <= bottom.
    void NormalizeRect() noexcept;
    /// Becomes the common part of two rectangles; false, and an empty rectangle, when there is none.
    BOOL IntersectRect(const RECT* first, const RECT* second) noexcept;
    /// Becomes the smallest rectangle around both, empty ones left out; false when both are empty.
    BOOL UnionRect(const RECT* first, const RECT* second) noexcept;
    /// Becomes `from` less `away`, when what is left is one rectangle; `from` otherwise. False when nothing is left.
    BOOL SubtractRect(const RECT* from, const RECT* away) noexcept;

    CRect& operator+=(POINT by) noexcept { return OffsetRect(by), *this; }
    CRect& operator-=(POINT by) noexcept { return OffsetRect(-by.x, -by.y), *this; }
    CRect& operator+=(SIZE by) noexcept { return OffsetRect(by), *this; }
    CRect& operator-=(SIZE by) noexcept { return OffsetRect(-by.cx, -by.cy), *this; }
    CRect& operator&=(const RECT& other) noexcept { return IntersectRect(this, &other), *this; }
    CRect& operator|=(const RECT& other) noexcept { return UnionRect(this, &other), *this; }
    CRect operator+(POINT by) const noexcept { return CRect(*this) += by; }
    CRect operator-(POINT by) const noexcept { return CRect(*this) -= by; }
    CRect operator+(SIZE by) const noexcept { return CRect(*this) += by; }
    CRect operator-(SIZE by) const noexcept { return CRect(*this) -= by; }
    CRect operator&(const RECT& other) const noexcept { return CRect(*this) &= other; }
    CRect operator|(const RECT& other) const noexcept { return CRect(*this) |= other; }

    operator RECT*() noexcept { return this; }
    operator const RECT*() const noexcept { return this; }
};

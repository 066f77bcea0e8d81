#pragma once

#include <afxwin.h>

// The layers and styles of axis grids.
constexpr wchar_t axisLayer[] = L"轴网-轴线";
constexpr wchar_t labelLayer[] = L"轴网-编号";
constexpr wchar_t outlineLayer[] = L"轴网-轮廓";
constexpr wchar_t hatchLayer[] = L"轴网-填充";
constexpr wchar_t dimensionLayer[] = L"轴网-坐标";
constexpr wchar_t gridStyle[] = L"轴网"; ///< a text style, and a dimension style

/// Makes what is missing of them in the working database; what is there stays as it is. `scale` is the number of drawing
/// units for one millimetre of paper; dimensions have up to `decimals` places. False when the drawing refuses.
bool makeGridStyles(double scale, int decimals);

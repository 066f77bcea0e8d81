#pragma once

#include <afxwin.h>

// The layers and the text style of axis grids.
constexpr wchar_t axisLayer[] = L"轴网-轴线";
constexpr wchar_t labelLayer[] = L"轴网-编号";
constexpr wchar_t outlineLayer[] = L"轴网-轮廓";
constexpr wchar_t areaLayer[] = L"轴网-面积";
constexpr wchar_t hatchLayer[] = L"轴网-填充";
constexpr wchar_t dimensionLayer[] = L"轴网-坐标";
constexpr wchar_t gridStyle[] = L"轴网";

/// The dimension style for so many drawing units to a millimetre of paper: grids of several scales, and in
/// several units, stand in one drawing.
CString dimensionStyleOf(double paperUnit);

/// Makes what is missing of them in the working database. What is there keeps its look; layers that are off,
/// frozen or locked are opened, so that what is drawn can be seen. `paperUnit` is the number of drawing units
/// for a millimetre of paper. False when the drawing refuses.
bool makeGridStyles(double paperUnit);

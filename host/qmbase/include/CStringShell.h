#pragma once

#include "CGTStringW.h"

/// Conversions of text: widths, lists, numbers.
class CStringShell
{
public:
    /// Between wide text and the bytes of a code page; the ANSI one unless another is named. A null pointer
    /// is the empty text.
    static CGTStringW ToWide(const char* text, UINT codePage = CP_ACP);
    static CStringA ToNarrow(const CGTStringW& text, UINT codePage = CP_ACP);

    /// The pieces between the separators, the empty ones too, replace the contents of `pieces`; their number.
    /// The empty text is one empty piece; without a separator the text is one piece.
    static int Split(const CGTStringW& text, const CGTStringW& separator, CStringArray& pieces);
    static CGTStringW Join(const CStringArray& pieces, const CGTStringW& separator);

    /// Read a number that is the whole text but for blanks around it. 0, and the value unchanged, when it is
    /// not one or out of range. The decimal point is '.'.
    static int ToInt(const CGTStringW& text, int& value);
    static int ToDouble(const CGTStringW& text, double& value);
    static CGTStringW FromInt(int value);
    /// @param decimals  digits behind the point, 0 to 60; -1 for as many as tell the value from any other
    static CGTStringW FromDouble(double value, int decimals = -1);
};

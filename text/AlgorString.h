#pragma once

#include <afx.h>

/// Copies between narrow and wide buffers, and the text of COM variants. One object serves the process; its
/// members may be called from any thread.
class AFX_EXT_CLASS AlgorString
{
public:
    static AlgorString& Instance();

    AlgorString(const AlgorString&) = delete;
    AlgorString& operator=(const AlgorString&) = delete;

    /// Copy a text into a buffer of `size` units (bytes or wide units), in the ANSI code page on the narrow
    /// side, and give the number of units written without the terminator. The copy always ends in a
    /// terminating 0, which counts towards `size`: at most `size` - 1 units of text fit. A longer text is cut
    /// after the last character that fits as a whole, never between the bytes of a double-byte character or
    /// the halves of a surrogate pair. A null text is an empty one. With a null buffer or a size below 1
    /// nothing is written and the result is 0. Buffer and text may not overlap. What the code page lacks, and
    /// bytes that are no character, become what the system's converter puts in their place. CStr2Char copies
    /// up to the first 0 in the text.
    int CStr2Char(char* dst, int size, const CString& text) const;
    int WChar2Char(char* dst, int size, const wchar_t* text) const;
    int Char2WChar(wchar_t* dst, int size, const char* text) const;

    /// How often a character occurs in the text.
    int Count(const CString& text, wchar_t character) const;

    /// The value of a variant as text, from which it can be read again:
    /// - empty and null variants, errors, objects and kinds not named here: the empty text;
    /// - whole numbers of any size: decimal; truth values: "True" and "False";
    /// - reals: the shortest decimal text that reads back as the same value (0.1, 1e+300, inf, nan);
    /// - currency: decimal with up to 4 decimals, none that are 0 at the end;
    /// - dates: "yyyy-mm-dd hh:mm:ss", to the nearest second; one outside the years 100 to 9999: the empty
    /// text;
    /// - texts: as they are;
    /// - references: the value they point at, the empty text when they are null;
    /// - arrays of any dimensions: their elements in the order of the array's memory, joined by ",". An array
    ///   within an array's element is not followed: its text is empty.
    CString VariantToCString(const VARIANT& value) const;
    /// The value of a variant as a table cell or an SQL statement shows it. It differs from VariantToCString
    /// in these: truth values are "1" and "0"; reals have up to 6 decimals and none that are 0 at the end;
    /// arrays give the empty text.
    CString Varint2CStr(const VARIANT& value) const;

private:
    AlgorString() = default;
};

#pragma once

#include <afx.h>
#include <afxcoll.h>
#include <afxv_dll.h>

/// Names and other short texts: natural comparison and sorting, splitting, tests for digits, spreadsheet
/// columns, identifiers, numbers as text. All members are static and keep no state.
///
/// Results named 1 / 0 are yes or success, and no or failure. A digit is one of "0" to "9".
class AFX_EXT_CLASS CFamStuStr
{
public:
    /// Compares two names as a person would order them: A9 before A10. mode 0 ignores case, 1 respects it.
    ///
    /// Equal texts (under mode 0 those that CompareNoCase calls equal) give 0, and a text comes before the
    /// empty one. Otherwise both are taken apart with SplitOne, and the first two chunks that differ decide:
    /// - A chunk for which IsDigit holds comes before one for which it does not; note that "." alone is none.
    /// - Two such chunks compare by the whole number they begin with (2.5 and 2.7 do not differ), 0 when they
    ///   begin with a point, at most 2147483647.
    /// - Other chunks compare character by character, under mode 0 in upper case: the smaller code
    ///   comes first, Chinese therefore behind Latin, and of two that differ in length only the shorter one.
    /// When no chunk differs before one of the texts runs out the result is 0: a1 "equals" both a1b and a1c,
    /// which differ. SortStrArray gives the order that results are consistent with.
    /// @return 1 when a comes before b, -1 when b comes before a, 0 otherwise
    static int CompareTowStr(CString a, CString b, int mode);

    /// A new identifier such as {1B4E28BA-2FA1-4d2f-883F-0016D3CCA427}; its third group alone has lower-case
    /// letters. "{NULL}" when the system has none to give.
    static CString CreateNewGuid();

    /// The number of a spreadsheet column: A is 1, Z 26, AA 27. Case and everything but the letters A to Z
    /// are ignored. The result is at least 1, as for the empty text, and at most 256.
    static int ExcelColNameToNo(CString name);

    /// The reverse: a number below 1 counts as 1; from 256 on the result is IV.
    static CString ExcelColNoToName(int number);

    /// 1 when any character's code is above 127.
    static int HasChinese(CString text);

    /// 1 when every character is a digit or ".", several of them included, and also for the empty text:
    /// callers rely on it when they run out of chunks. The single "." is no digit.
    static int IsDigit(CString text);

    /// Tests for a decimal number, white space around it and its case ignored: an optional sign, digits,
    /// optionally "." with digits, optionally "E" with a sign that must be there and digits. "2.", ".5" and
    /// "E+3" pass; "." alone, "2.E+3" and "1E3" do not.
    /// @param value  receives the whole number the text begins with, not the number it stands for: 2.0 for
    ///     2.5, 1.0 for 1E+3; at most 2147483647 and at least -2147483648. Untouched when the result is 0.
    static int IsDigitFactor(double& value, CString text);

    /// The number with at most six decimals, without trailing zeros and without a trailing point.
    static CString FormatDouble(double value);

    /// The index of the first element equal to the text, case respected, at or behind the index `start`; -1
    /// when there is none. A negative start counts as 0.
    static int FindStrInStrArr(const CStringArray& array, CString text, int start);

    /// Removes every element from the index `start` on that equals an earlier element, case respected; also
    /// one in front of start. Elements in front of it stay. A negative start counts as 0.
    /// @return the array's new length
    static int RemoveSameStr(CStringArray& array, int start);

    /// Sorts in the natural order without regard to case: what CompareTowStr(a, b, 0) puts before another
    /// text comes before it. Where that answers 0 because a text ran out, the one that ran out comes first
    /// (a1, a1b, a1c); texts without a difference in any chunk (2.5 and 2.7, a and A) keep their order. Empty
    /// texts come last.
    static void SortStrArray(CStringArray& array);

    /// Sorts by the number that the digits at the end of each text are, of any length; order 0 is ascending,
    /// any other descending. Texts that do not end with a digit come behind the others. Equal ones keep their
    /// order.
    static void SortStrArrByEndDigit(CStringArray& array, int order);

    /// Cuts the leading run of digits and "." or, when there is none, of other characters off the text and
    /// returns it. The empty text gives the empty text.
    static CString SplitOne(CString& text);

    /// Splits at every occurrence of the separator, from left to right. Empty fields are kept, so n
    /// occurrences make n + 1 fields; the empty text has none, and an empty separator makes the text one
    /// field. The array's former content is dropped. The two are the same.
    /// @return the number of fields
    static int SplitStrBySymbol(CStringArray& fields, CString text, CString separator);
    static int SplitStrToArray(CStringArray& fields, CString text, CString separator);

    /// Splits at the first occurrence of a character, given by its code, which belongs to neither part.
    /// Without one the result is 0, the first part is the whole text and the second one empty.
    static int SplitStrInTwoPart(CString& first, CString& second, CString text, int separator);

    /// Adds a step to a number inside a name, as in numbering copies: A-09 and 1 make A-10.
    ///
    /// A number is a run of digits, or two of them with one point between; of more runs joined by points, as
    /// in 1.2.3, each is a number of its own. A "-" that begins the text is the sign of the number behind it;
    /// any other is part of the name. A number that begins with a zero keeps at least its count of digits in
    /// front of the point. The result has as many decimals as the number or the step, whichever has more; of
    /// the step six count.
    /// @param which  0 or below: the last number; n: the n-th number from the left
    /// @return the new name; the same as given when there is no such number, or when the number, the step
    ///     or their sum takes more than 17 digits
    static CString IncreaseStrDigit(CString text, double step, int which);
};

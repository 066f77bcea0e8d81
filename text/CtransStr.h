#pragma once

#include <afx.h>
#include <afxcoll.h>

#include <cstdint>
#include <vector>

/// Conversions of short texts: outline numbers such as 3.2.1, drawing symbols, numbers, dates, file names,
/// the fields of a line. All members are static and hold no state.
///
/// What holds throughout: results of type int are 1 for success or yes and 0 for failure or no; lengths and
/// positions count the units of CString; digits are "0" to "9" and letters "A" to "Z" and "a" to "z",
/// whatever the locale; an output argument may be the same object as an input argument; no member throws
/// (but CAtlException(E_OUTOFMEMORY) where memory is out), and the time that a call takes grows with the length of its text and not with the square of it.
class AFX_EXT_CLASS CtransStr
{
public:
    // Narrow and wide text. Narrow text is in the ANSI code page.

    /// The wide form of a zero-terminated narrow text, as a new array that the caller releases with delete[].
    /// A null pointer gives an empty text; bytes that are no character, such as a lead byte without its trail
    /// byte, become what the system's converter puts in their place.
    static wchar_t* CharToWchar(const char* text);
    /// The narrow form of a zero-terminated wide text, as a new array that the caller releases with delete[].
    /// A null pointer gives an empty text; characters outside the code page become its default character.
    static char* WcharToChar(const wchar_t* text);

    /// The text with its simplified Chinese characters made traditional, one by one (no change of words).
    /// Where the system cannot map, the text comes back as it is.
    static CString Simple2Tra(const CString& text);
    /// The text with its traditional Chinese characters made simplified; the other direction of Simple2Tra.
    static CString Tra2Simple(const CString& text);

    // Symbols and blanks.

    /// Display symbols as drawing control codes: U+2019 becomes ', Φ becomes %%C, ° becomes %%D and ±
    /// becomes %%P.
    static CString FullQuote2Half(CString text);
    /// The reverse: ' becomes U+2019; %%C, %%D and %%P, in either case, become Φ, ° and ±.
    static CString HalfQuote2Full(CString text);
    /// Puts `replacement` in the place of every blank: space, tab, no-break space (U+00A0) and the
    /// ideographic space of Chinese text (U+3000). Without a replacement the blanks are taken out.
    static CString rePlaceSpace(const CString& text, const CString& replacement = CString());
    /// 1 when the text is one Latin letter; `letterCase` 0 takes either case, 1 only upper case and 2 only
    /// lower case. Any other `letterCase` gives 0.
    static int IsSingleZiMu(CString text, int letterCase);

    // The fields of a text. A text with n separators has n + 1 fields, some of which may be empty: the empty
    // text has one, which is empty. Separators are found from left to right and do not overlap. An empty
    // separator separates nothing.

    /// Sets `out` to field number `index`, counted from 0, and gives 1; when there is no such field, `out` is
    /// emptied and the result is 0.
    static int ExtractSubString(CString& out, const CString& text, const CString& separator, int index);
    /// Puts all fields into `out`, whose former content goes; gives their number.
    static int SplitStr(CStringArray& out, const CString& text, const CString& separator);
    static int SplitStr(std::vector<CString>& out, const CString& text, const CString& separator);
    /// Splits at the first separator only: "a=b=c" at "=" is "a" and "b=c". When there is no separator the
    /// result is 0, `first` is the whole text and `second` is empty.
    static int SplitStrTwo(CString& first, CString& second, const CString& text, const CString& separator);

    // Sequence numbers of an outline: parts joined by points, such as 3.2.1. The root is "0".

    /// The number of points in the text.
    static int CountDot(const CString& text);
    /// The next and the previous number on the same level: 3.9 is followed by 3.10. The last part is read as
    /// a whole decimal number with an optional sign; reading ends at the first other character, and a part
    /// without digits counts as 0 (3.x is followed by 3.1). `out` is emptied when there is no point, when the
    /// last part or the result does not fit 32 bits, and when a previous number would end in less than 1.
    static void GetNextSeqNum(CString& out, const CString& seq);
    static void GetPervSeqNum(CString& out, const CString& seq);
    /// The part before the last point: 3.2 of 3.2.1; "0" when there is no point.
    static void GetParentSeqNum(CString& out, const CString& seq);
    /// The part after the last point: 1 of 3.2.1; "0" when there is no point.
    static void GetSeqNumPostfix(CString& out, const CString& seq);
    /// Whether `seq` comes after `child` and everything below it. The numbers are compared part by part and
    /// the first parts that differ decide; a number that is the other one, lies below it or above it is not
    /// after it. 3.10 is after 3.9 and after 3.9.4, 4 is after 3.2; 3.2.1 is not after 3.2, nor 3.2 after
    /// 3.2.1. Parts are compared by value, however long (03 is 3, an empty part is 0); a part that is no
    /// number comes after the numbers, and two such parts compare by character code.
    static bool IsAfterChildBySeqNum(const CString& seq, const CString& child);
    /// Whether `seq` stands on the level of `parentSeq` (has the same parent, or is the same number) or on
    /// the level right below it (has `parentSeq` as its parent). Beside and below 3.2 there are 3.1, 3.2, 3.7
    /// and 3.2.5, but not 3.2.5.1, 3, or 4.2. Numbers without a point have the root "0" as their parent.
    /// Parts are the same when they have the same value.
    static bool IsSameLevelOrChildLevelByParentSeqNum(const CString& parentSeq, const CString& seq);
    /// The next serial text: the digits at the end of the text plus 1, in at least as many places (T-009
    /// gives T-010, 99 gives 100), however many there are. A text that ends in no digit gets a 1: "A" gives
    /// "A1" and the empty text "1".
    static CString StringFlowNext(const CString& text);
    /// The version number in the name of an upgrade or in a version text: the first run of digits with single
    /// points between them and at least one point. "Setup2021_V3.0.12.exe" gives "3.0.12"; a text without a
    /// version gives the empty text.
    static CString GetUpgradeVersion(const CString& text);

    // Numbers as text.

    /// 1 when the text, trimmed in place, is a decimal number: a "-" or none, then digits with at most one
    /// point among them and no more than `maxDecimals` digits after it. The empty text and one that starts
    /// with a point are none; "-" alone and "5." count.
    static int IsNumberic(CString& text, uint16_t maxDecimals);
    /// 1 when the text consists of digits, or of digits, a point and digits; the leading zeros of the integer
    /// part are then taken off (007.50 becomes 7.50 and 00 becomes 0), whatever its length. Otherwise 0, and
    /// the text stays as it is; blanks and signs are not accepted.
    static int IsLegalNumber(CString& text);
    /// The number that is left of a text when what cannot belong to one is dropped: digits stay, the first
    /// point, and a "-" before both; full-width digits and signs count as the plain ones. The integer part
    /// is without leading zeros and not empty, a point stays only before a digit: "φ 0１2.50mm" gives "12.50"
    /// and ".5" gives "0.5". A text without digits gives the empty text.
    static CString getLegalNumber(const CString& text);
    /// The number of decimals of a number text: the digits that follow its first point without a gap.
    static int getDotNum(const CString& text);
    /// A short text of a number: 3 decimals when the digit of the thousandths is not 0, else 2 when that of
    /// the hundredths is not, else 1 when that of the tenths is not, else none. The digits are cut off, not
    /// rounded, the text is then rounded to its decimals: 0.0996 gives "0.100", 0.9999 "1.000", 0.9001 "0.9",
    /// 0.0009 "0". The sign does not count for the digits, and values of 1.0 and above follow the same rule.
    ///
    /// A value that differs from a whole number of thousandths only by the rounding of a double counts as
    /// that number: 0.29 (stored as 0.28999...) gives "0.29" and not "0.290", and 0.3 - 0.1
    /// (0.19999999999999998) gives "0.2" and not "0.200". A zero has no sign. Infinity and what is no number
    /// give the empty text.
    static CString GetDoubleStr(const double& value);
    /// The decimal text of a number.
    static CString IntToStr(int value);
    /// A value as text: whole numbers in decimal; doubles with up to 6
    /// decimals and none that are 0 at the end (1.5, 2); narrow text in the ANSI code page (null gives the
    /// empty text).
    static CString TransToStr(int value);
    static CString TransToStr(long long value);
    static CString TransToStr(double value);
    static CString TransToStr(const char* text);
    /// The product of two number texts (signs, digits, a point; blanks around them are allowed) as
    /// TransToStr writes it: "2.5" and "4" give "10". A text that is no number, or a product that is beyond
    /// a double, gives the empty text.
    static CString MultiDoubleStr(const CString& first, const CString& second);
    /// A random whole number from `low` to `high`, both included, all equally likely; when `low` is above
    /// `high` they change places. Not for secrets.
    static int RandomInt(int low, int high);
    /// 1 when the text is a mobile telephone number of mainland China: 11 digits, the first a 1 and the
    /// second from 3 to 9; no blanks, signs or country code.
    static int IsMobileNumber(const CString& text);

    // Date and time, in the local time of the machine, by the Gregorian calendar.

    /// Reads a date, or a date and a time: a year of four digits from 1601 on, month and day in one or two
    /// digits, joined by "-", "/" or "." or written 2024年2月29日; after blanks or a "T" hours and minutes
    /// (in 24 hours), perhaps seconds, joined by ":", and milliseconds in three digits after a point. Blanks
    /// around it are allowed. What is not given is 0; the day of the week is filled in. Gives 0 and leaves
    /// `out` as it was when the text is anything else or names no day of the calendar or time of the day:
    /// 2023-02-29, 24:00.
    static int ParseTime(SYSTEMTIME& out, const CString& text);
    /// 1 when the moment that `deadline` names has passed. A deadline without a time lasts until the end of
    /// its day. A text that ParseTime does not read counts as passed.
    static int IsOverTime(const CString& deadline);
    /// Today as "yyyy-mm-dd".
    static CString GetDate();
    /// The date of a text that ParseTime reads, as "yyyy-mm-dd"; the empty text for any other.
    static CString GetDate(const CString& dateTime);
    /// The time of the day as "hh:mm:ss".
    static CString GetTime();
    /// A stamp of the local time: year, month, day, hour, minute, second and millisecond, one after the other
    /// without filling zeros. Waits 30 milliseconds first, so that calls that follow each other differ.
    static CString GenTimeZoneStr();

    // File names. A name starts after the last "\", "/" or ":" of the path; its format starts after the last
    // point of the name. GetFilePath and GetFileName together are the path.

    /// The name with its format: "b.dwg" of "C:\a\b.dwg".
    static CString GetFileName(const CString& path);
    /// The folder with its closing separator: "C:\a\" of "C:\a\b.dwg", empty when there is none.
    static CString GetFilePath(const CString& path);
    /// The name without its format and the point: "b" of "C:\a\b.dwg".
    static CString GetFilePrefix(const CString& path);
    /// The format without its point: "dwg" of "C:\a\b.dwg", empty when there is none.
    static CString GetFileNameFormat(const CString& path);
    /// The folder of the running program, which the modules of an application share, with its closing
    /// separator; empty when the system does not tell it.
    static CString GetAppCommonDir();

    // Others.

    /// A new name for a temporary database table, "TMP_" and 32 hexadecimal digits, different at each call
    /// and on each machine. Should the system make no identifier, GenTimeZoneStr takes the place of the
    /// digits.
    static CString GetTempTableName();
    /// The calling thread's last system error as a text for users: its code, "错误原因：" and the system's
    /// message with the line end that the system gives it, or "未知错误！" where the system has none. Code 0
    /// has a text of its own. The last error stays as it was.
    static CString ErrorMessage();
};

#pragma once

#include <afxcoll.h>
#include <afxwin.h>

/// Profile (INI) files: keys through the system's profile functions; sections, lists of keys and lines by
/// reading the file. All members are static and keep no state that a caller could see: a change that another
/// program makes to a file is seen by the next call. (What is read here, and not by the system, is kept while
/// the file's size and times are the same: a change that leaves the size, and sets the times back, is not
/// seen.)
///
/// A file is given by its full path. It is text in the ANSI code page, or by its mark UTF-8 or UTF-16. A
/// section line begins with "[", ends with "]" and has at least one character between them; a key line has a
/// key, "=" and a value, and belongs to the section line above it; a line that begins with ";" is a comment.
/// Section names and keys are found without regard to case and to blanks around them; of several the first
/// counts. Where the system reads a key, it also takes a section line with blanks before it or text behind
/// it. The system knows neither UTF-8 files nor UTF-16 files with the high byte first: their keys are read
/// and written here by the same rules.
///
/// Lines end with a line feed, with or without a carriage return before it. The text ends at Ctrl-Z (1A), if
/// there is one; what follows is kept but is no line. Lines are numbered from 0.
///
/// Results of type int are 1 for success and 0 for failure unless stated. A function that gives lists empties
/// them first; after a failure they are empty. A function that writes changes only what it names: every other
/// byte of the file, mark and line ends included, stays as it was. The file is replaced by a new one in
/// one step. After a failure (a read-only file, one that another program holds, a full disk) it is as it was.
/// A change after which the file would begin with the bytes of another mark is not made.
/// No function throws, but for CAtlException(E_OUTOFMEMORY) where memory is out.
class AFX_EXT_CLASS CFamStuIniFile
{
public:
    // Keys.

    /// The value of a key: without blanks around it and without one pair of quotation marks ("..." or '...'),
    /// at most 25999 characters of it. `defaultValue`, cut in the same way and without blanks at its end,
    /// when there is no such key, section or file.
    static CString ReadKey(const CString& file, const CString& section, const CString& key,
                           const CString& defaultValue);
    /// The value as a whole number: an optional sign and digits, up to the first other character; 0 when
    /// there is no digit. `defaultValue` when there is no such key or its value is empty.
    static int ReadKey(const CString& section, const CString& key, int defaultValue, const CString& file);
    /// The value as a number, as wcstod reads one (sign, digits, point, exponent), up to the first character
    /// that does not belong to one; 0 when it begins with none. `defaultValue` when there is no such key.
    /// Both pass through a text of at most 259 characters, the default one with six decimals: 1e-7 comes back
    /// as 0.
    static double ReadKey(const CString& section, const CString& key, double defaultValue,
                          const CString& file);

    /// Set the value of a key, and make key, section and file where they are missing (a new file is in the
    /// ANSI code page). Numbers are written in decimal, a double with six decimals. Other than 0 for success:
    /// the result of WritePrivateProfileString. In a file that the system does not know it is 0, and nothing
    /// is written, where the key would not be found again: for an empty section, and for a key that is empty,
    /// holds "=" or begins with ";".
    static int WriteKey(const CString& section, const CString& key, const CString& value,
                        const CString& file);
    static int WriteKey(const CString& section, const CString& key, int value, const CString& file);
    static int WriteKey(const CString& section, const CString& key, long value, const CString& file);
    static int WriteKey(const CString& section, const CString& key, double value, const CString& file);

    /// Remove the line of a key, and a section with all its lines. Other than 0 for success, also when there
    /// was nothing to remove.
    static int DeleteKey(const CString& file, const CString& section, const CString& key);
    static int DeleteSeg(const CString& file, const CString& section);

    // Sections.

    /// The names of all section lines in the order of the file, as they stand between the brackets.
    static int GetAllSeg(CStringArray& names, const CString& file);

    /// The keys of a section in the order of the file; with `wholeLines` other than 0 its key lines as they
    /// are. The text gets them with CR LF between them. 0 when there is no such section or file.
    static int GetSegKey(CString& keys, const CString& file, const CString& section, int wholeLines = 0);
    static int GetSegKey(CStringArray& keys, const CString& file, const CString& section, int wholeLines = 0);

    /// The keys and values of a section. Values are without blanks around them, but keep quotation marks, so
    /// that SetSegValue gives back what was there. In the map the first of equal keys counts; there upper and
    /// lower case are different. 0 when there is no such section or file.
    static int GetSegValue(CMapStringToString& values, const CString& file, const CString& section);
    static int GetSegValue(CStringArray& keys, CStringArray& values, const CString& file,
                           const CString& section);

    /// Sets keys[i] to values[i] for each i, one after another with WriteKey; ends with 0 at the first that
    /// fails. 0, and nothing is done, when the lists differ in size.
    static int SetSegValue(const CStringArray& keys, const CStringArray& values, const CString& file,
                           const CString& section);

    // Lines.

    /// All lines in order, without their line ends.
    static int GetAllLines(CStringArray& lines, const CString& file);

    /// Removes one line with its line end. 0 when there is no such line.
    static int DelOneRow(const CString& file, int line);
    /// Removes `count` lines from `line` on. 0, and nothing is done, when there are not as many.
    static int DelLnLines(const CString& file, int line, int count);
    /// Puts `lines` in the place of as many lines from `line` on; line ends stay, and a last line without one
    /// gets one when it becomes empty. 0, and nothing is done, when there are not as many, when `lines` is
    /// empty, and when a new text holds a line end, a zero, Ctrl-Z, or a character that the file's encoding
    /// lacks.
    static int ModifyLnLines(const CString& file, int line, const CStringArray& lines);
    /// A line, its definition, and the comment that describes it: the comment lines directly above it, less
    /// the ";" and blanks at their start and the blanks at their end, with CR LF between them; empty when
    /// there are none. 0 when there is no such line.
    static int getLnDesDef(CString& description, CString& definition, const CString& file, int line);
    /// Makes `lines` the lines of the file. A line that was in the file keeps its bytes and its line end,
    /// wherever it stands now; other lines are joined with CR LF. Behind the last one there is a line end if
    /// there was one in the file or the line is empty, none in a new file otherwise. A new file is in the
    /// ANSI code page, or in UTF-16 when that lacks a character; an existing one is not changed (0) when its
    /// encoding lacks one, or a new line is none (see ModifyLnLines).
    static int writerLines(const CStringArray& lines, const CString& file);

    // The place of a window: the keys `name` + "X", "Y" in the section "窗口位置", `name` + "Wid", "Hei" in
    // the section "窗口尺寸", in pixels of the screen. An empty name stands for the window's control number.

    /// Moves a window to the place that was saved, (100, 50) when none was. An X beyond the right edge of the
    /// screen counts as 100, a Y beyond its bottom as 50. The size is restored when `withSize` is not 0 and
    /// both sides are at least 1. 0 without a window.
    static int LoadWindowPos(CWnd* window, const CString& file, const CString& name, int withSize);
    /// Saves the place of a window. The size is left out while the window is maximised, or when a side is
    /// below 1. 0 without a window, when it is minimised (and has no place on the screen), and when the file
    /// cannot be written.
    static int SaveWindowPos(CWnd* window, const CString& file, const CString& name);
};

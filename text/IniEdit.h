#pragma once

/// Changed copies of profile files. Bytes that a change does not concern are copied as they are.

#include "IniContents.h"

#include <afxcoll.h>

#include <optional>

namespace inifile
{
/// The bytes of a changed file; nothing when the change is not possible: there are no such lines, a text is
/// none that a line can have (it holds a line end, a zero or Ctrl-Z), the encoding lacks one of its
/// characters, or the file would begin with what is the mark of another encoding.
using Bytes = std::optional<std::string>;

// Lines, numbered from 0.

Bytes withoutLines(const Text& text, int first, int count);
/// The lines from `first` on become `lines`, one for one; line ends stay, but a last line without one gets
/// one when it becomes empty: it would be no line.
Bytes withLines(const Text& text, int first, const CStringArray& lines);
/// The whole text becomes `lines`. A line that was in the text keeps its bytes and its line end, wherever it
/// stands now; other lines end with CR LF. After the last one there is a line end if there was one, or it is
/// empty.
Bytes withAllLines(const Text& text, const CStringArray& lines);

// Keys. A new one comes behind the last line of its section that is not blank, a new section at the end; both
// end as the line before them does.

/// Nothing also for an empty section name, and for a key that would not be found where it is written: one
/// that is empty, holds '=' or begins with ';', or a line that begins and ends with brackets.
Bytes withValue(const Contents& file, const CString& section, const CString& key, const CString& value);
/// Gives the bytes as they are when there is nothing to take out.
Bytes withoutKey(const Contents& file, const CString& section, const CString& key);
Bytes withoutSection(const Contents& file, const CString& section);
} // namespace inifile

#pragma once

/// System variables and environment settings.

#include "acutads.h"

/// Reads a system variable; case does not matter. `value` gets its type (RTSHORT, RTLONG, RTREAL, RTPOINT, RT3DPOINT, RTSTR) and
/// value; a text is the caller's (acutDelString). RTERROR for an unknown name or null, and `value` as it was.
int acedGetVar(const ACHAR* name, resbuf* value);

/// Writes a system variable: integers take RTSHORT and RTLONG, reals numbers of any type, points both types of points, texts
/// RTSTR. RTERROR for an unknown or read-only variable, another type or a value that it may not have, and nothing changed.
int acedSetVar(const ACHAR* name, const resbuf* value);

/// Reads an environment setting of the current profile ("ACAD" is the support path), or else of the process; case of the name
/// matters to neither. RTERROR for null, an unknown name, or a value that does not fit into `size` characters.
int acedGetEnv(const ACHAR* name, ACHAR* value, std::size_t size);
template <std::size_t Size>
int acedGetEnv(const ACHAR* name, ACHAR (&value)[Size])
{
    return acedGetEnv(name, value, Size);
}
/// Writes a setting of the current profile. RTERROR for null or an empty name.
int acedSetEnv(const ACHAR* name, const ACHAR* value);

/// Application data of the profile ("AppData/Section/Name"): as acedGetEnv and acedSetEnv.
int acedGetCfg(const ACHAR* name, ACHAR* value, std::size_t size);
int acedSetCfg(const ACHAR* name, const ACHAR* value);

/// Looks for a file: a path as it is, a name in the current folder, that of the current drawing, the folders of the support
/// path and the program's. `result` (of `size` characters) gets the full path. RTERROR when there is none or it does not fit.
int acedFindFile(const ACHAR* name, ACHAR* result, std::size_t size);
template <std::size_t Size>
int acedFindFile(const ACHAR* name, ACHAR (&result)[Size])
{
    return acedFindFile(name, result, Size);
}

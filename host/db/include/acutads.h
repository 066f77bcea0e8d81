#pragma once

/// Lists and strings of the list interface.

#include "acutmath.h"
#include "adsdef.h"

/// A new node of a type, its value zero; null when memory is out. Released with acutRelRb.
resbuf* acutNewRb(int type);

/// A new list of (type, value) pairs that ends with RTNONE or 0; RTDXF0 makes the node of group 0. Each value is taken as its type asks: int for short and
/// long types, double for reals, pointer for texts, points and names. Texts are copied. Null for an unknown type,
/// with nothing left behind.
resbuf* acutBuildList(int firstType, ...);

/// Releases every node of a list with the texts and binaries they own. RTNORM; RTERROR for null.
int acutRelRb(resbuf* list);

/// A copy of a text that acutDelString releases; sets `copy` and returns RTNORM, or RTERROR.
int acutNewString(const ACHAR* text, ACHAR*& copy);
void acutDelString(ACHAR*& text);
/// Releases a buffer of bytes that a function handed out, and sets it to null.
void acutDelBuffer(char*& buffer);

/// Whether a text matches a pattern, with regard to case: # a digit, @ a letter, . neither, ? any character, * any
/// characters, [abc] [a-z] one of a set, [~abc] none of it, ~ in front all but the pattern, a comma between alternatives,
/// ` before a character that stands for itself. RTNORM; RTERROR when it does not, or for null.
int acutWcMatch(const ACHAR* text, const ACHAR* pattern);

/// The value type (RTREAL, RT3DPOINT, RTSHORT, RTLONG, RTINT64, RTSTR, RTENAME, RTLB for binary chunks) of a DXF
/// group code, also of the application codes above 999 and the entity codes below 0; RTNONE for a code that the format
/// does not define.
short acdbGroupCodeToType(short code);

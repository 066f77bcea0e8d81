#pragma once

/// Questions to the user.
///
/// A question shows its prompt (null: none) and takes the next answer of the current document. An answer that
/// does not fit is told so and the question asked again. The functions return
///   RTNORM   the answer is in `result`,
///   RTNONE   Enter alone,
///   RTKWORD  a keyword of acedInitGet, or other text where RSG_OTHER allows it: see acedGetInput,
///   RTCAN    Esc, or nobody answered,
///   RTERROR  null where there must be a pointer.
/// `result` is written with RTNORM only. Points and angles are in the current UCS.
///
/// Points are typed as "x,y[,z]" (without z at ELEVATION), "distance<angle", "distance<angle<angle",
/// "distance<angle,z"; with @ in front from the base point, or LASTPOINT where there is none; with * in front
/// in the world; "@" alone is LASTPOINT itself. A distance alone goes from the base point towards the cursor,
/// along the X axis where nobody moved it;
/// "<angle" locks the direction of the answer that follows. Names of object snaps ("end", "mid,cen") and
/// "from", "m2p",
/// ".x" ".yz" ask for what they need. Lengths are read as LUNITS says, angles as AUNITS, ANGBASE and ANGDIR
/// say; "<<" takes degrees from east, "<<<" the current unit from east.

#include "AcString.h"
#include "adsdef.h"

#include <cstddef>

// What acedInitGet may ask for.
constexpr int RSG_NONULL = 0x1;       ///< Enter alone is no answer
constexpr int RSG_NOZERO = 0x2;       ///< zero is no answer
constexpr int RSG_NONEG = 0x4;        ///< negative numbers are none
constexpr int RSG_NOLIM = 0x8;        ///< points outside of the limits are taken though LIMCHECK is on
constexpr int RSG_GETZ = 0x10;        ///< without effect: points always have three coordinates
constexpr int RSG_DASH = 0x20;        ///< dashed rubber bands
constexpr int RSG_2D = 0x40;          ///< acedGetDist measures in the XY plane
constexpr int RSG_OTHER = 0x80;       ///< any text is an answer
constexpr int RSG_DDISTFIRST = 0x100; ///< a distance alone is a point before it is other text
constexpr int RSG_TRACKUCS = 0x200;
constexpr int RSG_NOORTHOZ = 0x400;
constexpr int RSG_NOOSNAPZ = 0x800;
constexpr int RSG_NODDIST = 0x1000; ///< a distance alone is no point

/// Says what the next question takes; it alone. Keywords have a blank between, the capitals of each must be
/// typed
/// ("eXit", "LTYPE,LT"); an underscore starts the global ones ("Oui Non _Yes No"), which are returned.
/// RTNORM.
int acedInitGet(int bits, const ACHAR* keywords);

/// The keyword or other text of the last question, its global form where it has one. RTNORM; RTINPUTTRUNCATED
/// when it was cut to fit.
int acedGetInput(ACHAR* text, std::size_t size);
template <std::size_t Size>
int acedGetInput(ACHAR (&text)[Size])
{
    return acedGetInput(text, Size);
}

/// Asks for one of the keywords of acedInitGet, or other text. RTERROR when there are neither.
/// RTINPUTTRUNCATED as above.
int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t size);
template <std::size_t Size>
int acedGetKword(const ACHAR* prompt, ACHAR (&result)[Size])
{
    return acedGetKword(prompt, result, Size);
}

/// Asks for a text, which may have blanks if `cronly`, and may be empty. acedInitGet has no effect.
/// RTINPUTTRUNCATED when it was cut to fit.
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, std::size_t size);
int acedGetString(int cronly, const ACHAR* prompt, AcString& result);
template <std::size_t Size>
int acedGetString(int cronly, const ACHAR* prompt, ACHAR (&result)[Size])
{
    return acedGetString(cronly, prompt, result, Size);
}

/// Asks for an integer of -32768 to 32767.
int acedGetInt(const ACHAR* prompt, int* result);
/// Asks for a number.
int acedGetReal(const ACHAR* prompt, ads_real* result);

/// Asks for a point; `base` (null: none) is what it relates to. Becomes LASTPOINT.
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
/// Asks for the corner opposite to `base`, at ELEVATION.
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result);
/// Asks for a length: a number, a point from `base`, or two points where there is none.
int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result);
/// Asks for an angle, as a number or by points. Counter-clockwise from ANGBASE, in [0, 2 pi).
int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result);
/// The same counter-clockwise from the X axis, whatever ANGBASE says.
int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result);

/// The point that object snaps find at a point of the UCS, within the aperture (APERTURE pixels); `modes` are
/// their names, with commas between. RTERROR when there is none, or a name is unknown.
int acedOsnap(const ads_point point, const ACHAR* modes, ads_point result);

/// Whether the user has pressed Esc or ^C meanwhile: 1 or 0. A command that takes long asks now and then, and
/// ends; the key waits for the command line.
int acedUsrBrk();

#pragma once

/// Selection sets: the entities that a command works on, gathered from the user or from the drawing.
///
/// A set belongs to the document that was current when it was made, and to its maker, who gives it back with
/// acedSSFree. At most 128 can be out in one document. Names of sets that were freed, of other documents, and of
/// entities are RTERROR, and nothing is changed. Points are in the current UCS. Functions return RTNORM or RTERROR
/// unless they say more.

#include "acadstrc.h"
#include "adesk.h"
#include "adsdef.h"
#include "dbidar.h"

/// Gathers entities into a new set `ss`.
///
/// `mode` is a method, after it options in any order; "_" may stand before each:
///
/// | method | entities | pt1, pt2 |
/// |---|---|---|
/// | null or empty | what the user picks; or, with pt1 alone, the entity under the point | ads_point or null |
/// | "X" | all of the drawing, also unseen ones | |
/// | "A" | of the current space, those on layers that are not frozen | |
/// | "W", "C" | in a window; also those that cross it | corners |
/// | "B" | as "W" when the points run to the right, as "C" when to the left | corners |
/// | "WP", "CP" | in a polygon; also those that cross it | list of RTPOINT or RT3DPOINT |
/// | "F" | that a fence meets | list of RTPOINT or RT3DPOINT |
/// | "L" | the last one that is seen | |
/// | "P" | those of the set before | |
/// | "I" | those that were selected before the command | |
/// | "G" | those of a group | its name |
/// | "M", "#" | what the user picks; with "#" by All, Last and Previous alone | |
///
/// Options: ":S" one selection only; ":E" everything under the pick box and not the topmost alone; "." points only
/// pick; ":L" none on locked layers; ":P" no viewports of layouts; ":D" an entity may stand in the set several times;
/// ":$" pt1 is an array of two texts, the prompts for adding and removing; ":K" keywords of acedInitGet, ":?" other
/// words go to the callbacks below; "-I" lets entities selected before the command be. ":N", ":U", ":V" and ":R" are
/// taken and change nothing here, where entities have no parts of their own.
///
/// "X" and what is gathered by geometry come in the order of drawing, the uppermost (newest) first. Geometry is that
/// of the current view: what is not seen is not found. With PICKSTYLE 1 or 3 it takes whole groups that are selectable.
///
/// `filter` is null or a list that each entity must fit:
/// - groups that equal the entity's own; texts are patterns, those of names in any case;
/// - (-4 "relation") before a group: "=", "!=", "/=", "<>", "<", "<=", ">", ">=", "&", "&=", "*", for points one a
///   coordinate (">,*");
/// - (-4 "<AND") ... (-4 "AND>") around groups, or OR, XOR (two of them), NOT (one);
/// - (-3) with (1001 application) for extended data.
/// Groups -1, -2 and 5 are passed over.
///
/// RTNORM; RTERROR when nothing was found, for a mode, point or filter that is faulty, without a document and when too
/// many sets are out; RTCAN when the user cancels. `ss` is a null name then.
int acedSSGet(const ACHAR* mode, const void* pt1, const void* pt2, const resbuf* filter, ads_name ss);

/// Adds an entity to a set, whose name is the result; to a new set when `ss` is null or a null name. A null entity adds
/// nothing. An entity that is in the set stays as it is.
int acedSSAdd(const ads_name entity, const ads_name ss, ads_name result);
/// Takes an entity out of a set; the others keep their order. RTERROR when it is not there.
int acedSSDel(const ads_name entity, const ads_name ss);
/// Gives a set back.
int acedSSFree(const ads_name ss);

/// The number of entities, erased ones too.
int acedSSLength(const ads_name ss, Adesk::Int32* length);
int acedSSLength(const ads_name ss, long* length);
/// Transforms every entity of a set by a matrix of columns. RTERROR when the set is not known or an entity cannot be
/// transformed; the others are.
int acedXformSS(const ads_name ss, ads_matrix matrix);
/// The entity at a place, from 0.
int acedSSName(const ads_name ss, Adesk::Int32 index, ads_name entity);
/// RTNORM when an entity is in a set.
int acedSSMemb(const ads_name entity, const ads_name ss);

/// How the entity at a place came into a set; those of all places for -1. A list that the caller releases; each entity
/// has (method entity marker ...): method 0 unknown, 1 picked (then a point), 2 in a window, 3 by crossing (both then
/// the number of the polygon, negative), 4 by a fence (then the points where it is met). Behind them (number point ...)
/// of each polygon. Points are (0 point) and, when the view is not a plan, (0 point direction), in world coordinates.
int acedSSNameX(resbuf** result, const ads_name ss, Adesk::Int32 index);

/// What is selected before a command: `pickfirst` gets a node RTPICKS, which the caller releases, with a new set, which
/// he frees; null when nothing is. `grips` is the same set of entities. Either may be null. RTERROR when nothing is
/// selected.
int acedSSGetFirst(resbuf** grips, resbuf** pickfirst);
/// Selects the entities of a set of the caller's, who keeps it; null or a null name: none. The set of grips is the
/// selection when there is no other.
int acedSSSetFirst(const ads_name grips, const ads_name pickfirst);
/// What is selected before a command, or so far while the user selects. eInvalidInput without a document.
Acad::ErrorStatus acedGetCurrentSelectionSet(AcDbObjectIdArray& ids);

/// Is called with a keyword (":K") or a word that acedSSGet does not know (":?"). A list of RTENAME and RTPICKS names
/// what is selected; a text (RTSTR) is shown instead; null does nothing. acedSSGet releases the list.
using AcedSelectionCallback = resbuf* (*)(const ACHAR* answer);
int acedSSGetKwordCallbackPtr(AcedSelectionCallback* callback);
int acedSSSetKwordCallbackPtr(AcedSelectionCallback callback);
int acedSSGetOtherCallbackPtr(AcedSelectionCallback* callback);
int acedSSSetOtherCallbackPtr(AcedSelectionCallback callback);

/// Asks for one entity by a point on it. `prompt` null: "Select object: ". RTERROR when nothing is there (ERRNO 7) and
/// for Enter (ERRNO 52); RTCAN.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);

/// The same, down to the entity inside of blocks: `xform` maps its coordinates to the world (the three axes, then the
/// origin), `containers` gets the references around it, the innermost first, as a list of RTENAME that the caller
/// releases; null when there are none. An attribute is found as such; of a polyline with vertices the vertex that
/// begins the segment.
int acedNEntSel(const ACHAR* prompt, ads_name entity, ads_point point, ads_point xform[4], resbuf** containers);
/// The same with a matrix of columns. With `usePoint` nobody is asked and `point` is where to look.
int acedNEntSelP(const ACHAR* prompt, ads_name entity, ads_point point, int usePoint, ads_matrix xform,
                 resbuf** containers);

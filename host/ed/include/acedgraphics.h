#pragma once

/// Temporary graphics, dragging and raw input. There is no screen: what is drawn is kept for who asks
/// (tests), and gone with the next redraw. All functions return RTNORM, or RTERROR for null and what else is
/// said.

#include "adsdef.h"

/// Draws a line between points of the UCS. `color` is 1 to 255, 0 or 256; -1 draws in XOR ink.
int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight);
/// Draws pairs of points, each in the colour (RTSHORT, negative: highlighted) that stands before them;
/// `matrix` (null: none) maps them into the UCS. RTERROR for a list that is none, with nothing drawn.
int acedGrVecs(const resbuf* vectors, const ads_matrix matrix);
/// Writes text: -1 the mode line, -2 the coordinate line, 0 and above the boxes of the screen menu.
int acedGrText(int box, const ACHAR* text, int highlight);
/// Shows an entity again (1), hides it (2), highlights it (3) or ends that (4); for a null entity drops the
/// temporary graphics. RTERROR for a name that is no entity and another mode.
int acedRedraw(const ads_name entity, int mode);

/// Takes the next event: a key (type 2, RTSHORT), a picked point of the UCS (type 3, RT3DPOINT), or with bit
/// 1 of `track` a move of the cursor (type 5, RT3DPOINT). RTCAN for Esc and when there are no more.
int acedGrRead(int track, int* type, resbuf* result);

/// Drags a selection set: for each position of the cursor, the last included, `follow` gets the point and
/// fills the matrix that the set is shown under; it returns RTNORM, RTNONE when nothing changed, or RTERROR,
/// which ends the drag. The set itself stays as it is. Asks as acedGetPoint does, and acedInitGet holds.
/// RTNORM and the point; RTNONE, RTCAN, RTKWORD; RTSTR for other text, which acedGetInput reads.
int acedDragGen(const ads_name set, const ACHAR* prompt, int cursor,
                int (*follow)(ads_point point, ads_matrix matrix), ads_point result);

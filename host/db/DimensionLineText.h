#pragma once

/// Where the text of a linear dimension stands, and what becomes of its line and arrows then.

#include "gepnt2d.h"

class DimensionPicture;

struct LineTextRequest {
    double length = 0.0;                          ///< of the dimension line
    double angleInside = 0.0, angleOutside = 0.0; ///< of the text between the ends, and outside
    AcGePoint2d origin;                           ///< the first end
    AcGeVector2d along;                           ///< unit, towards the second end
    AcGeVector2d awayFromObject;                  ///< unit, across the line
    bool hasOwnPlace = false;                     ///< the user put the text somewhere
    AcGePoint2d ownPlace;
};

/// Distances are along the line, from its first end.
struct LineText {
    AcGePoint2d middle;
    double angle = 0.0;
    bool isInside = true, arrowsInside = true, hidesArrows = false;
    double breakFrom = 0.0,
           breakTo = 0.0; ///< the line is interrupted for the text; nothing when not ascending
    double extendFrom = 0.0, extendTo = 0.0; ///< the line goes on outside to here; 0: it does not
    bool hasLeader = false; ///< a line leads from the middle of the dimension line to the text
};

/// By DIMATFIT, DIMTIX, DIMSOXD, DIMJUST, DIMTAD, DIMTVP and DIMTMOVE of the picture's style.
LineText placeLineText(const DimensionPicture& picture, const LineTextRequest& request);

/// The leader of a text that was moved away, with a short horizontal landing.
void drawTextLeader(DimensionPicture& picture, const AcGePoint2d& from, const LineText& text);

/// How far the middle of a text lies from a dimension line that it runs along: above it, below it or in it. 0
/// for a text that is not parallel to the line.
double textOffset(const DimensionPicture& picture, double angle, const AcGeVector2d& along,
                  const AcGeVector2d& awayFromObject);

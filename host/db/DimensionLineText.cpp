#include "DimensionLineText.h"

#include "DimensionPicture.h"

#include <algorithm>
#include <cmath>

namespace
{
/// What stays between the extension lines when there is not room for all.
enum class Fit { bothOutside, arrowsMove, textMoves, best };

bool isParallel(double angle, const AcGeVector2d& along)
{
    return std::fabs(std::sin(angle) * along.x - std::cos(angle) * along.y) < 1e-6;
}

struct Room {
    double half;   ///< of the text, along the line
    double text;   ///< with its gaps
    double arrows; ///< with a gap each
    double all;
};

Room roomFor(const DimensionPicture& picture, const LineTextRequest& request)
{
    const double half = picture.hasText() ? picture.textReach(request.along, request.angleInside) : 0.0;
    const double size = picture.arrowSize(), gap = picture.gap();
    return {half, picture.hasText() ? 2.0 * (half + gap) : 0.0, 2.0 * (size + gap),
            2.0 * (half + gap + size)};
}

void chooseSides(LineText& text, const DimensionPicture& picture, const Room& room, double length)
{
    const DimVariables& v = picture.variables();
    const bool textFits = room.text <= length, arrowsFit = room.arrows <= length;
    const auto fit = static_cast<Fit>(std::clamp(v.dimatfit, 0, 3));
    if (room.all <= length) {
        text.isInside = text.arrowsInside = true;
    } else if (fit == Fit::arrowsMove || (fit == Fit::best && textFits)) {
        text.isInside = textFits;
        text.arrowsInside = false;
    } else {
        text.isInside = false;
        text.arrowsInside = fit != Fit::bothOutside && arrowsFit;
    }
    if (v.dimtix) text.isInside = true;
    text.hidesArrows = v.dimtix && v.dimsoxd && !text.arrowsInside;
}

/// The distance of the text's middle from the first end, when it stands between the ends.
double justified(const DimVariables& v, const Room& room, double size, double gap, double length)
{
    if (v.dimjust == 1) return size + gap + room.half;
    if (v.dimjust == 2) return length - size - gap - room.half;
    return length / 2.0;
}

void putInside(LineText& text, const DimensionPicture& picture, const LineTextRequest& request,
               const Room& room)
{
    const double distance =
        justified(picture.variables(), room, picture.arrowSize(), picture.gap(), request.length);
    const double offset = textOffset(picture, text.angle, request.along, request.awayFromObject);
    const AcGeVector2d up(-std::sin(text.angle), std::cos(text.angle));
    text.middle = request.origin + request.along * distance + up * offset;
    const double clearance = picture.textFrameHeight() / 2.0;
    if (picture.hasText() && std::fabs(offset) < clearance) {
        text.breakFrom = distance - room.text / 2.0;
        text.breakTo = distance + room.text / 2.0;
    }
}

/// Behind the second end; a line of the style that stands above goes on below the text.
void putOutside(LineText& text, const DimensionPicture& picture, const LineTextRequest& request)
{
    const double reach = picture.textReach(request.along, text.angle);
    const double start = request.length + (text.arrowsInside ? 1.0 : 2.0) * picture.arrowSize();
    const double offset = textOffset(picture, text.angle, request.along, request.awayFromObject);
    const AcGeVector2d up(-std::sin(text.angle), std::cos(text.angle));
    const bool isAbove = std::fabs(offset) >= picture.textFrameHeight() / 2.0 && offset != 0.0;
    text.middle = request.origin + request.along * (start + picture.gap() + reach) + up * offset;
    text.extendTo = isAbove ? start + picture.gap() + 2.0 * reach : start;
}

/// Where the user put it: the line is interrupted, or reaches out to it, or a leader does.
void putWhereAsked(LineText& text, const DimensionPicture& picture, const LineTextRequest& request,
                   const Room& room)
{
    const AcGeVector2d offset = request.ownPlace - request.origin;
    const double distance = offset.dotProduct(request.along);
    const double sideways = std::fabs(offset.crossProduct(request.along));
    text.middle = request.ownPlace;
    text.isInside = distance >= 0.0 && distance <= request.length;
    text.angle = text.isInside ? request.angleInside : request.angleOutside;
    if (picture.hasText() && sideways < picture.textFrameHeight() / 2.0 && text.isInside) {
        text.breakFrom = distance - room.text / 2.0;
        text.breakTo = distance + room.text / 2.0;
    }
    const int move = picture.variables().dimtmove;
    const double half = picture.textReach(request.along, text.angle);
    const bool isNear = sideways < picture.textFrameHeight() + 2.0 * picture.gap();
    if (move == 0 && !text.isInside && isNear) {
        const bool isAbove = sideways >= picture.textFrameHeight() / 2.0;
        const double nearEdge = half + picture.gap(), farEdge = -half;
        if (distance > request.length) text.extendTo = distance - (isAbove ? farEdge : nearEdge);
        if (distance < 0.0) text.extendFrom = distance + (isAbove ? farEdge : nearEdge);
    }
    text.hasLeader = move == 1 && (!isNear || !text.isInside);
}
} // namespace

double textOffset(const DimensionPicture& picture, double angle, const AcGeVector2d& along,
                  const AcGeVector2d& awayFromObject)
{
    const DimVariables& v = picture.variables();
    if (!isParallel(angle, along)) return 0.0;
    const double beside = picture.gap() + picture.textFrameHeight() / 2.0;
    const AcGeVector2d up(-std::sin(angle), std::cos(angle));
    switch (v.dimtad) {
    case 0:
        return v.dimtvp * picture.textHeight();
    case 2:
        return up.dotProduct(awayFromObject) < 0.0 ? -beside : beside;
    case 4:
        return -beside;
    default:
        return beside;
    }
}

LineText placeLineText(const DimensionPicture& picture, const LineTextRequest& request)
{
    LineText text;
    const Room room = roomFor(picture, request);
    chooseSides(text, picture, room, request.length);
    text.angle = text.isInside ? request.angleInside : request.angleOutside;
    if (request.hasOwnPlace) {
        putWhereAsked(text, picture, request, room);
    } else if (text.isInside) {
        putInside(text, picture, request, room);
    } else {
        putOutside(text, picture, request);
    }
    return text;
}

void drawTextLeader(DimensionPicture& picture, const AcGePoint2d& from, const LineText& text)
{
    const AcGeVector2d along(std::cos(text.angle), std::sin(text.angle));
    const double side = (text.middle - from).dotProduct(along) < 0.0 ? -1.0 : 1.0;
    const DimVariables& v = picture.variables();
    const AcGePoint2d end = text.middle - along * (side * (picture.textWidth() / 2.0 + picture.gap()));
    const AcGePoint2d landing = end - along * (side * v.scaled(v.dimasz));
    picture.dimensionLine(from, landing);
    picture.dimensionLine(landing, end);
}

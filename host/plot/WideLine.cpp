#include "WideLine.h"

#include "WidePath.h"

#include <algorithm>

namespace plot
{
namespace
{
AcGeVector2d leftOf(const WidePiece& piece)
{
    const AcGeVector2d along = (piece.end - piece.start).normal();
    return {-along.y, along.x};
}

/// From the end that two pieces share to the corner at the left, for a half width of 1.
AcGeVector2d cornerOf(const WidePiece& before, const WidePiece& after, const AcGeVector2d& own)
{
    AcGeVector2d corner;
    return miterOf(leftOf(before), leftOf(after), corner) ? corner : own;
}

bool meet(const WidePiece& before, const WidePiece& after)
{
    return before.end.isEqualTo(after.start) && before.endHalf == after.startHalf;
}
} // namespace

Loops wideArea(const std::vector<WidePiece>& given, bool isClosed)
{
    std::vector<WidePiece> pieces;
    std::copy_if(given.begin(), given.end(), std::back_inserter(pieces),
                 [](const WidePiece& piece) { return !piece.start.isEqualTo(piece.end); });
    Loops loops;
    const std::size_t count = pieces.size();
    for (std::size_t i = 0; i < count; ++i) {
        const WidePiece& piece = pieces[i];
        const WidePiece& before = pieces[(i + count - 1) % count];
        const WidePiece& after = pieces[(i + 1) % count];
        const bool hasBefore = (i > 0 || isClosed) && meet(before, piece);
        const bool hasAfter = (i + 1 < count || isClosed) && meet(piece, after);
        const AcGeVector2d own = leftOf(piece);
        const AcGeVector2d start = piece.startHalf * (hasBefore ? cornerOf(before, piece, own) : own);
        const AcGeVector2d end = piece.endHalf * (hasAfter ? cornerOf(piece, after, own) : own);
        loops.push_back({piece.start - start, piece.end - end, piece.end + end, piece.start + start});
    }
    return loops;
}
} // namespace plot

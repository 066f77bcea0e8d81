#pragma once

#include "dbhatch.h"

#include <vector>

namespace entity
{
/// The loops of a hatch as the entities that bound it.
struct HatchBoundary {
    struct Loop {
        AcDbObjectIdArray ids;
        Adesk::Int32 type; ///< kExternal for loops that lie in no other, kTextbox for the frame of a text
                           ///< (inside of an area: those of others are left out)
    };

    std::vector<Loop> loops;
    AcGePlane plane; ///< its normal points up
};

/// Sorts entities into loops: each closed one alone, open curves as closed chains. An id that is there twice
/// counts once, curves as good as points do not. False for ids that cannot be opened or are not in the
/// current space, chains that stay open, and entities that span no plane; whether all of them lie in it is
/// not looked at.
bool boundaryOf(const AcDbObjectIdArray& ids, HatchBoundary& boundary);
} // namespace entity

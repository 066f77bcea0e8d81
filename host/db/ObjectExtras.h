#pragma once

/// What few objects have: kept apart so that the many without it stay small.

#include "AttachedData.h"
#include "UndoEdit.h"

#include <cstdint>
#include <memory>
#include <vector>

struct DbObjectExtras : AttachedData {
    std::vector<AcDbObjectReactor*> transientReactors;

    // What this opening for write has changed: taken back by cancel(), handed over to the undo journal by close().
    std::unique_ptr<ObjectEdit> before;           ///< the state when it was opened
    std::vector<std::unique_ptr<UndoEdit>> edits; ///< of what is no part of the state, in order

    std::uint32_t undoEpoch = 0; ///< the part of the journal that has a state of the object already
    int transactionOpens = 0;    ///< of acdbOpenObject, while a transaction holds the object
};

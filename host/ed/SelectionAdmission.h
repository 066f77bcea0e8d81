#pragma once

/// Which of the entities that were pointed at come into a selection.

#include "SelectionFilter.h"
#include "SelectionMode.h"
#include "SelectionSearch.h"

namespace ed
{
/// What was admitted, and how many were not and why.
struct Admitted {
    std::vector<AcDbObjectId> ids;
    std::size_t found = 0; ///< with those of groups
    std::size_t groups = 0;
    std::size_t filtered = 0;
    std::size_t locked = 0;
};

class SelectionAdmission
{
public:
    SelectionAdmission(SelectionSearch& search, AcDbDatabase& database, const SelectionMode& mode,
                       const SelectionFilter& filter)
        : mSearch(search), mDatabase(database), mMode(mode), mFilter(filter)
    {
    }
    /// `byGeometry` takes the groups of the entities too, as PICKSTYLE says.
    Admitted admit(std::vector<AcDbObjectId> ids, bool byGeometry) const;

private:
    SelectionSearch& mSearch;
    AcDbDatabase& mDatabase;
    const SelectionMode& mMode;
    const SelectionFilter& mFilter;
};
} // namespace ed

#pragma once

#include "dbidar.h"
#include "gepnt3d.h"

#include <vector>

namespace entity
{
/// Brings open curves that meet end to end into closed chains. Ends within a millionth of a unit of each
/// other meet.
class EndChains
{
public:
    void add(AcDbObjectId curve, const AcGePoint3d& start, const AcGePoint3d& end);
    /// Appends the chains, in the order of their first curves. False, and some may be there, when a chain
    /// stays open.
    bool take(std::vector<AcDbObjectIdArray>& chains) const;

private:
    struct End {
        AcGePoint3d point;
        std::size_t curve;
    };

    std::vector<AcDbObjectId> m_curves;
    std::vector<End> m_ends; ///< two a curve: its start, its end
};
} // namespace entity

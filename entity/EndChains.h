#pragma once

#include "dbidar.h"
#include "gepnt3d.h"

#include <vector>

namespace entity
{
/// Brings open curves that meet end to end into closed chains. Where more than two curves meet, each chain
/// still comes through that place once.
class EndChains
{
public:
    /// Ends this near to each other meet, in drawing units.
    static constexpr double reach = 1e-6;

    /// The ends of a curve must be further apart.
    void add(AcDbObjectId curve, const AcGePoint3d& start, const AcGePoint3d& end);
    /// Appends the chains. False, and some may be there, when one stays open.
    bool take(std::vector<AcDbObjectIdArray>& chains) const;

private:
    class Walk;

    std::vector<AcDbObjectId> m_curves;
    std::vector<AcGePoint3d> m_ends; ///< two a curve: its start, its end
};
} // namespace entity

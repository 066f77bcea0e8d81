#include "BoundaryBySet.h"

#include "acedads.h"
#include "CFamStuSysVar.h"
#include "dbapserv.h"
#include "dbsymtb.h"
#include "NewEntity.h"
#include "OpenReport.h"
#include "Transaction.h"

#include <memory>

namespace entity
{
namespace
{
constexpr const wchar_t* member = L"MakeBoundary";

/// The entities of the current space that are younger than a moment.
class YoungerEntities
{
public:
    explicit YoungerEntities(AcDbObjectId space) : m_space(space)
    {
        if (const auto entities = iterator(false)) entities->getEntityId(m_last);
    }

    AcDbObjectIdArray ids() const
    {
        AcDbObjectIdArray found;
        const auto entities = iterator(true);
        if (!entities) return found;
        if (!m_last.isNull() && entities->seek(m_last) == Acad::eOk) entities->step();
        AcDbObjectId id;
        for (; !entities->done(); entities->step())
            if (entities->getEntityId(id) == Acad::eOk) found.append(id);
        return found;
    }

private:
    /// From the first entity on, or from the last one back.
    std::unique_ptr<AcDbBlockTableRecordIterator> iterator(bool fromFirst) const
    {
        AcDbBlockTableRecordIterator* entities = nullptr;
        const AcDbObjectPointer<AcDbBlockTableRecord> space(m_space, AcDb::kForRead);
        if (isOpen(space, member)) space->newIterator(entities, fromFirst);
        return std::unique_ptr<AcDbBlockTableRecordIterator>(entities);
    }

    AcDbObjectId m_space, m_last;
};
} // namespace

AcDbObjectIdArray boundaryBySet(const AcGePoint3d& pt, const ads_name candidates, bool islands,
                                bool asRegions)
{
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database || !isFinite(pt)) return {};
    // Object snaps would move the point; the command keeps the kind of outline.
    const CFamStuSysVar withoutSnaps(L"OSMODE", 0), kindOfOutline(L"HPBOUND", asRegions ? 0 : 1);
    const YoungerEntities made(database->currentSpaceId());
    const ads_point seed = {pt.x, pt.y, pt.z};
    // Advanced options: the set, islands, the kind of outline; Enter ends them, and one more the command.
    const int result = acedCommandS(
        RTSTR, L"_.-BOUNDARY", RTSTR, L"_Advanced", RTSTR, L"_Boundary", RTSTR, L"_New", RTPICKS, candidates,
        RTSTR, L"", RTSTR, L"_Island", RTSTR, islands ? L"_Yes" : L"_No", RTSTR, L"_Object", RTSTR,
        asRegions ? L"_Region" : L"_Polyline", RTSTR, L"", RT3DPOINT, seed, RTSTR, L"", RTNONE);
    const AcDbObjectIdArray ids = made.ids();
    if (result == RTNORM) return ids;
    eraseAll(ids, member);
    return {};
}
} // namespace entity

/// Entities found on the screen.

#include "CMakeEnt.h"

#include "acdbads.h"
#include "acedads.h"
#include "CFamStuSysVar.h"

namespace
{
constexpr short layerName = 8; // DXF group

/// All that is under the pick box at a point, the uppermost first; the set is freed at its end.
class PickedEntity
{
public:
    PickedEntity(const AcGePoint3d& pt, const CString& layer)
    {
        const CFamStuSysVar withoutGroups(L"PICKSTYLE", 0);
        const ads_point at = {pt.x, pt.y, pt.z};
        resbuf filter = {};
        filter.restype = layerName;
        filter.resval.rstring = const_cast<ACHAR*>(layer.GetString());
        m_isMade = acedSSGet(L":E", at, nullptr, layer.IsEmpty() ? nullptr : &filter, m_set) == RTNORM;
    }
    ~PickedEntity()
    {
        if (m_isMade) acedSSFree(m_set);
    }
    PickedEntity(const PickedEntity&) = delete;
    PickedEntity& operator=(const PickedEntity&) = delete;

    /// Null when there is none.
    AcDbObjectId id() const
    {
        ads_name entity = {};
        AcDbObjectId id;
        if (m_isMade && acedSSName(m_set, 0, entity) == RTNORM) acdbGetObjectId(id, entity);
        return id;
    }

private:
    ads_name m_set = {};
    bool m_isMade = false;
};
} // namespace

int CArxEntity::CMakeEnt::SeekBj(const AcGePoint3d& pt, CGTStringW layer, AcDbObjectId& id)
{
    const AcDbObjectId found = PickedEntity(pt, layer).id();
    if (found.isNull()) return 0;
    id = found;
    return 1;
}

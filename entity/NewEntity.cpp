#include "NewEntity.h"

#include "CDatabase.h"
#include "CUcsWcs.h"
#include "dbapserv.h"
#include "dbxutil.h"

#include <algorithm>
#include <cmath>

namespace entity
{
bool isWithinNumbers(const AcDbEntity& entity)
{
    AcDbExtents box;
    const Acad::ErrorStatus status = entity.getGeomExtents(box);
    // Others have none to measure: a text without letters.
    if (status != Acad::eOk) return status != Acad::eInvalidExtents;
    return isFinite(box.minPoint()) && isFinite(box.maxPoint());
}

bool isFinite(const AcGePoint3d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool setColor(AcDbEntity& entity, int color)
{
    constexpr int byBlock = 0, byLayer = 256;
    const int index = std::clamp(color, byBlock, byLayer);
    return entity.setColorIndex(static_cast<std::uint16_t>(index), true) == Acad::eOk;
}

bool setLayer(AcDbEntity& entity, const CString& layer)
{
    return layer.IsEmpty() || entity.setLayer(layer, true, false) == Acad::eOk;
}

int addInWorld(std::unique_ptr<AcDbEntity> entity, AcDbObjectId& id)
{
    if (!entity || !isWithinNumbers(*entity)) return 0;
    if (!CArxUtils::CDatabase::AddToDb(entity.get(), id)) return 0;
    entity.release()->close();
    return 1;
}

int add(std::unique_ptr<AcDbEntity> entity, AcDbObjectId& id)
{
    return CArxUtils::CUcsWcs::UcsToWcs(entity.get()) ? addInWorld(std::move(entity), id) : 0;
}

AcGeMatrix3d ucsToWorld()
{
    AcGeMatrix3d matrix;
    acdbUcsMatrix(matrix);
    return matrix;
}

int Batch::addInWorld(std::unique_ptr<AcDbEntity> entity)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return 0;
    if (!m_changes) m_changes.emplace(*database);
    AcDbObjectId id;
    if (!entity::addInWorld(std::move(entity), id)) return 0;
    m_added.append(id);
    return 1;
}

int Batch::keep(AcDbObjectIdArray& ids)
{
    if (!m_changes || !m_changes->keep()) return 0;
    ids.append(m_added);
    return 1;
}
} // namespace entity

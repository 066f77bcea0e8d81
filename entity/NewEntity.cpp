#include "NewEntity.h"

#include "CDatabase.h"
#include "CUcsWcs.h"
#include "dbidar.h"
#include "dbobjptr.h"
#include "dbxutil.h"

#include <algorithm>

namespace entity
{
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

Batch::~Batch()
{
    for (const AcDbObjectId& id : m_added) {
        const AcDbEntityPointer added(id, AcDb::kForWrite);
        if (added.openStatus() == Acad::eOk) added->erase();
    }
}

int Batch::addInWorld(std::unique_ptr<AcDbEntity> entity)
{
    AcDbObjectId id;
    if (!entity::addInWorld(std::move(entity), id)) return 0;
    m_added.append(id);
    return 1;
}

int Batch::keep(AcDbObjectIdArray& ids)
{
    ids.append(m_added);
    m_added.setLogicalLength(0);
    return 1;
}
} // namespace entity

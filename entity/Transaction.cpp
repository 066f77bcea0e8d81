#include "Transaction.h"

#include "OpenReport.h"

namespace entity
{
Transaction::Transaction(AcDbDatabase& database) : m_manager(*database.transactionManager())
{
    m_manager.startTransaction();
}

Transaction::~Transaction()
{
    if (m_isActive) m_manager.abortTransaction();
}

AcDbEntity* Transaction::open(AcDbObjectId id, const wchar_t* member)
{
    constexpr bool alsoErased = false, onLockedLayers = true;
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status =
        m_manager.getObject(object, id, AcDb::kForWrite, alsoErased, onLockedLayers);
    return isOpen(status, member) ? AcDbEntity::cast(object) : nullptr;
}

bool Transaction::keep()
{
    m_isActive = m_manager.endTransaction() != Acad::eOk;
    return !m_isActive;
}

bool eraseAll(const AcDbObjectIdArray& ids, const wchar_t* member)
{
    if (ids.isEmpty()) return true;
    Transaction changes(*ids.first().database());
    for (const AcDbObjectId& id : ids) {
        AcDbEntity* const entity = changes.open(id, member);
        if (!entity || entity->erase() != Acad::eOk) return false;
    }
    return changes.keep();
}
} // namespace entity

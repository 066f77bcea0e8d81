#pragma once

#include "dbentity.h"
#include "dbidar.h"
#include "dbtrans.h"

namespace entity
{
/// Changes of a drawing that are kept together or taken back.
class Transaction
{
public:
    explicit Transaction(AcDbDatabase& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    /// Takes all changes since the start back, unless they are kept: also what was made is gone then.
    ~Transaction();

    /// Opens an entity for write, on a locked layer too, until the transaction ends. Null when it cannot be
    /// had; the status is reported under the name of the member that needs it.
    AcDbEntity* open(AcDbObjectId id, const wchar_t* member);
    /// Ends it with its changes.
    bool keep();

private:
    AcDbTransactionManager& m_manager;
    bool m_isActive = true;
};

/// Erases entities of one drawing together, on locked layers too. False, and all of them stay, when one
/// cannot be opened, which is reported under the name of a member.
bool eraseAll(const AcDbObjectIdArray& ids, const wchar_t* member);
} // namespace entity

#pragma once

#include "actrans.h"
#include "dbdatabase.h"

#include <memory>
#include <vector>

/// The transactions of a drawing. What they change is found in its undo journal, which records while one is active.
class Transactions final : public AcTransactionManager
{
public:
    explicit Transactions(AcDbDatabase& database) : mDatabase(database) {}

    AcTransaction* startTransaction() override;
    Acad::ErrorStatus endTransaction() override;
    Acad::ErrorStatus abortTransaction() override;
    int numActiveTransactions() override { return static_cast<int>(mLevels.size()); }
    int numOpenedObjects() override { return static_cast<int>(mHeld.size()); }
    AcTransaction* topTransaction() override;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErasedObject,
                                bool forceOpenOnLockedLayer) override;
    Acad::ErrorStatus addNewlyCreatedDBRObject(AcDbObject* object, bool add) override;
    Acad::ErrorStatus markObjectPageable(AcDbObject* object) override;
    Acad::ErrorStatus queueForGraphicsFlush() override;
    Acad::ErrorStatus getAllObjects(AcDbVoidPtrArray& objects) override;
    void addReactor(AcTransactionReactor* reactor) override;
    void removeReactor(AcTransactionReactor* reactor) override;
    Acad::ErrorStatus enableGraphicsFlush(bool) override { return Acad::eOk; }
    void flushGraphics() override {}

    /// Appends what one transaction has opened.
    Acad::ErrorStatus getObjectsOf(const AcTransaction& transaction, AcDbVoidPtrArray& objects) const;

private:
    struct Level {
        std::unique_ptr<AcTransaction> transaction;
        std::size_t firstSegment; ///< of the journal
    };
    struct Held {
        AcDbObject* object;
        std::size_t level; ///< the number of transactions that were active, from 1 on
    };
    using Event = void (AcTransactionReactor::*)(int&, AcDbTransactionManager*);

    void tell(Event event);
    Acad::ErrorStatus hold(AcDbObject& object, AcDb::OpenMode mode, bool forced);
    void handOverChanges();
    void closeAll();
    std::vector<AcDbObjectId> letGo();

    AcDbDatabase& mDatabase;
    std::vector<Level> mLevels;
    std::vector<Held> mHeld; ///< in the order in which they were opened
    std::vector<AcTransactionReactor*> mReactors;
};

#pragma once

/// A GoogleTest fixture with a locked drawing that takes entities, blocks and layers.

#include "EditorFixture.h"

#include "dbobjptr.h"
#include "dbsymtb.h"

namespace headless
{
/// Adds a new entity to a block, which the block owns then, and closes it. The test fails when that is
/// refused.
AcDbObjectId addTo(AcDbObjectId block, AcDbEntity* entity);

/// The current document is locked for writing while it lives.
class DocumentLock
{
public:
    DocumentLock() { acDocManager->lockDocument(mDocument, AcAp::kWrite); }
    ~DocumentLock() { acDocManager->unlockDocument(mDocument); }
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;

private:
    AcApDocument* const mDocument = acDocManager->curDocument();
};

/// A fresh document that is locked for writing during each test. What the members make is closed.
class DrawingTest : public EditorTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Adds to the current space, or to another block.
    AcDbObjectId add(AcDbEntity* entity) const { return addTo(database()->currentSpaceId(), entity); }
    static AcDbObjectId add(AcDbEntity* entity, AcDbObjectId block) { return addTo(block, entity); }
    AcDbObjectId addLine(const AcGePoint3d& from, const AcGePoint3d& to) const;
    AcDbObjectId addCircle(const AcGePoint3d& center, double radius) const;
    AcDbObjectId addBlock(const ACHAR* name) const;
    AcDbObjectId addLayer(const ACHAR* name, bool locked = false) const;
    static void erase(AcDbObjectId id);
    /// How many entities of model space are not erased.
    int entityCount() const;
    /// Gives up the lock before the end of the test.
    void unlock() { mLock.reset(); }

private:
    std::unique_ptr<DocumentLock> mLock;
};
} // namespace headless

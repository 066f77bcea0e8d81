/// LIST and DBLIST.

#include "acdocman.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "dbobjptr.h"
#include "EntityReport.h"
#include "Selection.h"

namespace
{
void report(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (entity.openStatus() == Acad::eOk) ed::print(commands::reportOf(*entity) + L"\n");
}

/// All entities of model space and the layouts.
void listDrawing()
{
    const AcDbDatabase& database = *acDocManager->curDocument()->database();
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId());
    if (table.openStatus() != Acad::eOk) return;
    for (const AcDbObjectId id : table->recordIds()) {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id);
        if (block.openStatus() != Acad::eOk || !block->isLayout()) continue;
        for (const AcDbObjectId entity : block->entityIds())
            report(entity);
    }
}

void listSelected()
{
    for (const AcDbObjectId id : commands::selectObjects())
        report(id);
}

[[maybe_unused]] const bool added = commands::add({
    {L"LIST", L"LI", ACRX_CMD_USEPICKSET, listSelected,
     L"Tells of the entities that are chosen, with their extended data"},
    {L"DBLIST", L"", ACRX_CMD_MODAL | ACRX_CMD_DOCREADLOCK, listDrawing,
     L"Tells of every entity of the drawing, with its extended data"},
});
} // namespace

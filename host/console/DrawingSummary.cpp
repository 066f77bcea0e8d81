#include "DrawingSummary.h"

#include "ConsoleText.h"
#include "dbblock.h"
#include "dbdatabase.h"

#include <cstdio>
#include <map>
#include <memory>

namespace console
{
namespace
{
/// Entities that are not erased, by the name of their class.
std::map<std::string, int> countsOf(const AcDbBlockTableRecord& block)
{
    std::map<std::string, int> counts;
    for (const AcDbObjectId id : block.entityIds()) {
        if (!id.isErased()) ++counts[utf8(id.objectClass()->name())];
    }
    return counts;
}

void printBlock(const AcDbBlockTableRecord& block)
{
    const CString layout = acdbLayoutNameOf(block);
    std::printf("%s\n", utf8(layout.IsEmpty() ? block.name() : layout).c_str());
    for (const auto& [name, count] : countsOf(block))
        std::printf("%8d  %s\n", count, name.c_str());
}
} // namespace

void printSummary(AcDbDatabase& database)
{
    AcDbBlockTable* table = nullptr;
    if (database.getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return;
    AcDbSymbolTableIterator* walk = nullptr;
    table->newIterator(walk);
    const std::unique_ptr<AcDbSymbolTableIterator> owned(walk);
    for (; !walk->done(); walk->step()) {
        AcDbSymbolTableRecord* record = nullptr;
        if (walk->getRecord(record) != Acad::eOk) continue;
        const auto* block = AcDbBlockTableRecord::cast(record);
        if (block && block->isLayout()) printBlock(*block);
        record->close();
    }
    table->close();
}
} // namespace console

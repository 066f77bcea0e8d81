/// Which layouts there are, and which is shown.

#include "BlockAccess.h"
#include "DatabaseState.h"
#include "dbdatabase.h"
#include "dbviewport.h"
#include "DictionaryAccess.h"
#include "LayoutAccess.h"
#include "SymbolTableAccess.h"
#include "UndoRecording.h"

#include <algorithm>

namespace
{
AcDbBlockTableRecord* blockOf(const AcDbLayout& layout)
{
    return AcDbBlockTableRecord::cast(residentObject(layout.getBlockTableRecordId()));
}

bool isOnPaper(const AcDbBlockTableRecord& block)
{
    return block.name().CompareNoCase(ACDB_PAPER_SPACE) == 0;
}
} // namespace

std::vector<AcDbLayout*> LayoutAccess::all(const AcDbDatabase& database)
{
    std::vector<AcDbLayout*> layouts;
    const auto* dictionary = AcDbDictionary::cast(residentObject(database.layoutDictionaryId()));
    if (!dictionary) return layouts;
    DictionaryAccess::forEach(*dictionary, [&](const CString&, AcDbObjectId id, int) {
        auto* layout = id.isErased() ? nullptr : AcDbLayout::cast(residentObject(id));
        if (layout) layouts.push_back(layout);
    });
    const auto place = [](const AcDbLayout* layout) { return isModel(*layout) ? -1 : layout->mTabOrder; };
    std::stable_sort(layouts.begin(), layouts.end(),
                     [&](const AcDbLayout* a, const AcDbLayout* b) { return place(a) < place(b); });
    return layouts;
}

AcDbLayout* LayoutAccess::find(const AcDbDatabase& database, const ACHAR* name)
{
    AcDbObjectId id;
    const auto* dictionary = AcDbDictionary::cast(residentObject(database.layoutDictionaryId()));
    if (!name || !dictionary || dictionary->getAt(name, id) != Acad::eOk) return nullptr;
    return AcDbLayout::cast(residentObject(id));
}

AcDbLayout* LayoutAccess::current(const AcDbDatabase& database, bool onPaper)
{
    for (AcDbLayout* layout : all(database)) {
        const AcDbBlockTableRecord* block = blockOf(*layout);
        if (onPaper ? block && isOnPaper(*block) : isModel(*layout)) return layout;
    }
    return nullptr;
}

void LayoutAccess::putOnPaper(AcDbDatabase& database, AcDbBlockTableRecord& block)
{
    DatabaseState& state = DatabaseAccess::of(database);
    auto* before = AcDbBlockTableRecord::cast(residentObject(state.paperSpace));
    if (before == &block) return;
    auto& table = static_cast<AcDbSymbolTable&>(*residentObject(state.blockTable));
    const CString name = block.name();
    undo::willChange(block);
    if (before) undo::willChange(*before);
    if (before) SymbolTableAccess::rename(table, *before, name);
    SymbolTableAccess::rename(table, block, ACDB_PAPER_SPACE);
    state.paperSpace = block.objectId();
    state.modelViewport.setNull(); // the window in which one worked is on the other sheet
}

Acad::ErrorStatus AcDbLayout::initialize(AcDbObjectId* paperViewport)
{
    if (LayoutAccess::isModel(*this)) return Acad::eNotApplicable;
    if (!blockOf(*this)) return Acad::eNotInDatabase;
    const AcDbObjectIdArray viewports = getViewportArray();
    if (paperViewport && !viewports.isEmpty()) *paperViewport = viewports[0];
    if (!viewports.isEmpty()) return Acad::eOk;
    AcDbBlockTableRecord* block = nullptr;
    Acad::ErrorStatus status = acdbOpenObject(block, mBlock, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    auto sheet = std::make_unique<AcDbViewport>();
    const AcGePoint2d middle = mLimMin + (mLimMax - mLimMin) / 2.0;
    sheet->setCenterPoint(AcGePoint3d(middle.x, middle.y, 0.0));
    sheet->setViewCenter(middle);
    sheet->setWidth(mLimMax.x - mLimMin.x);
    sheet->setHeight(mLimMax.y - mLimMin.y);
    sheet->setViewHeight(mLimMax.y - mLimMin.y);
    AcDbObjectId id;
    status = block->appendAcDbEntity(id, sheet.get());
    block->close();
    if (status != Acad::eOk) return status;
    sheet->setOn();
    sheet.release()->close();
    if (paperViewport) *paperViewport = id;
    return status;
}

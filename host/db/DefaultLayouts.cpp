#include "DefaultLayouts.h"

#include "BlockAccess.h"
#include "DatabaseState.h"
#include "DictionaryAccess.h"
#include "dblayout.h"

#include <vector>

namespace
{
void addLayoutDictionary(AcDbDatabase& database)
{
    AcDbDictionary* root = nullptr;
    if (database.getNamedObjectsDictionary(root, AcDb::kForWrite) != Acad::eOk) return;
    auto* layouts = new AcDbDictionary;
    AcDbObjectId id;
    if (root->setAt(L"ACAD_LAYOUT", layouts, id) == Acad::eOk) {
        layouts->close();
    } else {
        delete layouts;
    }
    root->close();
}

/// A block that does not name its layout learns it from the layout.
void linkBlocks(const AcDbDictionary& layouts)
{
    DictionaryAccess::forEach(layouts, [](const CString&, AcDbObjectId id, int) {
        const auto* layout = AcDbLayout::cast(residentObject(id));
        auto* block = layout ? AcDbBlockTableRecord::cast(residentObject(layout->getBlockTableRecordId())) : nullptr;
        if (block && !residentObject(block->getLayoutId())) BlockAccess::layout(*block) = id;
    });
}

std::vector<AcDbObjectId> spacesWithoutLayout(const DatabaseState& state)
{
    std::vector<AcDbObjectId> spaces;
    for (const AcDbObjectId id : static_cast<AcDbSymbolTable*>(residentObject(state.blockTable))->recordIds()) {
        const auto& block = static_cast<const AcDbBlockTableRecord&>(*residentObject(id));
        const bool isSpace = block.name().CompareNoCase(ACDB_MODEL_SPACE) == 0 ||
                             block.name().Left(12).CompareNoCase(ACDB_PAPER_SPACE) == 0;
        if (isSpace && !id.isErased() && !residentObject(block.getLayoutId())) spaces.push_back(id);
    }
    return spaces;
}

void addLayout(AcDbDatabase& database, AcDbObjectId space, int& number)
{
    const AcDbObjectId dictionary = database.layoutDictionaryId();
    const auto& layouts = static_cast<const AcDbDictionary&>(*residentObject(dictionary));
    const bool isModel = space == database.modelSpaceId();
    CString name = L"Model";
    while (!isModel) {
        name.Format(L"Layout%d", ++number);
        if (!layouts.has(name)) break;
    }
    auto* layout = new AcDbLayout(isModel);
    layout->setLayoutName(name);
    layout->setTabOrder(isModel ? 0 : number);
    if (layout->addToLayoutDict(&database, space) == Acad::eOk) {
        layout->close();
    } else {
        delete layout;
    }
}
} // namespace

void addMissingLayouts(AcDbDatabase& database)
{
    if (database.layoutDictionaryId().isNull()) addLayoutDictionary(database);
    const auto* layouts = AcDbDictionary::cast(residentObject(database.layoutDictionaryId()));
    if (!layouts) return;
    linkBlocks(*layouts);
    int number = 0;
    const std::vector<AcDbObjectId> spaces = spacesWithoutLayout(DatabaseAccess::of(database));
    for (const AcDbObjectId space : spaces) addLayout(database, space, number);
}

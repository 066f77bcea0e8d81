#include "AcApLMgr.h"
#include "AddRecord.h"
#include "BlockCopy.h"
#include "ClassRegistration.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "LayoutAccess.h"
#include "Stub.h"
#include "UndoRecording.h"
#include "SymbolName.h"

#include <algorithm>

ACDB_ABSTRACT_CLASS(AcDbLayoutManagerReactor, AcRxObject)
ACDB_ABSTRACT_CLASS(AcDbLayoutManager, AcRxObject)
ACDB_ABSTRACT_CLASS(AcApLayoutManager, AcDbLayoutManager)

namespace
{
AcDbDatabase* orWorking(AcDbDatabase* database)
{
    return database ? database : acdbHostApplicationServices()->workingDatabase();
}
const AcDbDatabase* orWorking(const AcDbDatabase* database)
{
    return database ? database : acdbHostApplicationServices()->workingDatabase();
}

/// The layout of a name, and why there is none.
Acad::ErrorStatus findLayout(const AcDbDatabase* database, const ACHAR* name, AcDbLayout*& layout)
{
    layout = nullptr;
    if (!database) return Acad::eNoDatabase;
    if (!name || !*name) return Acad::eInvalidInput;
    layout = LayoutAccess::find(*database, name);
    return layout ? Acad::eOk : Acad::eKeyNotFound;
}

bool isLayoutName(const ACHAR* name)
{
    return isSymbolName(name) && *name != L'*' && !wcschr(name, L'|');
}

Acad::ErrorStatus checkNew(const AcDbDatabase* database, const ACHAR* name)
{
    if (!database) return Acad::eNoDatabase;
    if (!isLayoutName(name)) return Acad::eInvalidInput;
    return LayoutAccess::find(*database, name) ? Acad::eDuplicateKey : Acad::eOk;
}

/// Adds the block of a layout; null when the table cannot be changed.
Acad::ErrorStatus addSpace(AcDbDatabase& database, AcDbObjectId& id)
{
    AcDbBlockTable* table = nullptr;
    Acad::ErrorStatus status = database.getBlockTable(table, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    CString name;
    for (int number = 0; name.IsEmpty() || table->has(name); ++number)
        name.Format(L"%ls%d", ACDB_PAPER_SPACE, number);
    auto block = std::make_unique<AcDbBlockTableRecord>();
    SymbolTableAccess::setName(*block, name);
    status = table->add(id, block.get());
    if (status == Acad::eOk) block.release()->close();
    table->close();
    return status;
}

Acad::ErrorStatus eraseObject(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    return object.openStatus() == Acad::eOk ? object->erase() : object.openStatus();
}

/// Lists a new layout with a new block, which it is left closed with.
Acad::ErrorStatus addLayout(AcDbDatabase& database, std::unique_ptr<AcDbLayout> layout, AcDbObjectId& id,
                            AcDbObjectId& blockId)
{
    AcDbObjectId space;
    Acad::ErrorStatus status = addSpace(database, space);
    if (status != Acad::eOk) return status;
    status = layout->addToLayoutDict(&database, space);
    if (status != Acad::eOk) {
        eraseObject(space);
        return status;
    }
    id = layout->objectId();
    blockId = space;
    layout.release()->close();
    return status;
}

int lastTab(const AcDbDatabase& database)
{
    const std::vector<AcDbLayout*> layouts = LayoutAccess::all(database);
    return layouts.empty() ? 0 : layouts.back()->getTabOrder();
}

/// Moves the tabs from a place on by `step`.
void shiftTabs(const AcDbDatabase& database, int from, int step, const AcDbLayout* except)
{
    for (AcDbLayout* layout : LayoutAccess::all(database)) {
        int& place = LayoutAccess::tabOrder(*layout);
        if (layout == except || LayoutAccess::isModel(*layout) || place < from) continue;
        undo::willChange(*layout);
        place += step;
    }
}

/// The tab that is shown when one goes: the one behind it, or before it. Null when it is the only one on
/// paper.
AcDbLayout* neighbourOf(const AcDbDatabase& database, const AcDbLayout& layout)
{
    AcDbLayout* before = nullptr;
    bool isPassed = false;
    for (AcDbLayout* other : LayoutAccess::all(database)) {
        if (other == &layout) {
            isPassed = true;
        } else if (!LayoutAccess::isModel(*other)) {
            if (isPassed) return other;
            before = other;
        }
    }
    return before;
}

CString freeName(const AcDbDatabase& database)
{
    CString name;
    for (int number = 1; name.IsEmpty() || LayoutAccess::find(database, name); ++number)
        name.Format(L"Layout%d", number);
    return name;
}
} // namespace

/// What the members of the manager share.
struct LayoutManagement {
    template <class Tell>
    static void tell(const AcDbLayoutManager& manager, Tell call)
    {
        const std::vector<AcDbLayoutManagerReactor*> reactors = manager.mReactors;
        for (AcDbLayoutManagerReactor* reactor : reactors) {
            const auto& now = manager.mReactors;
            if (std::find(now.begin(), now.end(), reactor) != now.end()) call(*reactor);
        }
    }

    static std::vector<AcDbDatabase*>& setUps(AcDbLayoutManager& manager) { return manager.mSetUps; }

    /// Makes another layout the one on paper before this one goes.
    static Acad::ErrorStatus leave(AcDbLayoutManager& manager, AcDbDatabase& database, AcDbLayout& layout)
    {
        if (LayoutAccess::current(database, true) != &layout) return Acad::eOk;
        AcDbLayout* next = neighbourOf(database, layout);
        if (!next) {
            AcDbObjectId id, block;
            const Acad::ErrorStatus status = manager.createLayout(freeName(database), id, block, &database);
            if (status != Acad::eOk) return status;
            next = static_cast<AcDbLayout*>(residentObject(id));
        }
        if (!database.tilemode()) return manager.setCurrentLayoutId(next->objectId());
        LayoutAccess::putOnPaper(
            database, static_cast<AcDbBlockTableRecord&>(*residentObject(next->getBlockTableRecordId())));
        return Acad::eOk;
    }

    static Acad::ErrorStatus remove(AcDbLayoutManager& manager, AcDbDatabase& database, AcDbLayout& layout)
    {
        const AcDbObjectId block = layout.getBlockTableRecordId();
        // Whether it can be erased is known before anything else changes.
        const AcDbObjectPointer<AcDbLayout> opened(layout.objectId(), AcDb::kForWrite);
        if (opened.openStatus() != Acad::eOk) return opened.openStatus();
        const AcDbBlockTableRecordPointer space(block, AcDb::kForWrite);
        if (space.openStatus() != Acad::eOk) return space.openStatus();
        Acad::ErrorStatus status = leave(manager, database, layout);
        if (status == Acad::eOk) status = opened->erase();
        if (status != Acad::eOk) return status;
        shiftTabs(database, layout.getTabOrder(), -1, nullptr);
        return space->erase();
    }
};

Acad::ErrorStatus AcDbLayoutManager::setCurrentLayout(const ACHAR* name, AcDbDatabase* database)
{
    AcDbLayout* layout = nullptr;
    const Acad::ErrorStatus status = findLayout(orWorking(database), name, layout);
    return status == Acad::eOk ? setCurrentLayoutId(layout->objectId()) : status;
}

Acad::ErrorStatus AcDbLayoutManager::setCurrentLayoutId(AcDbObjectId id)
{
    auto* layout = AcDbLayout::cast(residentObject(id));
    if (!layout || id.isErased()) return Acad::eWrongObjectType;
    auto* block = AcDbBlockTableRecord::cast(residentObject(layout->getBlockTableRecordId()));
    if (!block) return Acad::eNotInDatabase;
    AcDbDatabase& database = *layout->database();
    const bool isModel = LayoutAccess::isModel(*layout);
    const Acad::ErrorStatus status = isModel ? Acad::eOk : layout->initialize();
    if (status != Acad::eOk) return status;
    if (!isModel) LayoutAccess::putOnPaper(database, *block);
    if (database.tilemode() != isModel) database.setTilemode(isModel);
    const CString name = LayoutAccess::name(*layout);
    LayoutManagement::tell(*this,
                           [&](AcDbLayoutManagerReactor& reactor) { reactor.layoutSwitched(name, id); });
    return status;
}

const ACHAR* AcDbLayoutManager::findActiveLayout(bool allowModel, const AcDbDatabase* database) const
{
    const AcDbDatabase* of = orWorking(database);
    const AcDbLayout* layout = of ? LayoutAccess::current(*of, !allowModel || !of->tilemode()) : nullptr;
    return layout ? static_cast<const ACHAR*>(LayoutAccess::name(*layout)) : nullptr;
}

AcDbObjectId AcDbLayoutManager::getActiveLayoutBTRId(const AcDbDatabase* database) const
{
    const AcDbDatabase* of = orWorking(database);
    const AcDbLayout* layout = of ? LayoutAccess::current(*of, !of->tilemode()) : nullptr;
    return layout ? layout->getBlockTableRecordId() : AcDbObjectId();
}

AcDbLayout* AcDbLayoutManager::findLayoutNamed(const ACHAR* name, AcDb::OpenMode mode,
                                               const AcDbDatabase* database) const
{
    AcDbLayout* layout = nullptr;
    if (findLayout(orWorking(database), name, layout) != Acad::eOk) return nullptr;
    acdbOpenObject(layout, layout->objectId(), mode);
    return layout;
}

bool AcDbLayoutManager::layoutExists(const ACHAR* name, const AcDbDatabase* database) const
{
    AcDbLayout* layout = nullptr;
    return findLayout(orWorking(database), name, layout) == Acad::eOk;
}

int AcDbLayoutManager::countLayouts(AcDbDatabase* database) const
{
    const AcDbDatabase* of = orWorking(database);
    return of ? static_cast<int>(LayoutAccess::all(*of).size()) : 0;
}

Acad::ErrorStatus AcDbLayoutManager::createLayout(const ACHAR* name, AcDbObjectId& layoutId,
                                                  AcDbObjectId& blockId, AcDbDatabase* database)
{
    AcDbDatabase* to = orWorking(database);
    Acad::ErrorStatus status = checkNew(to, name);
    if (status != Acad::eOk) return status;
    auto layout = std::make_unique<AcDbLayout>();
    layout->setLayoutName(name);
    layout->setTabOrder(lastTab(*to) + 1);
    status = addLayout(*to, std::move(layout), layoutId, blockId);
    if (status == Acad::eOk)
        LayoutManagement::tell(
            *this, [&](AcDbLayoutManagerReactor& reactor) { reactor.layoutCreated(name, layoutId); });
    return status;
}

Acad::ErrorStatus AcDbLayoutManager::deleteLayout(const ACHAR* name, AcDbDatabase* database)
{
    AcDbDatabase* of = orWorking(database);
    AcDbLayout* layout = nullptr;
    Acad::ErrorStatus status = findLayout(of, name, layout);
    if (status != Acad::eOk) return status;
    if (LayoutAccess::isModel(*layout)) return Acad::eDelIsModelSpace;
    const CString gone = LayoutAccess::name(*layout);
    const AcDbObjectId id = layout->objectId();
    LayoutManagement::tell(*this,
                           [&](AcDbLayoutManagerReactor& reactor) { reactor.layoutToBeRemoved(gone, id); });
    status = LayoutManagement::remove(*this, *of, *layout);
    LayoutManagement::tell(*this, [&](AcDbLayoutManagerReactor& reactor) {
        status == Acad::eOk ? reactor.layoutRemoved(gone, id) : reactor.abortLayoutRemoved(gone, id);
    });
    return status;
}

Acad::ErrorStatus AcDbLayoutManager::renameLayout(const ACHAR* oldName, const ACHAR* newName,
                                                  AcDbDatabase* database)
{
    AcDbLayout* layout = nullptr;
    Acad::ErrorStatus status = findLayout(orWorking(database), oldName, layout);
    if (status != Acad::eOk) return status;
    if (!isLayoutName(newName)) return Acad::eInvalidInput;
    const CString from = LayoutAccess::name(*layout);
    const AcDbObjectId id = layout->objectId();
    LayoutManagement::tell(
        *this, [&](AcDbLayoutManagerReactor& reactor) { reactor.layoutToBeRenamed(from, newName, id); });
    const AcDbObjectPointer<AcDbLayout> opened(id, AcDb::kForWrite);
    status = opened.openStatus() == Acad::eOk ? opened->setLayoutName(newName) : opened.openStatus();
    LayoutManagement::tell(*this, [&](AcDbLayoutManagerReactor& reactor) {
        status == Acad::eOk ? reactor.layoutRenamed(from, newName, id)
                            : reactor.abortLayoutRename(from, newName, id);
    });
    return status;
}

Acad::ErrorStatus AcDbLayoutManager::copyLayout(const ACHAR* name, const ACHAR* newName,
                                                AcDbDatabase* database)
{
    AcDbDatabase* of = orWorking(database);
    AcDbLayout* layout = nullptr;
    const Acad::ErrorStatus status = findLayout(of, name, layout);
    if (status != Acad::eOk) return status;
    AcDbObjectId id, block;
    return cloneLayout(layout, newName, lastTab(*of) + 1, id, block, of);
}

Acad::ErrorStatus AcDbLayoutManager::cloneLayout(AcDbLayout* layout, const ACHAR* newName, int newTabOrder,
                                                 AcDbObjectId& newLayoutId, AcDbObjectId& newBlockId,
                                                 AcDbDatabase* database)
{
    AcDbDatabase* to = orWorking(database);
    Acad::ErrorStatus status = checkNew(to, newName);
    if (status != Acad::eOk) return status;
    if (!layout || newTabOrder < 1) return Acad::eInvalidInput;
    if (layout->database() != to) return Acad::eWrongDatabase;
    if (LayoutAccess::isModel(*layout)) return Acad::eCopyIsModelSpace;
    const auto* from = AcDbBlockTableRecord::cast(residentObject(layout->getBlockTableRecordId()));
    if (!from) return Acad::eNotInDatabase;
    const CString oldName = LayoutAccess::name(*layout);
    const AcDbObjectId oldId = layout->objectId();
    LayoutManagement::tell(
        *this, [&](AcDbLayoutManagerReactor& reactor) { reactor.layoutToBeCopied(oldName, oldId); });
    std::unique_ptr<AcDbLayout> copy(static_cast<AcDbLayout*>(layout->clone()));
    copy->setLayoutName(newName);
    copy->setTabOrder(newTabOrder);
    status = addLayout(*to, std::move(copy), newLayoutId, newBlockId);
    if (status == Acad::eOk) {
        auto& made = static_cast<AcDbLayout&>(*residentObject(newLayoutId));
        shiftTabs(*to, newTabOrder, 1, &made);
        AcDbIdMapping copies;
        copyEntities(*from, static_cast<AcDbBlockTableRecord&>(*residentObject(newBlockId)), copies);
        AcDbIdPair viewport(LayoutAccess::lastViewport(made), AcDbObjectId(), false);
        copies.compute(viewport);
        LayoutAccess::lastViewport(made) = viewport.value();
    }
    LayoutManagement::tell(*this, [&](AcDbLayoutManagerReactor& reactor) {
        status == Acad::eOk ? reactor.layoutCopied(oldName, oldId, newName, newLayoutId)
                            : reactor.abortLayoutCopied(oldName, oldId);
    });
    return status;
}

Acad::ErrorStatus AcDbLayoutManager::setupForLayouts(AcDbDatabase* database, std::uintptr_t& context)
{
    if (!database) return Acad::eNullPtr;
    mSetUps.push_back(acdbHostApplicationServices()->workingDatabase());
    acdbHostApplicationServices()->setWorkingDatabase(database);
    context = mSetUps.size();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayoutManager::clearSetupForLayouts(std::uintptr_t context)
{
    if (mSetUps.empty() || context != mSetUps.size()) return Acad::eInvalidContext;
    acdbHostApplicationServices()->setWorkingDatabase(mSetUps.back());
    mSetUps.pop_back();
    return Acad::eOk;
}

void AcDbLayoutManager::addReactor(AcDbLayoutManagerReactor* reactor)
{
    if (reactor && std::find(mReactors.begin(), mReactors.end(), reactor) == mReactors.end())
        mReactors.push_back(reactor);
}

void AcDbLayoutManager::removeReactor(AcDbLayoutManagerReactor* reactor)
{
    mReactors.erase(std::remove(mReactors.begin(), mReactors.end(), reactor), mReactors.end());
}

AcDbLayoutManager* AcDbHostApplicationServices::layoutManager() const
{
    static AcApLayoutManager manager;
    return &manager;
}

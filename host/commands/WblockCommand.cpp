/// WBLOCK: a part of the drawing, or all of it, as a file.

#include "acdocman.h"
#include "acedinput.h"
#include "Ask.h"
#include "CommandTable.h"
#include "CurrentUcs.h"
#include "dbobjptr.h"
#include "DrawingName.h"
#include "Faults.h"
#include "FileReason.h"
#include "geassign.h"
#include "Selection.h"
#include "Status.h"

namespace
{
using Output = std::unique_ptr<AcDbDatabase>;

AcDbDatabase& drawing() { return *acDocManager->curDocument()->database(); }

/// The drawing that one of AcDbDatabase::wblock makes; null when it says why not.
template <class Make>
Output outputOf(Make make)
{
    AcDbDatabase* made = nullptr;
    const bool isMade = commands::succeeds(make(made));
    Output output(made);
    return isMade ? std::move(output) : nullptr;
}

Output blockOutput(const std::wstring& name)
{
    AcDbObjectId id;
    {
        const AcDbBlockTableRecordPointer block(name.c_str(), &drawing());
        if (block.openStatus() == Acad::eOk && !block->isLayout()) id = block->objectId();
    }
    if (!id.isNull()) return outputOf([&](AcDbDatabase*& made) { return drawing().wblock(made, id); });
    ed::fail(L"There is no block \"" + name + L"\".");
    return nullptr;
}

Output objectsOutput(std::vector<AcDbObjectId>& taken)
{
    ads_point base;
    if (acedGetPoint(nullptr, L"Specify insertion base point: ", base) != RTNORM) return nullptr;
    taken = commands::selectObjects();
    if (taken.empty()) return nullptr;
    AcDbObjectIdArray ids;
    for (const AcDbObjectId id : taken)
        ids.append(id);
    AcGePoint3d point = asPnt3d(base);
    point.transformBy(ed::ucsToWorld());
    return outputOf([&](AcDbDatabase*& made) { return drawing().wblock(made, ids, point); });
}

/// The block that has the name of the file.
std::wstring nameOfFile(const std::wstring& path)
{
    const std::wstring name = path.substr(path.find_last_of(L"\\/") + 1);
    return name.substr(0, name.rfind(L'.'));
}

Output askOutput(const std::wstring& path, std::vector<AcDbObjectId>& taken)
{
    const auto name = commands::ask(
        L"Enter name of existing block or [= (block=output file)/* (whole drawing)] <define new drawing>: ",
        ed::Reading::word);
    if (!name) return nullptr;
    if (name->empty()) return objectsOutput(taken);
    if (*name == L"*") return outputOf([](AcDbDatabase*& made) { return drawing().wblock(made); });
    return blockOutput(*name == L"=" ? nameOfFile(path) : *name);
}

/// What has gone into the file leaves the drawing.
void eraseAll(const std::vector<AcDbObjectId>& entities)
{
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk) entity->erase();
    }
}

void wblock()
{
    const auto name = commands::askFile(L"Enter name of output file: ");
    if (!name || name->empty()) return;
    const std::wstring path = commands::drawingPath(*name);
    if (!commands::mayReplace(path)) return;
    std::vector<AcDbObjectId> taken;
    const Output output = askOutput(path, taken);
    if (!output) return;
    const Acad::ErrorStatus status = output->saveAs(path.c_str(), true);
    if (status == Acad::eOk) return eraseAll(taken);
    ed::fail(L"Cannot save \"" + path + L"\": " + commands::fileReason(status) + L".");
}

constexpr const wchar_t* help = L"Saves a block, chosen entities (which leave the drawing) or all of it as a file";
[[maybe_unused]] const bool added = commands::add({
    {L"WBLOCK", L"W", ACRX_CMD_MODAL, wblock, help},
});
} // namespace

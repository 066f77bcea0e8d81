/// UCS.

#include "acdocman.h"
#include "acedinput.h"
#include "acdbads.h"
#include "acedads.h"
#include "acedviews.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "dbcurve.h"
#include "dbobjptr.h"
#include "Faults.h"
#include "geassign.h"
#include "Status.h"
#include "UcsChange.h"

#include <optional>

namespace
{
using Text = std::optional<std::wstring>;

AcDbDatabase& database()
{
    return *acDocManager->curDocument()->database();
}

/// Makes a system current that is given in the present one.
void setInPresent(const AcGeMatrix3d& system)
{
    commands::succeeds(ed::setUcs(ed::ucsToWorld() * system, L""));
}

void setAxes(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y)
{
    const AcGeVector3d z = x.crossProduct(y);
    if (z.isZeroLength()) return ed::fail(L"The points are on one line.");
    AcGeMatrix3d system;
    setInPresent(system.setCoordSystem(origin, x.normal(), z.crossProduct(x).normal(), z.normal()));
}

/// False when it was cancelled; true with nothing in `point` for Enter.
bool askPoint(const AcGePoint3d& base, const wchar_t* prompt, std::optional<AcGePoint3d>& point)
{
    ads_point picked;
    const int code = acedGetPoint(asDblArray(base), prompt, picked);
    if (code == RTNORM) point = asPnt3d(picked);
    return code == RTNORM || code == RTNONE;
}

/// The origin, and as many of the axes as are told.
void askAxes(const AcGePoint3d& origin)
{
    std::optional<AcGePoint3d> onX, inPlane;
    if (!askPoint(origin, L"Specify point on X-axis or <accept>: ", onX)) return;
    if (onX && !askPoint(origin, L"Specify point on the XY plane or <accept>: ", inPlane)) return;
    if (!onX) return setInPresent(AcGeMatrix3d::translation(origin.asVector()));
    const AcGeVector3d x = *onX - origin;
    if (inPlane) return setAxes(origin, x, *inPlane - origin);
    // The new Z axis stays as near to the old one as the X axis lets it.
    const AcGeVector3d y = AcGeVector3d::kZAxis.crossProduct(x);
    setAxes(origin, x, y.isZeroLength() ? AcGeVector3d::kYAxis : y);
}

void askZAxis()
{
    ads_point origin;
    std::optional<AcGePoint3d> onZ;
    if (acedGetPoint(nullptr, L"Specify new origin point: ", origin) != RTNORM) return;
    if (!askPoint(asPnt3d(origin), L"Specify point on positive portion of Z-axis: ", onZ) || !onZ) return;
    const AcGeVector3d z = *onZ - asPnt3d(origin);
    if (z.isZeroLength()) return ed::fail(L"The points are the same.");
    const AcGeMatrix3d plane = AcGeMatrix3d::planeToWorld(z);
    setInPresent(AcGeMatrix3d::translation(asPnt3d(origin).asVector()) * plane);
}

void askTurn(const std::wstring& axis)
{
    ads_real angle = 1.5707963267948966;
    const int code = acedGetAngle(nullptr, (L"Specify rotation angle about " + axis + L" axis <90>: ").c_str(), &angle);
    if (code != RTNORM && code != RTNONE) return;
    const AcGeVector3d about = axis == L"X"   ? AcGeVector3d::kXAxis
                               : axis == L"Y" ? AcGeVector3d::kYAxis
                                              : AcGeVector3d::kZAxis;
    setInPresent(AcGeMatrix3d::rotation(angle, about));
}

/// The new Z axis is the extrusion direction of a planar entity, the origin its own.
void askObject()
{
    ads_name name;
    ads_point at;
    AcDbObjectId id;
    if (acedEntSel(L"Select object to align UCS: ", name, at) != RTNORM) return;
    acdbGetObjectId(id, name);
    const AcDbObjectPointer<AcDbEntity> entity(id);
    AcGeMatrix3d system;
    if (!commands::succeeds(entity.openStatus())) return;
    entity->getEcs(system);
    const AcDbCurve* curve = AcDbCurve::cast(entity.object());
    AcGePoint3d start;
    if (curve && curve->getStartPoint(start) == Acad::eOk)
        system = AcGeMatrix3d::translation(start - AcGePoint3d::kOrigin) * system;
    commands::succeeds(ed::setUcs(system, L""));
}

Text askName(const wchar_t* prompt)
{
    const Text name = commands::ask(prompt);
    return name && !name->empty() ? name : std::nullopt;
}

void restore()
{
    const Text name = askName(L"Enter name of UCS to restore: ");
    if (!name) return;
    const AcDbUCSTableRecordPointer record(name->c_str(), &database());
    if (record.openStatus() != Acad::eOk) return ed::fail(L"Cannot find UCS \"" + *name + L"\".");
    AcGeMatrix3d system;
    system.setCoordSystem(record->origin(), record->xAxis(), record->yAxis(),
                          record->xAxis().crossProduct(record->yAxis()));
    commands::succeeds(ed::setUcs(system, record->name()));
}

Acad::ErrorStatus addOrOpen(const std::wstring& name, AcDbObjectPointer<AcDbUCSTableRecord>& record)
{
    const AcDbUCSTablePointer table(&database(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk) return table.openStatus();
    AcDbObjectId id;
    if (table->getAt(name.c_str(), id) == Acad::eOk) return record.open(id, AcDb::kForWrite);
    record.create();
    const Acad::ErrorStatus status = record->setName(name.c_str());
    return status == Acad::eOk ? table->add(record.object()) : status;
}

void save()
{
    const Text name = askName(L"Enter name to save current UCS: ");
    AcDbObjectPointer<AcDbUCSTableRecord> record;
    if (!name || !commands::succeeds(addOrOpen(*name, record))) return;
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    ed::ucsToWorld().getCoordSystem(origin, x, y, z);
    record->setOrigin(origin);
    record->setXAxis(x);
    record->setYAxis(y);
}

void remove()
{
    const Text name = askName(L"Enter UCS name(s) to delete: ");
    if (!name) return;
    const AcDbUCSTableRecordPointer record(name->c_str(), &database(), AcDb::kForWrite);
    if (record.openStatus() != Acad::eOk) return ed::fail(L"Cannot find UCS \"" + *name + L"\".");
    commands::succeeds(record->erase());
}

void list()
{
    AcDbUCSTableIterator* made = nullptr;
    const AcDbUCSTablePointer table(&database());
    table->newIterator(made);
    const std::unique_ptr<AcDbUCSTableIterator> at(made);
    for (; !at->done(); at->step()) {
        AcDbObjectId id;
        at->getRecordId(id);
        const AcDbObjectPointer<AcDbUCSTableRecord> record(id);
        if (record.openStatus() == Acad::eOk) ed::print(record->name().GetString() + std::wstring(L"\n"));
    }
}

void askNamed()
{
    const Text word = commands::askKeyword(L"Enter an option [Restore/Save/Delete/?]: ", L"Restore Save Delete ?", L"");
    if (word == L"Restore") restore();
    if (word == L"Save") save();
    if (word == L"Delete") remove();
    if (word == L"?") list();
}

void ask3Points()
{
    ads_point origin;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"Specify new origin point: ", origin) == RTNORM) askAxes(asPnt3d(origin));
}

void askOrigin()
{
    ads_point origin;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"Specify new origin point: ", origin) == RTNORM)
        setInPresent(AcGeMatrix3d::translation(asPnt3d(origin).asVector()));
}

void obey(const std::wstring& word)
{
    if (word == L"World")
        commands::succeeds(ed::setUcs(AcGeMatrix3d::kIdentity, L""));
    else if (word == L"Previous")
        commands::succeeds(acedRestorePreviousUCS());
    else if (word == L"Origin")
        askOrigin();
    else if (word == L"3point")
        ask3Points();
    else if (word == L"ZAxis")
        askZAxis();
    else if (word == L"OBject")
        askObject();
    else if (word == L"NAmed")
        askNamed();
    else if (word == L"Restore")
        restore();
    else if (word == L"Save")
        save();
    else if (word == L"Delete")
        remove();
    else if (word == L"?")
        list();
    else
        askTurn(word);
}

void ucs()
{
    ads_point origin;
    wchar_t word[20];
    acedInitGet(0, L"NAmed OBject Previous World X Y Z ZAxis Origin 3point Restore Save Delete ?");
    const int code = acedGetPoint(
        nullptr, L"Specify origin of UCS or [NAmed/OBject/Previous/World/X/Y/Z/ZAxis] <World>: ", origin);
    if (code == RTNONE) obey(L"World");
    if (code == RTNORM) askAxes(asPnt3d(origin));
    if (code == RTKWORD && acedGetInput(word) == RTNORM) obey(word);
}

[[maybe_unused]] const bool added = commands::add({
    {L"UCS", L"", ACRX_CMD_MODAL, ucs, L"Sets, names and restores coordinate systems"},
});
} // namespace

/// The current user coordinate system as modules and commands change it.

#include "UcsChange.h"

#include "acedviews.h"
#include "CurrentFrame.h"
#include "Documents.h"
#include "EditedObject.h"
#include "PlanarCoords.h"
#include "ViewChange.h"

namespace
{
/// The system with axes of the length 1; false when it is none.
bool toOrthonormal(AcGeMatrix3d& system)
{
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    system.getCoordSystem(origin, x, y, z);
    if (!isFinite(origin) || !isDirection(x) || !isDirection(y) || !isDirection(z)) return false;
    const AcGeVector3d normal = x.crossProduct(y);
    if (!x.isPerpendicularTo(y) || !z.isCodirectionalTo(normal)) return false;
    const AcGeVector3d right = x.normal(), up = normal.normal();
    system.setCoordSystem(origin, right, up.crossProduct(right), up);
    return true;
}

/// A viewport that keeps a system of its own keeps the current one while it is active.
template <class Keeper>
void keepUcs(AcDbObjectId id, const AcGeMatrix3d& system, AcDbObjectId named)
{
    ed::EditedObject<Keeper> keeper(id);
    if (keeper.status() != Acad::eOk || !keeper->isUcsSavedWithViewport()) return;
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    system.getCoordSystem(origin, x, y, z);
    if (named.isNull() || keeper->setUcs(named) != Acad::eOk) keeper->setUcs(origin, x, y);
}

AcDbObjectId idOfUcs(AcDbDatabase& database, const CString& name)
{
    AcDbObjectId id;
    const auto* table = AcDbSymbolTable::cast(residentObject(database.UCSTableId()));
    if (table && !name.IsEmpty()) table->getAt(name, id);
    return id;
}

void makeCurrent(AcDbDatabase& database, const ed::NamedFrame& frame)
{
    frames::setCurrent(database, frame.toWorld, frame.name);
    const ed::Viewport active = ed::activeViewport();
    const AcDbObjectId named = idOfUcs(database, frame.name);
    if (active.kind == ed::ViewportKind::tile)
        keepUcs<AcDbViewportTableRecord>(active.id, frame.toWorld, named);
    if (active.kind == ed::ViewportKind::window) keepUcs<AcDbViewport>(active.id, frame.toWorld, named);
    if (viewOf(active).followsUcs) ed::showPlan(frame.toWorld);
}

std::vector<ed::NamedFrame>& past(DocumentState& document)
{
    return document.history.frames[frames::isOnPaper(*document.database)];
}
} // namespace

Acad::ErrorStatus ed::setUcs(AcGeMatrix3d ucsToWorld, const CString& name)
{
    DocumentState* document = documents::current();
    if (!document) return Acad::eNoDocument;
    if (!toOrthonormal(ucsToWorld)) return Acad::eInvalidInput;
    AcDbDatabase& database = *document->database;
    ViewHistory::push(past(*document), {frames::current(database), frames::currentName(database)});
    makeCurrent(database, {ucsToWorld, name});
    return Acad::eOk;
}

Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& ucsToWorld)
{
    return ed::setUcs(ucsToWorld, L"");
}

Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& ucsToWorld)
{
    if (!documents::current()) return Acad::eNoDocument;
    ucsToWorld = ed::ucsToWorld();
    return Acad::eOk;
}

Acad::ErrorStatus acedRestorePreviousUCS()
{
    DocumentState* document = documents::current();
    if (!document) return Acad::eNoDocument;
    std::vector<ed::NamedFrame>& before = past(*document);
    if (before.empty()) return Acad::eNotApplicable;
    const ed::NamedFrame frame = before.back();
    before.pop_back();
    makeCurrent(*document->database, frame);
    return Acad::eOk;
}

#include "Viewports.h"

#include "CurrentFrame.h"
#include "DatabaseState.h"
#include "dbblock.h"
#include "Documents.h"
#include "EditedObject.h"
#include "SymbolTableAccess.h"
#include "UndoRecording.h"

#include <algorithm>

namespace
{
using ed::EditedObject;
using ed::Viewport;
using ed::ViewportKind;

DatabaseState& dataOf(DocumentState& document)
{
    return DatabaseAccess::of(*document.database);
}

bool isShownTile(AcDbObjectId id)
{
    const auto* record = id.isErased() ? nullptr : AcDbViewportTableRecord::cast(residentObject(id));
    return record && record->name().CompareNoCase(L"*Active") == 0;
}

/// The tiles in the order of the table, in which the first one is active. A tile keeps the number it got
/// first.
std::vector<Viewport> tilesOf(DocumentState& document)
{
    std::vector<Viewport> tiles;
    const auto* table = AcDbSymbolTable::cast(residentObject(dataOf(document).viewportTable));
    if (!table) return tiles;
    std::vector<AcDbObjectId>& numbered = document.tiles;
    numbered.erase(
        std::remove_if(numbered.begin(), numbered.end(), [](AcDbObjectId id) { return !isShownTile(id); }),
        numbered.end());
    for (const AcDbObjectId id : table->recordIds()) {
        if (!isShownTile(id)) continue;
        const auto at = std::find(numbered.begin(), numbered.end(), id);
        tiles.push_back({ViewportKind::tile, id, static_cast<int>(at - numbered.begin()) + 2});
        if (at == numbered.end()) numbered.push_back(id);
    }
    return tiles;
}

const AcDbViewport* shownViewport(AcDbObjectId id)
{
    return id.isErased() ? nullptr : AcDbViewport::cast(residentObject(id));
}

/// The sheet and the windows of the layout, in the order of their making; the sheet first.
std::vector<Viewport> viewportsOfLayout(DocumentState& document)
{
    std::vector<Viewport> all{{ViewportKind::sheet, {}, 1}};
    const auto* block = AcDbBlockTableRecord::cast(residentObject(dataOf(document).paperSpace));
    if (!block) return all;
    for (const AcDbObjectId id : block->entityIds()) {
        const AcDbViewport* viewport = shownViewport(id);
        if (!viewport) continue;
        if (viewport->number() == 1 && all.front().id.isNull()) {
            all.front().id = id;
        } else if (viewport->isOn() && viewport->number() > 1) {
            all.push_back({ViewportKind::window, id, viewport->number()});
        }
    }
    return all;
}

Viewport activeOfLayout(DocumentState& document)
{
    if (const AcDbViewport* window = frames::activeWindow(*document.database))
        return {ViewportKind::window, window->objectId(), window->number()};
    const Viewport unmade{ViewportKind::sheet, {}, 1};
    const auto* block = AcDbBlockTableRecord::cast(residentObject(dataOf(document).paperSpace));
    if (!block) return unmade;
    for (const AcDbObjectId id : block->entityIds()) {
        const AcDbViewport* viewport = shownViewport(id);
        if (viewport && viewport->number() == 1) return {ViewportKind::sheet, id, 1};
    }
    return unmade;
}

std::vector<Viewport> unsorted(DocumentState& document)
{
    return document.database->tilemode() ? tilesOf(document) : viewportsOfLayout(document);
}

template <class Test>
Viewport firstThat(const std::vector<Viewport>& all, Test test)
{
    const auto found = std::find_if(all.begin(), all.end(), test);
    return found == all.end() ? Viewport() : *found;
}

/// Makes the coordinate system that a viewport keeps the current one.
template <class Keeper>
void restoreUcs(AcDbDatabase& database, const Keeper& keeper)
{
    if (!keeper.isUcsSavedWithViewport()) return;
    AcGePoint3d origin;
    AcGeVector3d x, y;
    keeper.getUcs(origin, x, y);
    const auto* named = AcDbSymbolTableRecord::cast(residentObject(keeper.ucsName()));
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(origin, x, y, x.crossProduct(y));
    frames::setCurrent(database, matrix, named ? named->name() : CString());
}

void restoreUcs(AcDbDatabase& database, const Viewport& viewport)
{
    if (const auto* tile = AcDbViewportTableRecord::cast(residentObject(viewport.id)))
        restoreUcs(database, *tile);
    if (const AcDbViewport* window = ed::windowOf(viewport)) restoreUcs(database, *window);
}
} // namespace

namespace ed
{
std::vector<Viewport> viewportsOfTab()
{
    DocumentState* document = documents::current();
    if (!document) return {};
    std::vector<Viewport> all = unsorted(*document);
    const auto active = std::find_if(all.begin(), all.end(), [&](const Viewport& one) {
        return one.kind == ViewportKind::window && one.id == dataOf(*document).modelViewport;
    });
    if (active != all.end()) std::rotate(all.begin(), active, active + 1);
    return all;
}

// A sheet may hold many entities, and is not searched for windows here.
Viewport activeViewport()
{
    DocumentState* document = documents::current();
    if (!document) return {};
    if (!document->database->tilemode()) return activeOfLayout(*document);
    const std::vector<Viewport> tiles = tilesOf(*document);
    return tiles.empty() ? Viewport() : tiles.front();
}

Viewport viewportOfNumber(int number)
{
    return firstThat(viewportsOfTab(), [&](const Viewport& one) { return one.number == number; });
}

Viewport viewportOf(AcDbObjectId id)
{
    return firstThat(viewportsOfTab(), [&](const Viewport& one) { return !id.isNull() && one.id == id; });
}

Acad::ErrorStatus activate(const Viewport& viewport)
{
    DocumentState* document = documents::current();
    if (!document || viewportOfNumber(viewport.number).number == 0) return Acad::eInvalidInput;
    if (viewport.number == activeViewport().number) return Acad::eOk;
    DatabaseState& data = dataOf(*document);
    if (viewport.kind == ViewportKind::tile) {
        auto& table = *AcDbSymbolTable::cast(residentObject(data.viewportTable));
        undo::willReorder(table);
        SymbolTableAccess::putFirst(table, viewport.id);
    } else {
        data.modelViewport = viewport.kind == ViewportKind::window ? viewport.id : AcDbObjectId();
        if (viewport.kind == ViewportKind::window) document->lastWindow = viewport.id;
    }
    restoreUcs(*document->database, viewport);
    return Acad::eOk;
}

Viewport windowToEnter()
{
    const DocumentState* document = documents::current();
    const std::vector<Viewport> all = viewportsOfTab();
    const Viewport last = firstThat(all, [&](const Viewport& one) {
        return one.kind == ViewportKind::window && one.id == document->lastWindow;
    });
    return last.number ? last
                       : firstThat(all, [](const Viewport& one) { return one.kind == ViewportKind::window; });
}

const AcDbViewport* windowOf(const Viewport& viewport)
{
    return viewport.kind == ViewportKind::window ? shownViewport(viewport.id) : nullptr;
}

AcGeMatrix3d displayToPaper(const AcDbViewport& window)
{
    const AcGePoint2d from = window.viewCenter();
    const AcGePoint3d to = window.centerPoint();
    return AcGeMatrix3d::translation({to.x, to.y, 0.0}) * AcGeMatrix3d::scaling(window.customScale()) *
           AcGeMatrix3d::translation({-from.x, -from.y, 0.0});
}
} // namespace ed

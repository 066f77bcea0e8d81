/// LINE, CIRCLE, POINT and ERASE.

#include "acdocman.h"
#include "acedinput.h"
#include "CommandTable.h"
#include "CurrentUcs.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "geassign.h"
#include "Selection.h"
#include "Status.h"

#include <vector>

namespace
{
/// Puts a new entity, made in the UCS, into the space one works in. Its id; null when that fails.
AcDbObjectId append(AcDbEntity* made)
{
    AcDbObjectId id;
    AcDbObjectPointer<AcDbEntity> entity(made);
    AcDbDatabase& database = *acDocManager->curDocument()->database();
    entity->setDatabaseDefaults(&database);
    entity->transformBy(ed::ucsToWorld());
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    const bool open = commands::succeeds(space.openStatus());
    return open && commands::succeeds(space->appendAcDbEntity(id, entity.object())) ? id : AcDbObjectId();
}

/// The corners of a run of lines, and the lines that are there.
struct Run {
    std::vector<AcGePoint3d> corners;
    std::vector<AcDbObjectId> lines;

    bool add(const AcGePoint3d& to)
    {
        const AcDbObjectId line = append(new AcDbLine(corners.back(), to));
        if (line.isNull()) return false;
        lines.push_back(line);
        corners.push_back(to);
        return true;
    }
    void undo()
    {
        if (lines.empty()) return;
        AcDbObjectPointer<AcDbEntity> line(lines.back(), AcDb::kForWrite);
        if (line.openStatus() == Acad::eOk) line->erase();
        lines.pop_back();
        corners.pop_back();
    }
};

/// False when the command is over.
bool obey(Run& run, const wchar_t* word)
{
    if (word[0] == L'U') run.undo();
    if (word[0] == L'C') run.add(AcGePoint3d(run.corners.front()));
    return word[0] == L'U';
}

bool askNextCorner(Run& run)
{
    constexpr std::size_t leastToClose = 2;
    const bool closes = run.lines.size() >= leastToClose;
    ads_point next;
    wchar_t word[20];
    acedInitGet(0, closes ? L"Close Undo" : L"Undo");
    const wchar_t* prompt =
        closes ? L"Specify next point or [Close/Undo]: " : L"Specify next point or [Undo]: ";
    const int code = acedGetPoint(asDblArray(run.corners.back()), prompt, next);
    if (code == RTKWORD) return acedGetInput(word) == RTNORM && obey(run, word);
    return code == RTNORM && run.add(asPnt3d(next));
}

void line()
{
    ads_point first;
    if (acedGetPoint(nullptr, L"Specify first point: ", first) != RTNORM) return;
    Run run{{asPnt3d(first)}, {}};
    while (askNextCorner(run)) {
    }
}

void addCircle(const ads_point center, double radius)
{
    append(new AcDbCircle(asPnt3d(center), AcGeVector3d::kZAxis, radius));
}

void circle()
{
    constexpr int positive = RSG_NONULL | RSG_NOZERO | RSG_NONEG;
    ads_point center;
    ads_real length = 0.0;
    if (acedGetPoint(nullptr, L"Specify center point for circle: ", center) != RTNORM) return;
    acedInitGet(positive, L"Diameter");
    const int code = acedGetDist(center, L"Specify radius of circle or [Diameter]: ", &length);
    if (code == RTNORM) addCircle(center, length);
    if (code != RTKWORD) return;
    acedInitGet(positive, nullptr);
    if (acedGetDist(center, L"Specify diameter of circle: ", &length) == RTNORM)
        addCircle(center, length / 2.0);
}

void point()
{
    ads_point position;
    if (acedGetPoint(nullptr, L"Specify a point: ", position) == RTNORM)
        append(new AcDbPoint(asPnt3d(position)));
}

void erase()
{
    for (const AcDbObjectId id : commands::selectObjects()) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        const Acad::ErrorStatus status = entity.openStatus();
        if (!commands::succeeds(status == Acad::eOk ? entity->erase() : status)) return;
    }
}

[[maybe_unused]] const bool added = commands::add({
    {L"LINE", L"L", ACRX_CMD_MODAL, line, L"Draws lines from point to point"},
    {L"CIRCLE", L"C", ACRX_CMD_MODAL, circle, L"Draws a circle by its center and radius or diameter"},
    {L"ERASE", L"E", ACRX_CMD_USEPICKSET, erase, L"Erases the entities that are chosen"},
    {L"POINT", L"PO", ACRX_CMD_MODAL, point, L"Draws a point"},
});
} // namespace

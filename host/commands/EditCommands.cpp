/// MOVE, COPY, ROTATE, SCALE and EXPLODE.

#include "acdocman.h"
#include "acedinput.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "CurrentUcs.h"
#include "dbents.h"
#include "dbidmap.h"
#include "dbobjptr.h"
#include "Faults.h"
#include "geassign.h"
#include "Selection.h"
#include "Status.h"

#include <cwchar>
#include <optional>
#include <vector>

namespace
{
using Ids = std::vector<AcDbObjectId>;

AcDbDatabase& database()
{
    return *acDocManager->curDocument()->database();
}

AcGePoint3d world(const ads_point ofUcs)
{
    return ed::ucsToWorld() * asPnt3d(ofUcs);
}

AcGeVector3d normalOfUcs()
{
    return ed::ucsToWorld() * AcGeVector3d::kZAxis;
}

void transform(const Ids& ids, const AcGeMatrix3d& map)
{
    for (const AcDbObjectId id : ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        const Acad::ErrorStatus status = entity.openStatus();
        if (!commands::succeeds(status == Acad::eOk ? entity->transformBy(map) : status)) return;
    }
}

/// Copies entities into the space one works in; none when that fails.
Ids copiesOf(const Ids& ids)
{
    AcDbObjectIdArray originals;
    for (const AcDbObjectId id : ids)
        originals.append(id);
    AcDbIdMapping map;
    AcDbObjectId space = database().currentSpaceId();
    Ids copies;
    if (!commands::succeeds(database().deepCloneObjects(originals, space, map))) return copies;
    for (const AcDbObjectId id : ids) {
        AcDbIdPair pair;
        pair.setKey(id);
        if (map.compute(pair)) copies.push_back(pair.value());
    }
    return copies;
}

void eraseAll(const Ids& ids)
{
    for (const AcDbObjectId id : ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk) entity->erase();
    }
}

std::wstring answered()
{
    wchar_t word[20] = L"";
    acedGetInput(word);
    return word;
}

/// Where something goes from, and how far when that is known already.
struct Way {
    AcGePoint3d base; ///< of the UCS
    std::optional<AcGeVector3d> length;
};

std::optional<Way> askBase()
{
    ads_point point;
    acedInitGet(0, L"Displacement");
    const int code = acedGetPoint(nullptr, L"Specify base point or [Displacement] <Displacement>: ", point);
    if (code == RTNORM) return Way{asPnt3d(point), std::nullopt};
    if (code != RTNONE && code != RTKWORD) return std::nullopt;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"Specify displacement: ", point) != RTNORM) return std::nullopt;
    return Way{AcGePoint3d::kOrigin, asPnt3d(point).asVector()};
}

AcGeMatrix3d translation(const AcGeVector3d& ofUcs)
{
    return AcGeMatrix3d::translation(ed::ucsToWorld() * ofUcs);
}

constexpr const wchar_t* secondPoint = L"Specify second point or <use first point as displacement>: ";

void move()
{
    const Ids ids = commands::selectObjects();
    std::optional<Way> way = ids.empty() ? std::nullopt : askBase();
    if (!way) return;
    ads_point to;
    if (!way->length) {
        const int code = acedGetPoint(asDblArray(way->base), secondPoint, to);
        if (code == RTNONE) way->length = way->base.asVector();
        if (code == RTNORM) way->length = asPnt3d(to) - way->base;
    }
    if (way->length) transform(ids, translation(*way->length));
}

/// Copies to one point after the other until Enter; Undo takes the last copies away.
void copyToPoints(const Ids& ids, const AcGePoint3d& base)
{
    std::vector<Ids> made;
    for (bool goesOn = true; goesOn;) {
        ads_point to;
        acedInitGet(0, made.empty() ? nullptr : L"Exit Undo");
        const int code = acedGetPoint(asDblArray(base),
                                      made.empty() ? secondPoint : L"Specify second point or [Exit/Undo] <Exit>: ", to);
        const bool isUndo = code == RTKWORD && answered() == L"Undo";
        const bool isDisplacement = code == RTNONE && made.empty();
        if (isUndo && !made.empty()) {
            eraseAll(made.back());
            made.pop_back();
        } else if (code == RTNORM || isDisplacement) {
            made.push_back(copiesOf(ids));
            transform(made.back(), translation(isDisplacement ? base.asVector() : asPnt3d(to) - base));
        }
        goesOn = isUndo || code == RTNORM;
    }
}

void copy()
{
    const Ids ids = commands::selectObjects();
    const std::optional<Way> way = ids.empty() ? std::nullopt : askBase();
    if (!way) return;
    if (way->length)
        transform(copiesOf(ids), translation(*way->length));
    else
        copyToPoints(ids, way->base);
}

/// Asks for a base point and then, with the keywords Copy and Reference, for what turns or scales; the entities to
/// change are copies when that was asked for.
template <class Ask, class Map>
void changeAroundPoint(Ask ask, Map map)
{
    Ids ids = commands::selectObjects();
    ads_point base;
    acedInitGet(RSG_NONULL, nullptr);
    if (ids.empty() || acedGetPoint(nullptr, L"Specify base point: ", base) != RTNORM) return;
    bool copies = false;
    const std::optional<double> value = ask(base, copies);
    if (!value) return;
    if (copies) ids = copiesOf(ids);
    transform(ids, map(*value, world(base)));
}

std::optional<double> askReferredAngle(const ads_point base)
{
    ads_real from = 0.0, to = 0.0;
    const int code = acedGetAngle(base, L"Specify the reference angle <0>: ", &from);
    if (code != RTNORM && code != RTNONE) return std::nullopt;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetAngle(base, L"Specify the new angle: ", &to) != RTNORM) return std::nullopt;
    return to - from;
}

std::optional<double> askAngle(const ads_point base, bool& copies)
{
    ads_real angle = 0.0;
    for (;;) {
        acedInitGet(0, L"Copy Reference");
        const int code = acedGetAngle(base, L"Specify rotation angle or [Copy/Reference] <0>: ", &angle);
        if (code == RTNORM || code == RTNONE) return angle;
        if (code != RTKWORD) return std::nullopt;
        if (answered() == L"Reference") return askReferredAngle(base);
        copies = true;
    }
}

constexpr int positive = RSG_NONULL | RSG_NOZERO | RSG_NONEG;

std::optional<double> askReferredScale(const ads_point base)
{
    ads_real from = 1.0, to = 1.0;
    acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
    const int code = acedGetDist(nullptr, L"Specify reference length <1>: ", &from);
    if (code != RTNORM && code != RTNONE) return std::nullopt;
    acedInitGet(positive, nullptr);
    if (acedGetDist(base, L"Specify new length: ", &to) != RTNORM) return std::nullopt;
    return to / from;
}

std::optional<double> askScale(const ads_point base, bool& copies)
{
    ads_real factor = 1.0;
    for (;;) {
        acedInitGet(positive, L"Copy Reference");
        const int code = acedGetDist(base, L"Specify scale factor or [Copy/Reference]: ", &factor);
        if (code == RTNORM) return factor;
        if (code != RTKWORD) return std::nullopt;
        if (answered() == L"Reference") return askReferredScale(base);
        copies = true;
    }
}

void rotate()
{
    changeAroundPoint(askAngle, [](double angle, const AcGePoint3d& base) {
        return AcGeMatrix3d::rotation(angle, normalOfUcs(), base);
    });
}

void scale()
{
    changeAroundPoint(askScale, [](double factor, const AcGePoint3d& base) {
        return AcGeMatrix3d::scaling(factor, base);
    });
}

/// Puts the pieces of an entity in its place.
Acad::ErrorStatus explode(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk) return entity.openStatus();
    AcDbVoidPtrArray pieces;
    Acad::ErrorStatus status = entity->explode(pieces);
    const AcDbObjectPointer<AcDbBlockTableRecord> block(entity->ownerId(), AcDb::kForWrite);
    if (status == Acad::eOk) status = block.openStatus();
    for (int i = 0; i < pieces.length(); ++i) {
        AcDbObjectPointer<AcDbEntity> piece(static_cast<AcDbEntity*>(pieces[i])); // goes when it is not appended
        if (status == Acad::eOk) status = block->appendAcDbEntity(piece.object());
    }
    return status == Acad::eOk ? entity->erase() : status;
}

void explodeAll()
{
    int refused = 0;
    const Ids ids = commands::selectObjects();
    for (const AcDbObjectId id : ids) {
        if (explode(id) != Acad::eOk) ++refused;
    }
    if (refused > 0) ed::print(std::to_wstring(refused) + L" could not be exploded.\n");
}

[[maybe_unused]] const bool added = commands::add({
    {L"MOVE", L"M", ACRX_CMD_USEPICKSET, move, L"Moves the entities that are chosen"},
    {L"COPY", L"CO CP", ACRX_CMD_USEPICKSET, copy, L"Copies the entities that are chosen"},
    {L"ROTATE", L"RO", ACRX_CMD_USEPICKSET, rotate, L"Turns entities about a point"},
    {L"SCALE", L"SC", ACRX_CMD_USEPICKSET, scale, L"Scales entities from a point"},
    {L"EXPLODE", L"X", ACRX_CMD_USEPICKSET, explodeAll, L"Takes entities apart into simpler ones"},
});
} // namespace

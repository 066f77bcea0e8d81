#include "acedinput.h"
#include "acedselect.h"
#include "CommandLine.h"
#include "CurrentUcs.h"
#include "Documents.h"
#include "NestedPick.h"
#include "ResbufCopy.h"
#include "SelectionKeywords.h"
#include "SelectionPoints.h"
#include "Stub.h"
#include "VariableStore.h"

namespace
{
/// Values of ERRNO.
constexpr long pickFailed = 7, nullResponse = 52;

int fail(long reason)
{
    ed::writeVariable(L"ERRNO", ed::VariableValue::ofInteger(reason));
    return RTERROR;
}

/// What the user pointed at.
struct Picked {
    AcDbObjectId entity;
    AcGePoint3d point; ///< in the world
    bool hasPoint = false;
};

int pickAt(ed::SelectionSearch& search, const AcGePoint3d& point, Picked& picked)
{
    picked.point = point;
    picked.hasPoint = true;
    picked.entity = search.uppermostTouching(search.pickBox(point));
    return picked.entity.isNull() ? fail(pickFailed) : RTNORM;
}

constexpr const wchar_t* wrongAnswer = L"*Invalid selection*\nExpects a point or Last";

/// Asks for one entity.
class EntityQuestion
{
public:
    EntityQuestion(ed::SelectionSearch& search, Picked& picked) : mSearch(search), mPicked(picked) {}

    int ask(const std::wstring& prompt)
    {
        for (;;) {
            ed::print(prompt);
            std::wstring message = wrongAnswer;
            if (const std::optional<int> status = take(ed::currentInput().next(ed::Reading::token), message))
                return *status;
            ed::print(message + L"\n");
        }
    }

private:
    /// Nothing when the question stays.
    std::optional<int> take(const ed::Answer& answer, std::wstring& message)
    {
        switch (answer.kind) {
        case ed::Answer::Kind::cancel:
            return RTCAN;
        case ed::Answer::Kind::enter:
            return fail(nullResponse);
        case ed::Answer::Kind::entity:
            return takeEntity(AcDbObjectId().setFromOldId(static_cast<std::intptr_t>(answer.name[0])));
        case ed::Answer::Kind::text:
            return takeText(answer, message);
        default:
            return std::nullopt;
        }
    }

    std::optional<int> takeText(const ed::Answer& answer, std::wstring& message)
    {
        if (const std::optional<std::size_t> word = mRules.keywords.match(answer.text)) {
            ed::setLastInput(mRules.keywords.name(*word));
            return RTKWORD;
        }
        AcGePoint3d point;
        const ed::Verdict verdict = ed::answeredPoint(answer, {}, point, message);
        if (verdict == ed::Verdict::good) return pickAt(mSearch, point, mPicked);
        if (verdict == ed::Verdict::cancelled) return RTCAN;
        if (ed::selectionKeyword(answer.text) == ed::SelectionKeyword::last) return takeEntity(mSearch.lastSeen());
        if (verdict == ed::Verdict::refused || !mRules.has(RSG_OTHER)) return std::nullopt;
        ed::setLastInput(answer.text);
        return RTKWORD;
    }

    int takeEntity(AcDbObjectId id)
    {
        mPicked.entity = id;
        return AcDbEntity::cast(residentObject(id)) && !id.isErased() ? RTNORM : fail(pickFailed);
    }

    ed::SelectionSearch& mSearch;
    Picked& mPicked;
    ed::InputRules mRules = ed::takeInputRules();
};

int ask(const ACHAR* prompt, ed::SelectionSearch& search, Picked& picked)
{
    const int status = EntityQuestion(search, picked).ask(prompt ? prompt : L"\nSelect object: ");
    if (picked.hasPoint) ed::setLastPoint(ed::ucsToWorld().inverse() * picked.point);
    return status;
}

void giveName(AcDbObjectId id, ads_name name)
{
    name[0] = id.asOldId();
    name[1] = 0;
}

void givePoint(const AcGePoint3d& world, ads_point result)
{
    const AcGePoint3d point = ed::ucsToWorld().inverse() * world;
    result[X] = point.x;
    result[Y] = point.y;
    result[Z] = point.z;
}

resbuf* namesOf(const std::vector<AcDbObjectId>& ids)
{
    ed::OwnedResbuf list;
    for (const AcDbObjectId id : ids) {
        ed::OwnedResbuf node(acutNewRb(RTENAME));
        giveName(id, node->resval.rlname);
        ed::append(list, std::move(node));
    }
    return list.release();
}
} // namespace

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point)
{
    DocumentState* state = documents::current();
    if (!state || !entity || !point) return RTERROR;
    ed::SelectionSearch search(*state->database);
    Picked picked;
    const int status = ask(prompt, search, picked);
    if (status != RTNORM) return status;
    giveName(picked.entity, entity);
    givePoint(picked.point, point);
    return RTNORM;
}

int acedNEntSelP(const ACHAR* prompt, ads_name entity, ads_point point, int usePoint, ads_matrix xform,
                 resbuf** containers)
{
    DocumentState* state = documents::current();
    if (!state || !entity || !point || !xform || !containers) return RTERROR;
    *containers = nullptr;
    ed::SelectionSearch search(*state->database);
    Picked picked;
    const std::optional<AcGePoint3d> given = usePoint ? ed::worldPoint(point) : std::nullopt;
    if (usePoint && !given) return RTERROR;
    const int status = given ? pickAt(search, *given, picked) : ask(prompt, search, picked);
    if (status != RTNORM) return status;
    ed::NestedHit hit{picked.entity, {}, {}};
    if (picked.hasPoint) hit = ed::nestedHit(search, *state->database, search.pickBox(picked.point), picked.entity);
    giveName(hit.entity, entity);
    if (!usePoint) givePoint(picked.point, point);
    for (int row = 0; row < 4; ++row) std::copy(hit.toWorld.entry[row], hit.toWorld.entry[row] + 4, xform[row]);
    *containers = namesOf(hit.containers);
    return RTNORM;
}

int acedNEntSel(const ACHAR* prompt, ads_name entity, ads_point point, ads_point xform[4], resbuf** containers)
{
    ads_matrix matrix;
    if (!xform) return RTERROR;
    const int status = acedNEntSelP(prompt, entity, point, FALSE, matrix, containers);
    for (int axis = 0; status == RTNORM && axis < 4; ++axis) {
        for (int row = 0; row < 3; ++row) xform[axis][row] = matrix[row][axis];
    }
    return status;
}

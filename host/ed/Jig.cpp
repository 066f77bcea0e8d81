#include "dbjig.h"

#include "acedinput.h"
#include "CommandLine.h"
#include "CurrentUcs.h"
#include "dbmain.h"
#include "dbobjptr.h"
#include "HandOut.h"
#include "PointAnswers.h"
#include "ScreenRecord.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdJig, AcRxObject)

namespace
{
using ed::PointWish;
using ed::Reply;

constexpr std::size_t mostKeywords = 9;

bool isStyle(AcEdDragStyle::StyleType style)
{
    return style >= AcEdDragStyle::kNone && style <= AcEdDragStyle::kNotSpecified;
}

int bitsOf(int controls)
{
    int bits = 0;
    const auto follow = [&](bool on, int bit) { bits |= on ? bit : 0; };
    follow(!(controls & AcEdJig::kNullResponseAccepted), RSG_NONULL);
    follow(controls & AcEdJig::kNoZeroResponseAccepted, RSG_NOZERO);
    follow(controls & AcEdJig::kNoNegativeResponseAccepted, RSG_NONEG);
    follow(controls & AcEdJig::kNoDwgLimitsChecking, RSG_NOLIM);
    follow(controls & AcEdJig::kAcceptOtherInputString, RSG_OTHER);
    follow(controls & AcEdJig::kDisableDirectDistanceInput, RSG_NODDIST);
    return bits;
}
} // namespace

Acad::ErrorStatus AcEdDragStyle::setStyleTypeForOriginal(StyleType style)
{
    if (!isStyle(style)) return Acad::eInvalidInput;
    mOriginal = style;
    return Acad::eOk;
}

Acad::ErrorStatus AcEdDragStyle::setStyleTypeForDragged(StyleType style)
{
    if (!isStyle(style)) return Acad::eInvalidInput;
    mDragged = style;
    return Acad::eOk;
}

struct AcEdJig::State {
    std::wstring keywords;
    std::wstring prompt;
    CursorType cursor = kNoSpecialCursor;
    UserInputControls controls = static_cast<UserInputControls>(0);
    AcEdDragStyle style;

    // Of the drag that runs.
    bool promptShown = false;
    bool asked = false; ///< in this round
    bool moved = false; ///< the last input was a move of the cursor
    bool cancelled = false;

    /// The question for the next input. A base point is in the world.
    PointWish wish(const AcGePoint3d* base)
    {
        PointWish made;
        made.prompt = prompt;
        made.promptShown = std::exchange(promptShown, true);
        made.rules = {bitsOf(controls), ed::KeywordList(keywords)};
        made.context.followsOrtho = (controls & kGovernedByOrthoMode) != 0;
        made.seesMoves = true;
        if (base) made.context.base = ed::ucsToWorld().inverse() * *base;
        return made;
    }

    DragStatus statusOf(const Reply& reply, bool wasMove)
    {
        asked = true;
        moved = wasMove && reply.code == RTNORM;
        cancelled = reply.code == RTCAN;
        switch (reply.code) {
        case RTNORM:
            return kNormal;
        case RTNONE:
            return kNull;
        case RTKWORD:
            break;
        default:
            return kCancel;
        }
        if (!reply.keyword || *reply.keyword >= mostKeywords) return kOther;
        return static_cast<DragStatus>(kKW1 + static_cast<int>(*reply.keyword));
    }

    DragStatus acquirePoint(AcGePoint3d& value, const AcGePoint3d* base)
    {
        const PointWish asking = wish(base);
        ed::PointReply reply = ed::askPoint(asking);
        const DragStatus status = statusOf(reply, reply.moved);
        if (status != kNormal) return status;
        if (!(controls & kAccept3dCoordinates)) reply.point.z = ed::elevation();
        if ((controls & kUseBasePointElevation) && asking.context.base)
            reply.point.z = asking.context.base->z;
        if (!moved && !(controls & kDontUpdateLastPoint)) ed::setLastPoint(reply.point);
        value = ed::ucsToWorld() * reply.point;
        return status;
    }

    using Asking = ed::NumberReply (*)(const PointWish&);
    DragStatus acquireNumber(double& value, const AcGePoint3d* base, Asking ask)
    {
        PointWish asking = wish(base);
        if (!base) asking.context.base = ed::lastPoint();
        asking.keepsLastPoint = (controls & kDontUpdateLastPoint) != 0;
        const ed::NumberReply reply = ask(asking);
        const DragStatus status = statusOf(reply, reply.moved);
        if (status == kNormal) value = reply.value;
        return status;
    }
};

AcEdJig::AcEdJig() : mState(std::make_unique<State>()) {}
AcEdJig::~AcEdJig() = default;

AcEdJig::DragStatus AcEdJig::sampler()
{
    return kCancel;
}
Adesk::Boolean AcEdJig::update()
{
    return Adesk::kFalse;
}
AcDbEntity* AcEdJig::entity() const
{
    return nullptr;
}

void AcEdJig::show()
{
    const AcDbEntity* shown = entity();
    if (shown) ed::screen().images.push_back(ed::imageOf(*shown));
}

AcEdJig::DragStatus AcEdJig::drag()
{
    mState->promptShown = false;
    for (;;) {
        mState->asked = mState->moved = mState->cancelled = false;
        const DragStatus status = sampler();
        if (!mState->asked || mState->cancelled) return kCancel;
        if (status == kNormal && update()) show();
        const bool goesOn = status == kNormal || status == kNoChange;
        if (goesOn && mState->moved) continue;
        return goesOn ? kNormal : status;
    }
}

AcEdJig::DragStatus AcEdJig::drag(const AcEdDragStyle& style)
{
    mState->style = style;
    return drag();
}

AcDbObjectId AcEdJig::append()
{
    AcDbEntity* added = entity();
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (!added || !db) return AcDbObjectId::kNull;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db->currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (space.openStatus() != Acad::eOk || space->appendAcDbEntity(id, added) != Acad::eOk)
        return AcDbObjectId::kNull;
    added->close();
    return id;
}

const ACHAR* AcEdJig::keywordList()
{
    return mState->keywords.c_str();
}
void AcEdJig::setKeywordList(const ACHAR* keywords)
{
    mState->keywords = keywords ? keywords : L"";
}
const ACHAR* AcEdJig::dispPrompt()
{
    return mState->prompt.c_str();
}
void AcEdJig::keepPrompt(const CString& prompt)
{
    mState->prompt = prompt.GetString();
}
AcEdJig::CursorType AcEdJig::specialCursorType()
{
    return mState->cursor;
}
void AcEdJig::setSpecialCursorType(CursorType type)
{
    mState->cursor = type;
}
AcEdJig::UserInputControls AcEdJig::userInputControls()
{
    return mState->controls;
}
void AcEdJig::setUserInputControls(UserInputControls controls)
{
    mState->controls = controls;
}
AcEdDragStyle AcEdJig::dragStyle() const
{
    return mState->style;
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value)
{
    return mState->acquirePoint(value, nullptr);
}
AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value, const AcGePoint3d& basePoint)
{
    return mState->acquirePoint(value, &basePoint);
}
AcEdJig::DragStatus AcEdJig::acquireDist(double& value)
{
    return mState->acquireNumber(value, nullptr, ed::askDistance);
}
AcEdJig::DragStatus AcEdJig::acquireDist(double& value, const AcGePoint3d& basePoint)
{
    return mState->acquireNumber(value, &basePoint, ed::askDistance);
}
AcEdJig::DragStatus AcEdJig::acquireAngle(double& value)
{
    return mState->acquireNumber(value, nullptr, ed::askDirection);
}
AcEdJig::DragStatus AcEdJig::acquireAngle(double& value, const AcGePoint3d& basePoint)
{
    return mState->acquireNumber(value, &basePoint, ed::askDirection);
}

AcEdJig::DragStatus AcEdJig::acquireString(ACHAR* value, std::size_t size)
{
    const bool word = (mState->controls & kAnyBlankTerminatesInput) != 0;
    if (!std::exchange(mState->promptShown, true)) ed::print(mState->prompt);
    const ed::Answer answer = ed::currentInput().next(word ? ed::Reading::word : ed::Reading::line);
    if (answer.kind == ed::Answer::Kind::enter && (mState->controls & kNullResponseAccepted))
        return mState->statusOf({RTNONE, {}}, false);
    const bool text = answer.kind == ed::Answer::Kind::text || answer.kind == ed::Answer::Kind::enter;
    const std::optional<std::size_t> keyword = ed::KeywordList(mState->keywords).match(answer.text);
    const DragStatus status = mState->statusOf({!text ? RTCAN : keyword ? RTKWORD : RTNORM, keyword}, false);
    if (status == kNormal) ed::handOut(answer.text, value, size);
    return status;
}

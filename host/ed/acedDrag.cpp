/// Dragging selection sets, and raw input.

#include "acedgraphics.h"
#include "PointAnswers.h"
#include "ScreenRecord.h"
#include "SelectionState.h"

namespace
{
using ed::Answer;
using Follow = int (*)(ads_point, ads_matrix);

enum EventType { keyEvent = 2, pickEvent = 3, moveEvent = 5 };

void setIdentity(ads_matrix matrix)
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix[row][column] = row == column ? 1.0 : 0.0;
    }
}

void copyPoint(const AcGePoint3d& from, ads_point to)
{
    for (const int axis : {X, Y, Z})
        to[axis] = from[static_cast<unsigned>(axis)];
}

/// Lets the set follow to a point; false when the function wants no more.
bool followTo(const AcGePoint3d& at, Follow follow)
{
    ads_point point;
    ads_matrix matrix;
    copyPoint(at, point);
    setIdentity(matrix);
    const int code = follow ? follow(point, matrix) : RTNONE;
    if (code != RTNORM) return code == RTNONE;
    AcGeMatrix3d shown;
    for (unsigned row = 0; row < 4; ++row) {
        for (unsigned column = 0; column < 4; ++column)
            shown.entry[row][column] = matrix[row][column];
    }
    ed::screen().dragged.push_back(shown);
    return true;
}

int giveKey(const Answer& key, int* type, resbuf* result)
{
    *type = keyEvent;
    result->restype = RTSHORT;
    result->resval.rint = key.text[0] == L'\n' ? short{13} : static_cast<short>(key.text[0]);
    return RTNORM;
}

int givePoint(const AcGePoint3d& point, EventType event, int* type, resbuf* result)
{
    *type = event;
    result->restype = RT3DPOINT;
    copyPoint(point, result->resval.rpoint);
    return RTNORM;
}
} // namespace

int acedGrRead(int track, int* type, resbuf* result)
{
    if (!type || !result) return RTERROR;
    for (;;) {
        const Answer answer = ed::currentInput().nextKeyOrMove();
        AcGePoint3d point;
        std::wstring message;
        switch (answer.kind) {
        case Answer::Kind::cancel:
            return RTCAN;
        case Answer::Kind::cursor:
            if (track & 1) return givePoint(answer.point, moveEvent, type, result);
            break;
        case Answer::Kind::text:
            if (answer.text.size() == 1) return giveKey(answer, type, result);
            if (ed::readPoint(answer, {}, point, message) != ed::Verdict::good) return RTERROR;
            return givePoint(point, pickEvent, type, result);
        default:
            return RTERROR;
        }
    }
}

int acedDragGen(const ads_name set, const ACHAR* prompt, int, Follow follow, ads_point result)
{
    ed::PointWish wish;
    wish.prompt = ed::promptText(prompt);
    wish.rules = ed::takeInputRules();
    wish.seesMoves = true;
    if (!set || !ed::selectionSet(set) || !result) return RTERROR;
    for (;;) {
        const ed::PointReply reply = ed::askPoint(wish);
        if (reply.code == RTKWORD && !reply.keyword) return RTSTR;
        if (reply.code != RTNORM) return reply.code;
        if (!followTo(reply.point, follow)) return RTERROR;
        wish.promptShown = true;
        if (reply.moved) continue;
        ed::setLastPoint(reply.point);
        copyPoint(reply.point, result);
        return RTNORM;
    }
}

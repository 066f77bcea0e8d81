/// Questions for points, lengths and angles.

#include "acedinput.h"
#include "PointAnswers.h"

namespace
{
using ed::NumberReply;
using ed::PointReply;
using ed::PointWish;

PointWish wishOf(const ads_point base, const ACHAR* prompt)
{
    PointWish wish;
    wish.prompt = ed::promptText(prompt);
    wish.rules = ed::takeInputRules();
    if (base) wish.context.base = AcGePoint3d(base[X], base[Y], base[Z]);
    return wish;
}

int givePoint(const PointReply& reply, ads_point result)
{
    if (reply.code != RTNORM) return reply.code;
    ed::setLastPoint(reply.point);
    for (const int axis : {X, Y, Z})
        result[axis] = reply.point[static_cast<unsigned>(axis)];
    return RTNORM;
}

int giveNumber(const NumberReply& reply, ads_real* result)
{
    if (reply.code == RTNORM) *result = reply.value;
    return reply.code;
}
} // namespace

int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result)
{
    const PointWish wish = wishOf(base, prompt);
    return result ? givePoint(ed::askPoint(wish), result) : RTERROR;
}

int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result)
{
    const PointWish wish = wishOf(base, prompt);
    if (!base || !result) return RTERROR;
    PointReply reply = ed::askPoint(wish);
    reply.point.z = ed::elevation();
    return givePoint(reply, result);
}

int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    const PointWish wish = wishOf(base, prompt);
    return result ? giveNumber(ed::askDistance(wish), result) : RTERROR;
}

int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    const PointWish wish = wishOf(base, prompt);
    return result ? giveNumber(ed::askDirection(wish), result) : RTERROR;
}

int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result)
{
    const PointWish wish = wishOf(base, prompt);
    if (!result) return RTERROR;
    NumberReply reply = ed::askDirection(wish);
    reply.value = ed::withinTurn(reply.value - ed::currentUnits().angleBase);
    return giveNumber(reply, result);
}

#include "CopyRun.h"

#include "DrawingEvents.h"

std::unique_ptr<CopySession> CopyRun::begin(AcDbDatabase& from, AcDbDatabase& to, AcDbIdMapping& map,
                                            AcDb::DeepCloneType context, AcDb::DuplicateRecordCloning duplicates)
{
    if (map.mPending) {
        const bool fits = &map.mPending->from() == &from && &map.mPending->to() == &to;
        return fits ? std::move(map.mPending) : nullptr;
    }
    map.mContext = context;
    auto session = std::make_unique<CopySession>(from, to, map, duplicates);
    events::tell([&](AcRxEventReactor& reactor) { reactor.beginDeepClone(&to, map); });
    return session;
}

Acad::ErrorStatus CopyRun::putOff(std::unique_ptr<CopySession> session, AcDbIdMapping& map)
{
    if (session->status() != Acad::eOk) return giveUp(*session, map, session->status());
    session->suspend();
    map.mPending = std::move(session);
    return Acad::eOk;
}

Acad::ErrorStatus CopyRun::finish(CopySession& session, AcDbIdMapping& map)
{
    Acad::ErrorStatus status = session.plan();
    if (status != Acad::eOk) return giveUp(session, map, status);
    events::tell([&](AcRxEventReactor& reactor) { reactor.beginDeepCloneXlation(map, &status); });
    if (status != Acad::eOk) return giveUp(session, map, status);
    session.carryOut();
    events::tell([&](AcRxEventReactor& reactor) { reactor.endDeepClone(map); });
    return Acad::eOk;
}

Acad::ErrorStatus CopyRun::giveUp(CopySession& session, AcDbIdMapping& map, Acad::ErrorStatus status)
{
    session.giveUp();
    events::tell([&](AcRxEventReactor& reactor) { reactor.abortDeepClone(map); });
    return status;
}

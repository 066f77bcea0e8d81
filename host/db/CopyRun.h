#pragma once

/// A copying with the notices of it.

#include "CopySession.h"

struct CopyRun {
    /// A session that has just begun, or that of the map, which was put off by an earlier call for the same drawings;
    /// null when the map waits for other drawings.
    static std::unique_ptr<CopySession> begin(AcDbDatabase& from, AcDbDatabase& to, AcDbIdMapping& map,
                                              AcDb::DeepCloneType context, AcDb::DuplicateRecordCloning duplicates);
    /// Puts the rest off until the next call with the map. The status of what cannot be copied; nothing is, then.
    static Acad::ErrorStatus putOff(std::unique_ptr<CopySession> session, AcDbIdMapping& map);
    /// Makes the copies, or nothing when the status is not eOk.
    static Acad::ErrorStatus finish(CopySession& session, AcDbIdMapping& map);
    static Acad::ErrorStatus giveUp(CopySession& session, AcDbIdMapping& map, Acad::ErrorStatus status);
};

#pragma once

/// A drawing as a copy of another one, with the same handles, without what nothing uses.

#include "CopySession.h"

class WholeCopy final : public CopySession
{
public:
    /// `to` is thrown away first.
    WholeCopy(AcDbDatabase& from, AcDbDatabase& to, AcDbIdMapping& map);
    /// Plans everything that is in use.
    Acad::ErrorStatus planAll();
    void carryOutAll();

private:
    AcDbObjectId newId(const AcDbObject& original) override;
    void reachRecord(AcDbSymbolTableRecord& record) override;
    void reachEntry(AcDbObject& object) override;
    bool followsSoftOwners() const override { return true; }
    bool keepsHandles() const override { return true; }

    void reach(AcDbObjectId record);
    void reachAll(AcDbObjectId table);
    void reachNamedInHeader();
    void listRecords();
    void takeState();
};

#pragma once

/// Groups read from a list (resbuf): points are taken apart into coordinates, entity names and texts of handles become
/// handles.

#include "DxfGroup.h"
#include "acutads.h"

#include <string>
#include <vector>

class AcDbDatabase;

class ResbufSource : public DxfSource
{
public:
    /// Reads a chain, or nodes picked from one. References are resolved in `database`, which may be null.
    ResbufSource(const resbuf* chain, AcDbDatabase* database);
    ResbufSource(std::vector<const resbuf*> nodes, AcDbDatabase* database);

    const DxfGroup* peek() override { return mMore ? &mGroup : nullptr; }
    void take() override;
    double angleOf(const DxfGroup& group) const override { return group.real; }
    AcDbStub* stubOf(std::uint64_t handle) override;
    /// Null for a name that the database does not have, which counts as a fault; a layer is made.
    AcDbStub* recordOf(int code, std::string_view name) override;
    void report(const DxfGroup&, const char*) override { mHasFault = true; }

    /// True when the chain held something that is no group or no finite number, or its reader complained.
    bool hasFault() const { return mHasFault; }

private:
    void load();
    bool loadValue();
    bool loadText();

    const resbuf& node() const { return *mNodes[mAt]; }

    std::vector<const resbuf*> mNodes;
    std::size_t mAt = 0;
    AcDbDatabase* mDatabase;
    int mCoordinate = 0; ///< of the point that is being taken apart
    DxfGroup mGroup;
    std::string mText;
    bool mMore = false;
    bool mHasFault = false;
};

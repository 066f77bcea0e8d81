#pragma once

/// Records in memory: what objects write into and are read from when no file is involved.

#include "DatabaseState.h"
#include "DxfFields.h"
#include "PackedGroups.h"
#include "RecordNames.h"

/// Gives the groups of a list, as a file would. Names are looked up in a database, if one is given.
class PackedSource : public DxfSource
{
public:
    explicit PackedSource(const PackedGroups& groups, AcDbDatabase* database = nullptr)
        : mGroups(groups), mDatabase(database)
    {
        PackedSource::take();
    }
    const DxfGroup* peek() override { return mMore ? &mGroup : nullptr; }
    void take() override { mMore = mGroups.read(mAt, mGroup); }
    AcDbStub* stubOf(std::uint64_t handle) override
    {
        return mDatabase && handle ? DatabaseAccess::of(*mDatabase).stubs.obtain(handle) : nullptr;
    }
    AcDbStub* recordOf(int code, std::string_view name) override
    {
        return mDatabase ? recordNamed(*mDatabase, code, name) : nullptr;
    }
    void report(const DxfGroup&, const char*) override { ++reports; }

    int reports = 0;

private:
    const PackedGroups& mGroups;
    AcDbDatabase* mDatabase;
    std::size_t mAt = 0;
    DxfGroup mGroup;
    bool mMore = false;
};

class PackedSink : public DxfSink
{
public:
    explicit PackedSink(DxfVersion version = DxfVersion::r2018) : mVersion(version) {}
    void real(int code, double value) override { groups.appendReal(code, value); }
    void integer(int code, std::int64_t value) override { groups.appendInteger(code, value); }
    void text(int code, std::string_view utf8) override { groups.appendText(code, utf8); }
    void handle(int code, AcDbStub* stub) override { groups.appendHandle(code, stub ? stub->handle : 0); }
    void binary(int code, std::string_view bytes) override { groups.appendBinary(code, bytes); }
    void rawHandle(int code, std::uint64_t value) override { groups.appendHandle(code, value); }
    int version() const override { return static_cast<int>(mVersion); }

    PackedGroups groups;

private:
    DxfVersion mVersion;
};

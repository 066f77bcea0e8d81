#pragma once

/// The groups of an object inside a dwg filer: how the classes of the host file themselves there.

#include "DxfGroup.h"
#include "dbfiler.h"

#include <string>

/// Writes groups; `end` closes the list.
class FilerSink final : public DxfSink
{
public:
    explicit FilerSink(AcDbDwgFiler& filer) : mFiler(filer) {}
    void end() { mFiler.writeInt16(-1); }

    void real(int code, double value) override;
    void integer(int code, std::int64_t value) override;
    void text(int code, std::string_view utf8) override;
    void handle(int code, AcDbStub* stub) override;
    void binary(int code, std::string_view bytes) override;
    void rawHandle(int code, std::uint64_t value) override;
    void angle(int code, double radians) override { real(code, radians); }
    void record(int code, AcDbStub* stub) override;
    int version() const override { return 1032; }

private:
    void begin(int code, int kind);
    void bytes(std::string_view bytes);
    AcDbDwgFiler& mFiler;
};

/// Reads them again.
class FilerSource final : public DxfSource
{
public:
    explicit FilerSource(AcDbDwgFiler& filer) : mFiler(filer) { load(); }

    const DxfGroup* peek() override { return mMore ? &mGroup : nullptr; }
    void take() override { load(); }
    AcDbStub* stubOf(std::uint64_t handle) override;
    AcDbStub* recordOf(int code, std::string_view name) override;
    double angleOf(const DxfGroup& group) const override { return group.real; }
    void report(const DxfGroup&, const char*) override {}

private:
    void load();
    void loadReference(int kind);
    void loadBytes();

    AcDbDwgFiler& mFiler;
    DxfGroup mGroup;
    AcDbObjectId mId; ///< what the group refers to
    std::string mBytes;
    bool mMore = false;
};

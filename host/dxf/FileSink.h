#pragma once

#include "DxfGroup.h"
#include "FileVersion.h"
#include "GroupWriter.h"

#include <unordered_map>

namespace dxf
{
/// Groups of objects into a file.
class FileSink final : public DxfSink
{
public:
    FileSink(GroupWriter& writer, FileVersion version) : _writer(writer), _version(version) {}

    void real(int code, double value) override { _writer.real(code, value); }
    void integer(int code, std::int64_t value) override { _writer.integer(code, value); }
    void text(int code, std::string_view utf8) override;
    /// The null handle for an erased object.
    void handle(int code, AcDbStub* stub) override;
    void binary(int code, std::string_view bytes) override;
    void rawHandle(int code, std::uint64_t value) override { _writer.handle(code, value); }
    void record(int code, AcDbStub* stub) override;
    int version() const override { return static_cast<int>(_version); }
    bool holds(const AcDbStub* stub) const override { return !_leavesNewer || !isNewer(stub); }
    /// From now on objects of classes that the version does not know are left out, and references to them are null.
    void leaveNewerClasses() { _leavesNewer = true; }

private:
    bool isNewer(const AcDbStub* stub) const;

    GroupWriter& _writer;
    FileVersion _version;
    bool _leavesNewer = false;
    std::unordered_map<const AcDbStub*, std::string> _names; ///< of records, encoded
    const AcDbStub* _lastStub[8] = {};                       ///< by the low bits of the code
    const std::string* _lastName[8] = {};
};
} // namespace dxf

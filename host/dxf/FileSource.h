#pragma once

#include "DxfFields.h"
#include "PackedGroups.h"
#include "ReadContext.h"

namespace dxf
{
/// The groups of a record as the classes of the database read them.
class FileSource final : public DxfSource
{
public:
    FileSource(ReadContext& context, const TextEncoding& encoding) : _context(context), _encoding(encoding) {}

    /// Reads an object from its record, which has to outlive the reading.
    DxfFrame read(AcDbObject& object, Record& record);
    /// Goes to the first group of a record, which has to outlive the reading.
    void start(const Record& record);

    const DxfGroup* peek() override
    {
        if (!_isFilled && _at < _record->groups.size()) fill(_record->groups[_at]);
        return _isFilled ? &_group : nullptr;
    }
    void take() override
    {
        ++_at;
        _isFilled = false;
    }
    AcDbStub* stubOf(std::uint64_t handle) override;
    AcDbStub* recordOf(int code, std::string_view name) override;
    void paperSpace(bool isPaper) override { _isPaperSpace = isPaper; }
    void report(const DxfGroup& group, const char* reason) override;

    bool isPaperSpace() const { return _isPaperSpace; }
    /// Takes all groups that are left.
    void takeAll(PackedGroups& to);

private:
    void fill(const Group& group);
    bool isArrowName() const;
    void fillText(const Group& group);

    ReadContext& _context;
    const TextEncoding _encoding;
    const Record* _record = nullptr;
    std::size_t _at = 0;
    DxfGroup _group;
    bool _isFilled = false;
    bool _isPaperSpace = false;
    std::string _scratch;
    std::wstring _decoded;
};
} // namespace dxf

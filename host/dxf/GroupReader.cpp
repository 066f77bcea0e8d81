#include "GroupReader.h"

#include <cassert>

namespace dxf
{
GroupReader::GroupReader(std::shared_ptr<const Input> input) : _input(std::move(input)) {}

GroupReader::~GroupReader() = default;

void GroupReader::pushBack()
{
    assert(!_hasAhead);
    _ahead = _group;
    _hasAhead = true;
}

void GroupReader::noteBadHandle(const Group& group)
{
    if (!_isDimStyle || group.code() != 5) note(FaultKind::badHandle, group);
}

void GroupReader::setHeader(FileVersion version, const TextEncoding& encoding)
{
    _version = version;
    _encoding = encoding;
    if (!encoding.isKnown()) _faults.add(FaultKind::unknownCodePage, 0);
}
} // namespace dxf

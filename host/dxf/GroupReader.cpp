#include "GroupReader.h"

#include <cassert>

namespace dxf
{
GroupReader::GroupReader(std::shared_ptr<const Input> input) : _input(std::move(input)) {}

GroupReader::~GroupReader() = default;

void GroupReader::takeRest(std::vector<Group>& to)
{
    while (takeInto(to)) {
        if (to.back().code() != 0) continue;
        _ahead = to.back();
        _hasAhead = true;
        to.pop_back();
        return;
    }
}

/// Appends the next group: read in its place, since a file has millions.
bool GroupReader::takeInto(std::vector<Group>& to)
{
    to.emplace_back();
    if (_hasAhead) {
        to.back() = _ahead;
        _hasAhead = false;
        return true;
    }
    if (read(to.back())) return true;
    to.pop_back();
    return false;
}

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

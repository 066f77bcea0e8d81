#include "Record.h"

#include <algorithm>

namespace dxf
{
bool Record::hasSection(std::string_view marker) const
{
    return std::any_of(groups.begin(), groups.end(), [&](const Group& group) { return group.is(100, marker); });
}

const Group* Record::find(int code) const
{
    for (const Group& group : groups) {
        if (group.code() == code) return &group;
    }
    return nullptr;
}

std::int64_t Record::integer(int code, std::int64_t otherwise) const
{
    const Group* group = find(code);
    return group && !group->isMalformed() ? group->integer() : otherwise;
}

std::uint64_t Record::handle() const
{
    const Group* group = find(name == "DIMSTYLE" ? 105 : 5);
    return group ? group->handle() : 0;
}

void Record::remove(int code)
{
    if (const Group* found = find(code)) groups.erase(groups.begin() + (found - groups.data()));
}

bool RecordStream::next()
{
    const Group* first = _reader.peek();
    while (first && first->code() != 0) {
        _reader.next();
        first = _reader.peek();
    }
    if (!first || first->text() == "EOF") return false;
    _record.name = first->text();
    _record.position = first->position();
    _record.groups.clear();
    _reader.next();
    _reader.takeRest(_record.groups);
    return true;
}

std::string_view RecordStream::nextName()
{
    const Group* first = _reader.peek();
    return first && first->code() == 0 ? first->text() : std::string_view();
}
} // namespace dxf

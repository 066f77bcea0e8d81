#include "GroupCollector.h"

#include "NumberText.h"

#include <cstring>
#include <ostream>

namespace dxf
{
namespace
{
void printChunk(std::ostream& to, std::string_view bytes)
{
    std::string digits(bytes.size() * 2, '\0');
    writeHexData(digits.data(), bytes);
    to << digits;
}

void printReal(std::ostream& to, double value)
{
    char text[longestNumber];
    to.write(text, writeReal(text, value) - text);
}
} // namespace

CollectedGroup CollectedGroup::ofText(int code, std::string text)
{
    return {code, false, 0, 0, std::move(text)};
}

CollectedGroup CollectedGroup::ofReal(int code, double real)
{
    return {code, false, real, 0, {}};
}

CollectedGroup CollectedGroup::ofInteger(int code, std::int64_t integer)
{
    return {code, false, 0, integer, {}};
}

bool CollectedGroup::operator==(const CollectedGroup& other) const
{
    return code == other.code && isMalformed == other.isMalformed && integer == other.integer &&
           std::memcmp(&real, &other.real, sizeof real) == 0 && text == other.text;
}

std::ostream& operator<<(std::ostream& to, const CollectedGroup& group)
{
    to << '(' << group.code << ' ';
    const GroupKind kind = kindOf(group.code);
    if (group.isMalformed)
        to << "malformed";
    else if (kind == GroupKind::text)
        to << group.text;
    else if (kind == GroupKind::chunk)
        printChunk(to, group.text);
    else if (kind == GroupKind::real)
        printReal(to, group.real);
    else
        to << group.integer;
    return to << ')';
}

void GroupCollector::putText(int code, std::string_view encoded)
{
    _groups.push_back(CollectedGroup::ofText(code, std::string(encoded)));
}

void GroupCollector::putReal(int code, double value)
{
    _groups.push_back(CollectedGroup::ofReal(code, value));
}

void GroupCollector::putInteger(int code, std::int64_t value)
{
    _groups.push_back(CollectedGroup::ofInteger(code, value));
}

void GroupCollector::putHandle(int code, std::uint64_t value)
{
    putInteger(code, static_cast<std::int64_t>(value));
}

void GroupCollector::putChunk(int code, std::string_view bytes)
{
    putText(code, bytes);
}

bool GroupCollector::putMalformed(const Group& group)
{
    _groups.push_back({group.code(), true, 0, 0, {}});
    return true;
}
} // namespace dxf

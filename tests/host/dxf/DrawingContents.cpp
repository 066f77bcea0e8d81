#include "DrawingContents.h"

#include "Record.h"

#include <algorithm>

using namespace dxf;

namespace dxftest
{
namespace
{
std::string number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", std::abs(value) < 1e-12 ? 0.0 : value);
    return text;
}

std::string valueOf(const Group& group, const TextEncoding& encoding)
{
    if (group.kind() == GroupKind::real) return number(group.real());
    if (group.kind() == GroupKind::handle && !group.isMalformed()) return std::to_string(group.handle());
    if (isInteger(group.kind())) return std::to_string(group.integer());
    std::string bytes;
    group.appendBytes(bytes);
    const bool isName = group.code() == 2 || (group.code() >= 6 && group.code() <= 8) || group.code() == 100;
    for (const wchar_t c : encoding.decode(group.text())) {
        const auto character = static_cast<std::wint_t>(c);
        bytes += std::to_string(isName ? std::towupper(character) : character) + ' ';
    }
    return bytes;
}

std::string textOf(const Group& group, const TextEncoding& encoding)
{
    return std::to_string(group.code()) + "=" + valueOf(group, encoding);
}

/// Groups that say what is so without them.
bool isDefault(const Group& group)
{
    switch (group.code()) {
    case 62: return group.integer() == 256;
    case 6: return group.text() == "BYLAYER" || group.text() == "ByLayer";
    case 48:
    case 230: return group.real() == 1.0;
    case 39:
    case 210:
    case 220: return group.real() == 0.0;
    case 60:
    case 67:
    case 284: return group.integer() == 0;
    case 370:
    case 420: return group.integer() == -1;
    case 347:
    case 390: return group.handle() == 0;
    default: return false;
    }
}

/// Chunks may be cut anywhere: neighbours are joined.
DrawingContents::Values valuesOf(const Record& record, const TextEncoding& encoding)
{
    DrawingContents::Values values;
    std::string chunk;
    int chunkCode = 0;
    for (const Group& group : record.groups) {
        if (group.kind() == GroupKind::chunk && (chunk.empty() || chunkCode == group.code())) {
            group.appendBytes(chunk);
            chunkCode = group.code();
            continue;
        }
        if (chunkCode) values.insert(std::to_string(chunkCode) + chunk);
        chunkCode = 0;
        chunk.clear();
        if (!isDefault(group)) values.insert(textOf(group, encoding));
    }
    if (chunkCode) values.insert(std::to_string(chunkCode) + chunk);
    return values;
}

void addHeader(const Record& record, const TextEncoding& encoding, DrawingContents& to)
{
    DrawingContents::Values* values = nullptr;
    for (const Group& group : record.groups) {
        if (group.code() == 9) values = &to.header[std::string(group.text())];
        else if (values) values->insert(textOf(group, encoding));
    }
}

bool isVolatile(const std::string& variable)
{
    static const std::set<std::string> all = {
        "$ACADVER", "$ACADMAINTVER", "$DWGCODEPAGE", "$HANDSEED", "$TDUPDATE", "$TDUUPDATE", "$TDINDWG", "$TDUSRTIMER",
        "$LASTSAVEDBY", "$VERSIONGUID", "$FINGERPRINTGUID", "$EXTMIN", "$EXTMAX", "$PEXTMIN", "$PEXTMAX"};
    return all.count(variable) != 0;
}

bool holds(const DrawingContents::Values& all, const DrawingContents::Values& part)
{
    return std::includes(all.begin(), all.end(), part.begin(), part.end());
}

void addObject(const Record& record, const TextEncoding& encoding, const std::string& section, DrawingContents& to)
{
    const char* space = record.integer(67, 0) ? "paper " : "model ";
    if (section == "ENTITIES") ++to.entityCounts[space + std::string(record.name)];
    const bool hasHandle = section != "CLASSES" && record.name != "TABLE" && record.handle() != 0;
    if (hasHandle) to.objects[record.handle()] = {std::string(record.name), valuesOf(record, encoding)};
}
} // namespace

DrawingContents DrawingContents::of(GroupReader& reader)
{
    DrawingContents contents;
    RecordStream records(reader);
    std::string section;
    while (records.next()) {
        const Record& record = records.record();
        const Group* name = record.find(2);
        if (record.name != "SECTION") addObject(record, reader.encoding(), section, contents);
        else if (name) section = name->text();
        if (record.name == "SECTION" && section == "HEADER") addHeader(record, reader.encoding(), contents);
    }
    return contents;
}

std::vector<std::string> lostBetween(const DrawingContents& before, const DrawingContents& after)
{
    std::vector<std::string> lost;
    for (const auto& [variable, values] : before.header) {
        const auto at = after.header.find(variable);
        if (!isVolatile(variable) && (at == after.header.end() || !holds(at->second, values))) lost.push_back(variable);
    }
    for (const auto& [handle, object] : before.objects) {
        const auto at = after.objects.find(handle);
        const bool isThere = at != after.objects.end() && at->second.name == object.name;
        if (isThere && holds(at->second.values, object.values)) continue;
        lost.push_back(object.name + " " + std::to_string(handle));
    }
    return lost;
}
} // namespace dxftest

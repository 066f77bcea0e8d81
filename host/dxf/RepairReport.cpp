#include "RepairReport.h"

#include "NumberText.h"

namespace dxf
{
const char* nameOf(RepairCode code)
{
    switch (code) {
    case RepairCode::badGroup: return "badGroup";
    case RepairCode::badValue: return "badValue";
    case RepairCode::badHandle: return "badHandle";
    case RepairCode::duplicateHandle: return "duplicateHandle";
    case RepairCode::duplicateName: return "duplicateName";
    case RepairCode::missingName: return "missingName";
    case RepairCode::undefinedName: return "undefinedName";
    case RepairCode::strayRecord: return "strayRecord";
    case RepairCode::noBlockEnd: return "noBlockEnd";
    case RepairCode::missingSection: return "missingSection";
    case RepairCode::missingTable: return "missingTable";
    }
    return "unknown";
}

std::string textOf(const Repair& repair)
{
    std::string text;
    if (repair.position) text += "line " + std::to_string(repair.position) + ": ";
    text += repair.record;
    if (repair.handle) {
        char digits[longestNumber];
        text += ' ';
        text.append(digits, writeHex(digits, repair.handle));
    }
    if (!repair.record.empty() || repair.handle) text += ": ";
    return text + repair.reason + " (" + nameOf(repair.code) + ")";
}

void RepairReport::add(Repair repair)
{
    if (_count++ < capacity) _kept.push_back(std::move(repair));
}
} // namespace dxf

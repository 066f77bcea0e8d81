#include "RecordClass.h"

#include <map>
#include <string>

namespace
{
std::map<std::string, RecordChooser, std::less<>>& choosers()
{
    static std::map<std::string, RecordChooser, std::less<>> all;
    return all;
}
} // namespace

RecordChoice::RecordChoice(const char* recordName, RecordChooser chooser) { choosers()[recordName] = chooser; }

RecordKind recordKindOf(std::string_view recordName)
{
    const auto at = choosers().find(recordName);
    if (at != choosers().end()) return {nullptr, at->second};
    const std::wstring wide(recordName.begin(), recordName.end());
    AcRxClass* found = acrxClassOfDxfName(wide.c_str());
    return {found, nullptr};
}

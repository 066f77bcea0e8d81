#include "SelectionMode.h"

#include "VariableStore.h"

namespace
{
using ed::SelectionMethod;
using ed::SelectionMode;

/// The marks that may stand before a name.
bool isMark(wchar_t c)
{
    return c == L'_' || c == L'+';
}

void skipMarks(std::wstring_view& rest)
{
    while (!rest.empty() && isMark(rest.front())) rest.remove_prefix(1);
}

bool take(std::wstring_view& rest, std::wstring_view what)
{
    if (rest.substr(0, what.size()) != what) return false;
    rest.remove_prefix(what.size());
    return true;
}

void readMethod(std::wstring_view& rest, SelectionMode& mode)
{
    static constexpr std::pair<std::wstring_view, SelectionMethod> all[] = {
        {L"WP", SelectionMethod::windowPolygon},
        {L"CP", SelectionMethod::crossingPolygon},
        {L"X", SelectionMethod::whole},
        {L"A", SelectionMethod::all},
        {L"W", SelectionMethod::window},
        {L"C", SelectionMethod::crossing},
        {L"B", SelectionMethod::box},
        {L"F", SelectionMethod::fence},
        {L"L", SelectionMethod::last},
        {L"P", SelectionMethod::previous},
        {L"I", SelectionMethod::implied},
        {L"G", SelectionMethod::group},
        {L"M", SelectionMethod::ask},
    };
    for (const auto& [name, method] : all) {
        if (!take(rest, name)) continue;
        mode.method = method;
        return;
    }
}

/// The switch of an option's letter; null for one that changes nothing.
bool SelectionMode::*optionOf(wchar_t letter)
{
    switch (letter) {
    case L'S':
        return &SelectionMode::isSingle;
    case L'E':
        return &SelectionMode::takesAllUnderBox;
    case L'.':
        return &SelectionMode::picksOnly;
    case L'$':
        return &SelectionMode::hasPrompts;
    case L'L':
        return &SelectionMode::rejectsLocked;
    case L'P':
        return &SelectionMode::rejectsViewports;
    case L'D':
        return &SelectionMode::keepsDoubles;
    case L'K':
        return &SelectionMode::callsForKeywords;
    case L'?':
        return &SelectionMode::callsForOthers;
    default:
        return nullptr;
    }
}

bool readOption(std::wstring_view& rest, SelectionMode& mode)
{
    if (take(rest, L"-I")) return mode.leavesImplied = true;
    if (take(rest, L"#")) return mode.isNongeometric = true;
    if (take(rest, L".")) return mode.picksOnly = true;
    if (!take(rest, L":") || rest.empty()) return false;
    skipMarks(rest);
    if (rest.empty()) return false;
    bool SelectionMode::*option = optionOf(rest.front());
    if (!option && std::wstring_view(L"NUVR").find(rest.front()) == std::wstring_view::npos) return false;
    if (option) mode.*option = true;
    rest.remove_prefix(1);
    return true;
}
} // namespace

std::optional<SelectionMode> SelectionMode::read(const wchar_t* text)
{
    const std::wstring upper = upperCase(text ? text : L"");
    std::wstring_view rest = upper;
    SelectionMode mode;
    skipMarks(rest);
    readMethod(rest, mode);
    for (skipMarks(rest); !rest.empty(); skipMarks(rest)) {
        if (!readOption(rest, mode)) return std::nullopt;
    }
    return mode;
}

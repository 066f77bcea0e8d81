#include "SelectionKeywords.h"

#include "VariableStore.h"

namespace
{
struct Name {
    std::wstring_view full;
    std::size_t capitals; ///< how many letters must be there
    ed::SelectionKeyword keyword;
};
using Keyword = ed::SelectionKeyword;

constexpr Name names[] = {
    {L"WINDOW", 1, Keyword::window},
    {L"LAST", 1, Keyword::last},
    {L"CROSSING", 1, Keyword::crossing},
    {L"BOX", 3, Keyword::box},
    {L"ALL", 3, Keyword::all},
    {L"FENCE", 1, Keyword::fence},
    {L"WPOLYGON", 2, Keyword::windowPolygon},
    {L"CPOLYGON", 2, Keyword::crossingPolygon},
    {L"GROUP", 1, Keyword::group},
    {L"ADD", 1, Keyword::add},
    {L"REMOVE", 1, Keyword::remove},
    {L"MULTIPLE", 1, Keyword::multiple},
    {L"PREVIOUS", 1, Keyword::previous},
    {L"UNDO", 1, Keyword::undo},
    {L"AUTO", 2, Keyword::automatic},
    {L"SINGLE", 2, Keyword::single},
};
} // namespace

const wchar_t* const ed::invalidSelectionText =
    L"*Invalid selection*\nExpects a point or Window/Last/Crossing/BOX/ALL/Fence/WPolygon/CPolygon/Group/Add/Remove/"
    L"Multiple/Previous/Undo/AUto/SIngle\n";

std::optional<ed::SelectionKeyword> ed::selectionKeyword(const std::wstring& answer)
{
    const std::wstring word = upperCase(!answer.empty() && answer[0] == L'_' ? answer.substr(1) : answer);
    for (const Name& name : names) {
        if (word.size() >= name.capitals && name.full.substr(0, word.size()) == word) return name.keyword;
    }
    return std::nullopt;
}

#include "Wildcard.h"

#include "CaseMap.h"

#include <vector>

namespace
{
using namespace win32;

/// Which prefixes of the name a part of the pattern has matched: reached[i] stands for the first i
/// characters. Advanced one pattern character at a time, which keeps the cost below the product of both
/// lengths whatever the pattern.
using Reached = std::vector<bool>;

Reached afterStar(const Reached& before)
{
    Reached after = before;
    for (std::size_t i = 1; i < after.size(); ++i)
        after[i] = after[i] || after[i - 1];
    return after;
}

Reached afterQuestionMark(const Reached& before, std::wstring_view name)
{
    Reached after(before.size(), false);
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (!before[i]) continue;
        if (i == name.size() || name[i] == L'.') after[i] = true;
        if (i < name.size()) after[i + 1] = true;
    }
    return after;
}

Reached afterCharacter(const Reached& before, std::wstring_view name, wchar_t c)
{
    Reached after(before.size(), false);
    for (std::size_t i = 0; i < name.size(); ++i)
        after[i + 1] = before[i] && toUpper(name[i]) == toUpper(c);
    return after;
}

bool isOnlyWildcards(std::wstring_view pattern)
{
    return pattern.find_first_not_of(L"*?") == std::wstring_view::npos;
}

/// A dot that only wildcards follow is also matched by the end of a name.
Reached afterDot(const Reached& before, std::wstring_view name, std::wstring_view rest)
{
    Reached after = afterCharacter(before, name, L'.');
    if (isOnlyWildcards(rest) && before.back()) after.back() = true;
    return after;
}
} // namespace

namespace win32
{
bool hasWildcard(std::wstring_view name)
{
    return name.find_first_of(L"*?") != std::wstring_view::npos;
}

bool matchesWildcard(std::wstring_view name, std::wstring_view pattern)
{
    if (pattern == L"*.") return name.find(L'.') == std::wstring_view::npos;
    Reached reached(name.size() + 1, false);
    reached[0] = true;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == L'*')
            reached = afterStar(reached);
        else if (pattern[i] == L'?')
            reached = afterQuestionMark(reached, name);
        else if (pattern[i] == L'.')
            reached = afterDot(reached, name, pattern.substr(i + 1));
        else
            reached = afterCharacter(reached, name, pattern[i]);
    }
    return reached.back();
}
} // namespace win32

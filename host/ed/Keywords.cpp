#include "Keywords.h"

#include "VariableStore.h"

#include <algorithm>

namespace
{
bool isCapital(wchar_t c)
{
    if (c >= L'0' && c <= L'9') return true;
    wchar_t text[] = {c, L'\0'};
    _wcslwr_s(text);
    return text[0] != c;
}

/// The first run of capitals; the whole word when it has none.
std::wstring capitalsOf(std::wstring_view word)
{
    const auto first = std::find_if(word.begin(), word.end(), isCapital);
    if (first == word.end()) return std::wstring(word);
    return std::wstring(first, std::find_if_not(first, word.end(), isCapital));
}

std::vector<std::wstring_view> wordsOf(std::wstring_view text)
{
    std::vector<std::wstring_view> words;
    for (std::size_t at = text.find_first_not_of(L' '); at != std::wstring_view::npos;) {
        const std::size_t end = std::min(text.find(L' ', at), text.size());
        words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(L' ', end);
    }
    return words;
}
} // namespace

namespace ed
{
KeywordList::KeywordList(std::wstring_view specification)
{
    bool global = false;
    for (std::wstring_view word : wordsOf(specification)) {
        if (word[0] == L'_') {
            global = true;
            word.remove_prefix(1);
        }
        if (!word.empty()) (global ? mGlobal : mLocal).push_back(keywordOf(word));
    }
    if (mLocal.empty()) mLocal = mGlobal;
}

KeywordList::Keyword KeywordList::keywordOf(std::wstring_view word)
{
    const std::size_t comma = word.find(L',');
    if (comma == std::wstring_view::npos || comma == 0)
        return {std::wstring(word), upperCase(capitalsOf(word))};
    return {std::wstring(word.substr(0, comma)), upperCase(std::wstring(word.substr(comma + 1)))};
}

// "eXit" is meant by X, XI, EX and EXIT, not by E.
bool KeywordList::Keyword::accepts(const std::wstring& typed) const
{
    if (typed == required) return true;
    const std::wstring whole = upperCase(text);
    const std::size_t at = whole.find(required);
    if (at == std::wstring::npos) return typed == whole;
    const bool fromCapitals = typed.size() >= required.size() && whole.compare(at, typed.size(), typed) == 0;
    return fromCapitals ||
           (typed.size() >= at + required.size() && whole.compare(0, typed.size(), typed) == 0);
}

std::optional<std::size_t> KeywordList::find(const std::vector<Keyword>& keywords, std::wstring_view typed)
{
    const std::wstring capitals = upperCase(std::wstring(typed));
    for (std::size_t i = 0; i < keywords.size(); ++i) {
        if (keywords[i].accepts(capitals)) return i;
    }
    return std::nullopt;
}

std::optional<std::size_t> KeywordList::match(std::wstring_view typed) const
{
    if (typed.empty()) return std::nullopt;
    if (typed[0] != L'_') return find(mLocal, typed);
    const std::vector<Keyword>& meant = mGlobal.empty() ? mLocal : mGlobal;
    const std::optional<std::size_t> found = typed.size() > 1 ? find(meant, typed.substr(1)) : std::nullopt;
    return found && *found < mLocal.size() ? found : std::nullopt;
}

const std::wstring& KeywordList::name(std::size_t index) const
{
    return index < mGlobal.size() ? mGlobal[index].text : mLocal[index].text;
}
} // namespace ed

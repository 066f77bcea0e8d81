#include "Ask.h"

#include "CommandLine.h"
#include "Faults.h"
#include "Script.h"

#include <cwctype>
#include <sstream>

namespace
{
/// Whether a text is a beginning of the keyword that has all of its capitals and digits.
bool shortens(const std::wstring& text, const std::wstring& keyword)
{
    std::size_t least = 0;
    for (std::size_t i = 0; i < keyword.size(); ++i) {
        if (!std::iswlower(static_cast<std::wint_t>(keyword[i]))) least = i + 1;
    }
    const bool fits = text.size() >= least && text.size() <= keyword.size();
    return fits && _wcsnicmp(text.c_str(), keyword.c_str(), text.size()) == 0;
}
} // namespace

namespace commands
{
std::optional<std::wstring> ask(const std::wstring& prompt, ed::Reading reading)
{
    ed::print(prompt);
    const ed::Answer answer = ed::currentInput().next(reading);
    if (answer.kind == ed::Answer::Kind::text) return answer.text;
    return answer.kind == ed::Answer::Kind::enter ? std::optional<std::wstring>(L"") : std::nullopt;
}

std::optional<std::wstring> askFile(const std::wstring& prompt)
{
    return ask(prompt, ed::Reading::word);
}

std::wstring keywordOf(const std::wstring& text, const std::wstring& keywords)
{
    const std::wstring name = text.substr(std::min(text.find_first_not_of(L'_'), text.size()));
    std::wistringstream all(keywords);
    for (std::wstring keyword; all >> keyword;) {
        if (shortens(name, keyword)) return keyword;
    }
    return {};
}

std::optional<std::wstring> askKeyword(const std::wstring& prompt, const std::wstring& keywords,
                                       const std::wstring& byEnter)
{
    for (;;) {
        const std::optional<std::wstring> answer = ask(prompt);
        if (!answer) return std::nullopt;
        const std::wstring keyword = answer->empty() ? byEnter : keywordOf(*answer, keywords);
        if (!keyword.empty()) return keyword;
        if (scripts::isRunning()) {
            ed::fail(L"\"" + *answer + L"\" is none of the options.");
            return std::nullopt;
        }
        ed::print(L"Invalid option keyword.\n");
    }
}

bool askWhether(const std::wstring& prompt)
{
    return askKeyword(prompt, L"Yes No", L"No") == L"Yes";
}
} // namespace commands

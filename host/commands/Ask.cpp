#include "Ask.h"

#include "acedinput.h"
#include "CommandLine.h"

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

std::optional<std::wstring> askKeyword(const std::wstring& prompt, const std::wstring& keywords,
                                       const std::wstring& byEnter)
{
    ACHAR keyword[100];
    acedInitGet(0, keywords.c_str());
    const int code = acedGetKword(prompt.c_str(), keyword);
    if (code == RTNONE) return byEnter;
    return code == RTNORM ? std::optional<std::wstring>(keyword) : std::nullopt;
}

bool askWhether(const std::wstring& prompt)
{
    return askKeyword(prompt, L"Yes No", L"No") == L"Yes";
}
} // namespace commands

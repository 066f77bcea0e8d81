#include "InputRules.h"

#include "acedinput.h"
#include "HandOut.h"

#include <utility>

namespace
{
ed::InputRules& next()
{
    static ed::InputRules rules;
    return rules;
}

std::wstring& last()
{
    static std::wstring text;
    return text;
}
} // namespace

namespace ed
{
InputRules takeInputRules()
{
    return std::exchange(next(), {});
}
void setInputRules(InputRules rules)
{
    next() = std::move(rules);
}

const std::wstring& lastInput()
{
    return last();
}
void setLastInput(std::wstring text)
{
    last() = std::move(text);
}

int handOut(const std::wstring& from, ACHAR* text, std::size_t size)
{
    if (!text || size == 0) return RTERROR;
    const std::size_t length = std::min(from.size(), size - 1);
    std::wmemcpy(text, from.c_str(), length);
    text[length] = L'\0';
    return length == from.size() ? RTNORM : RTINPUTTRUNCATED;
}
} // namespace ed

int acedInitGet(int bits, const ACHAR* keywords)
{
    ed::setInputRules({bits, ed::KeywordList(keywords ? keywords : L"")});
    return RTNORM;
}

int acedGetInput(ACHAR* text, std::size_t size)
{
    return ed::handOut(ed::lastInput(), text, size);
}

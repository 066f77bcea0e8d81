#pragma once

/// What acedInitGet asked for, and what the last question was answered with.

#include "Keywords.h"

namespace ed
{
struct InputRules {
    int bits = 0; ///< RSG_...
    KeywordList keywords;
    bool has(int bit) const { return (bits & bit) != 0; }
};

/// The rules for the next question, which are used up by it.
InputRules takeInputRules();
void setInputRules(InputRules rules);

/// The text for acedGetInput.
const std::wstring& lastInput();
void setLastInput(std::wstring text);
} // namespace ed

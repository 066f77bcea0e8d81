#pragma once

/// One question at the command line: prompt, answer, complaint, and again.

#include "InputRules.h"
#include "InputSource.h"

namespace ed
{
/// What a reader of answers says to one.
enum class Verdict {
    good,
    notUnderstood, ///< it is no such thing; where any text is an answer, it is taken as text
    refused,       ///< it is, but may not be
    cancelled,     ///< a question that it led to was cancelled
};

/// How a question ended.
struct Reply {
    int code = RTCAN;                   ///< RTNORM, RTNONE, RTKWORD or RTCAN
    std::optional<std::size_t> keyword; ///< its place in the list; with RTKWORD none for other text
};

struct Question {
    std::wstring prompt;
    std::wstring requirement;       ///< what is said to an answer that is not understood
    std::wstring requirementOrWord; ///< the same when there are keywords too
    InputRules rules;
    bool promptShown = false; ///< the prompt stands there already
    bool seesMoves = false;   ///< the cursor's moves are answers too

    /// Reads an answer of kind text, or cursor; may change the message, which is what is said when it is
    /// refused.
    using Reader = std::function<Verdict(const Answer& answer, std::wstring& message)>;
    /// Asks until there is an answer. Ends for certain: every round uses one up, and no more answers are a
    /// cancel.
    Reply ask(const Reader& read) const;

private:
    std::optional<Reply> answered(const Answer& answer, const Reader& read) const;
    std::optional<Reply> answeredByText(const Answer& answer, const Reader& read) const;
    void complain(const std::wstring& message) const;
    const std::wstring& demand() const { return rules.keywords.empty() ? requirement : requirementOrWord; }
};

inline std::wstring promptText(const ACHAR* prompt)
{
    return prompt ? prompt : L"";
}
} // namespace ed

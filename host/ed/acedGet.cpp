/// Questions for texts and numbers.

#include "acedinput.h"
#include "CommandLine.h"
#include "HandOut.h"
#include "NumberRules.h"
#include "Question.h"
#include "TypedPoint.h"

#include <cstdint>
#include <limits>

namespace
{
using ed::Answer;
using ed::Question;
using ed::Reply;
using ed::Verdict;

Question questionOf(const ACHAR* prompt, const wchar_t* requirement, const wchar_t* requirementOrWord)
{
    Question question;
    question.prompt = ed::promptText(prompt);
    question.requirement = requirement;
    question.requirementOrWord = requirementOrWord;
    question.rules = ed::takeInputRules();
    return question;
}

/// A whole number in decimal digits; nothing for another text or one out of the range of long long.
std::optional<long long> wholeNumber(const std::wstring& text)
{
    const std::size_t first = !text.empty() && (text[0] == L'-' || text[0] == L'+') ? 1 : 0;
    const bool digits =
        text.size() > first && text.find_first_not_of(L"0123456789", first) == std::wstring::npos;
    if (!digits || text.size() - first > 18) return std::nullopt;
    return std::wcstoll(text.c_str(), nullptr, 10);
}

Verdict readInteger(const std::wstring& text, const ed::InputRules& rules, int& value, std::wstring& message)
{
    const std::optional<long long> read = wholeNumber(text);
    if (!read) return Verdict::notUnderstood;
    using Range = std::numeric_limits<std::int16_t>;
    if (*read < Range::min() || *read > Range::max()) {
        message = L"Requires an integer between -32768 and 32767.";
        return Verdict::refused;
    }
    const Verdict verdict = ed::checkNumber(static_cast<double>(*read), rules, message);
    if (verdict == Verdict::good) value = static_cast<int>(*read);
    return verdict;
}

Verdict notAmongKeywords(const Answer&, std::wstring&)
{
    return Verdict::notUnderstood;
}
} // namespace

ed::Verdict ed::checkNumber(double value, const InputRules& rules, std::wstring& message)
{
    const bool noZero = rules.has(RSG_NOZERO), noNegative = rules.has(RSG_NONEG);
    if (!(noZero && value == 0.0) && !(noNegative && value < 0.0)) return Verdict::good;
    message = !noNegative ? L"Value must be nonzero."
              : noZero    ? L"Value must be positive and nonzero."
                          : L"Value must be positive.";
    return Verdict::refused;
}

int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t size)
{
    constexpr const wchar_t* unknown = L"Invalid option keyword.";
    const Question question = questionOf(prompt, unknown, unknown);
    if (!result || size == 0 || (question.rules.keywords.empty() && !question.rules.has(RSG_OTHER)))
        return RTERROR;
    const Reply reply = question.ask(notAmongKeywords);
    return reply.code == RTKWORD ? ed::handOut(ed::lastInput(), result, size) : reply.code;
}

namespace
{
/// Asks until there is a text; RTNORM or RTCAN.
int askText(int cronly, const ACHAR* prompt, std::wstring& text)
{
    for (;;) {
        ed::print(ed::promptText(prompt));
        const Answer answer = ed::currentInput().next(cronly ? ed::Reading::line : ed::Reading::word);
        if (answer.kind == Answer::Kind::cancel) return RTCAN;
        if (answer.kind != Answer::Kind::text && answer.kind != Answer::Kind::enter) continue;
        text = answer.text;
        return RTNORM;
    }
}
} // namespace

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, std::size_t size)
{
    ed::takeInputRules();
    if (!result || size == 0) return RTERROR;
    std::wstring text;
    const int code = askText(cronly, prompt, text);
    return code == RTNORM ? ed::handOut(text, result, size) : code;
}

int acedGetString(int cronly, const ACHAR* prompt, AcString& result)
{
    ed::takeInputRules();
    std::wstring text;
    const int code = askText(cronly, prompt, text);
    if (code == RTNORM) result = AcString(text.c_str());
    return code;
}

int acedGetInt(const ACHAR* prompt, int* result)
{
    const Question question =
        questionOf(prompt, L"Requires an integer value.", L"Requires an integer value or option keyword.");
    if (!result) return RTERROR;
    int value = 0;
    const Reply reply = question.ask([&](const Answer& answer, std::wstring& message) {
        return readInteger(answer.text, question.rules, value, message);
    });
    if (reply.code == RTNORM) *result = value;
    return reply.code;
}

int acedGetReal(const ACHAR* prompt, ads_real* result)
{
    const Question question =
        questionOf(prompt, L"Requires numeric value.", L"Requires numeric value or option keyword.");
    if (!result) return RTERROR;
    double value = 0.0;
    const Reply reply = question.ask([&](const Answer& answer, std::wstring& message) {
        const std::optional<double> read = ed::readLength(answer.text, ed::currentUnits());
        if (!read) return Verdict::notUnderstood;
        value = *read;
        return ed::checkNumber(value, question.rules, message);
    });
    if (reply.code == RTNORM) *result = value;
    return reply.code;
}

#include "Question.h"

#include "acedinput.h"
#include "CommandLine.h"
#include "Faults.h"
#include "Script.h"

namespace ed
{
/// A script that answers wrong goes no further.
void Question::complain(const std::wstring& message) const
{
    const std::wstring said = message.empty() ? L"Invalid input." : message;
    if (scripts::isRunning()) return fail(said);
    if (!message.empty()) print(message + L"\n");
}

std::optional<Reply> Question::answeredByText(const Answer& answer, const Reader& read) const
{
    const bool typed = answer.kind == Answer::Kind::text;
    if (const std::optional<std::size_t> keyword = typed ? rules.keywords.match(answer.text) : std::nullopt) {
        setLastInput(rules.keywords.name(*keyword));
        return Reply{RTKWORD, keyword};
    }
    std::wstring message = demand();
    switch (read(answer, message)) {
    case Verdict::good:
        return Reply{RTNORM, {}};
    case Verdict::cancelled:
        return Reply{RTCAN, {}};
    case Verdict::notUnderstood:
        if (!typed || !rules.has(RSG_OTHER)) break;
        setLastInput(answer.text);
        return Reply{RTKWORD, {}};
    case Verdict::refused:
        break;
    }
    complain(message);
    return std::nullopt;
}

std::optional<Reply> Question::answered(const Answer& answer, const Reader& read) const
{
    switch (answer.kind) {
    case Answer::Kind::cancel:
        return Reply{RTCAN, {}};
    case Answer::Kind::enter:
        if (!rules.has(RSG_NONULL)) return Reply{RTNONE, {}};
        break;
    case Answer::Kind::text:
    case Answer::Kind::cursor:
        return answeredByText(answer, read);
    default:
        break;
    }
    complain(demand());
    return std::nullopt;
}

Reply Question::ask(const Reader& read) const
{
    for (bool shown = promptShown;; shown = false) {
        if (!shown) print(prompt);
        InputSource& input = currentInput();
        const Answer answer = seesMoves ? input.nextOrMove(Reading::token) : input.next(Reading::token);
        if (const std::optional<Reply> reply = answered(answer, read)) return *reply;
        if (scripts::isRunning()) return Reply{RTCAN, {}};
    }
}
} // namespace ed

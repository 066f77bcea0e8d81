#include "PointAnswers.h"

#include "acedinput.h"
#include "CommandLine.h"
#include "NumberRules.h"

#include <cmath>

namespace
{
using ed::Answer;
using ed::NumberReply;
using ed::PointContext;
using ed::PointWish;
using ed::Question;
using ed::Verdict;

constexpr double fullTurn = 6.28318530717958647692;

Question questionOf(const PointWish& wish, std::wstring requirement, std::wstring requirementOrWord)
{
    Question question;
    question.prompt = wish.prompt;
    question.requirement = std::move(requirement);
    question.requirementOrWord = std::move(requirementOrWord);
    question.rules = wish.rules;
    question.seesMoves = wish.seesMoves;
    question.promptShown = wish.promptShown;
    return question;
}

/// A number alone is other text before it is a point, where other text is an answer, unless distances come
/// first.
PointContext contextOf(const PointWish& wish)
{
    PointContext context = wish.context;
    const bool text = wish.rules.has(RSG_OTHER) && !wish.rules.has(RSG_DDISTFIRST);
    if (wish.rules.has(RSG_NODDIST) || text) context.directDistance = false;
    if (wish.rules.has(RSG_NOLIM)) context.checkLimits = false;
    return context;
}

/// Two points: the base, or one that is asked for first, and the one that the answer leads to.
struct Span {
    AcGePoint3d from, to;
};

Verdict readSpan(const Answer& answer, const PointWish& wish, Span& span, std::wstring& message)
{
    PointContext context = contextOf(wish);
    context.directDistance = false;
    AcGePoint3d point;
    const Verdict verdict = ed::readPoint(answer, context, point, message);
    if (verdict != Verdict::good) return verdict;
    if (context.base || answer.kind == Answer::Kind::cursor) {
        span = {context.base.value_or(point), point};
        return verdict;
    }
    ed::setLastPoint(point);
    PointWish second;
    second.prompt = L"Specify second point: ";
    second.rules.bits = RSG_NONULL | (wish.rules.bits & RSG_NOLIM) | RSG_NODDIST;
    second.context.base = point;
    const ed::PointReply reply = ed::askPoint(second);
    span = {point, reply.point};
    return reply.code == RTNORM ? Verdict::good : Verdict::cancelled;
}

/// Asks for a number that may be shown by points.
NumberReply askNumber(const PointWish& wish, const Question& question,
                      const std::function<std::optional<double>(const std::wstring&)>& typed,
                      const std::function<double(const Span&)>& measured)
{
    NumberReply reply;
    std::optional<AcGePoint3d> picked;
    const ed::Reply asked = question.ask([&](const Answer& answer, std::wstring& message) {
        const std::optional<double> number =
            answer.kind == Answer::Kind::text ? typed(answer.text) : std::nullopt;
        Span span;
        const Verdict verdict = number ? Verdict::good : readSpan(answer, wish, span, message);
        if (verdict != Verdict::good) return verdict;
        picked = number ? std::nullopt : std::optional(span.to);
        reply.value = number ? *number : measured(span);
        reply.moved = answer.kind == Answer::Kind::cursor;
        return reply.moved ? Verdict::good : ed::checkNumber(reply.value, wish.rules, message);
    });
    static_cast<ed::Reply&>(reply) = asked;
    if (asked.code == RTNORM && picked && !reply.moved && !wish.keepsLastPoint) ed::setLastPoint(*picked);
    return reply;
}
} // namespace

namespace ed
{
double withinTurn(double angle)
{
    double turned = std::fmod(angle, fullTurn);
    if (turned < 0.0) turned += fullTurn;
    return turned < fullTurn ? turned : 0.0;
}

PointReply askPoint(const PointWish& wish)
{
    const Question question = questionOf(wish, L"Invalid point.", L"Point or option keyword required.");
    const PointContext context = contextOf(wish);
    PointReply reply;
    static_cast<Reply&>(reply) = question.ask([&](const Answer& answer, std::wstring& message) {
        reply.moved = answer.kind == Answer::Kind::cursor;
        return readPoint(answer, context, reply.point, message);
    });
    return reply;
}

NumberReply askDistance(const PointWish& wish)
{
    const bool based = wish.context.base.has_value();
    const std::wstring points = based ? L"second point" : L"two points";
    const Question question = questionOf(wish, L"Requires numeric distance or " + points + L".",
                                         L"Requires numeric distance, " + points + L", or option keyword.");
    const bool flat = wish.rules.has(RSG_2D);
    return askNumber(
        wish, question, [](const std::wstring& text) { return readLength(text, currentUnits()); },
        [flat](const Span& span) {
            const AcGeVector3d offset = span.to - span.from;
            return flat ? std::hypot(offset.x, offset.y) : offset.length();
        });
}

NumberReply askDirection(const PointWish& wish)
{
    const bool based = wish.context.base.has_value();
    const std::wstring points = based ? L"second point" : L"two points";
    const Question question =
        questionOf(wish, L"Requires valid numeric angle or " + points + L".",
                   L"Requires valid numeric angle, " + points + L", or option keyword.");
    const auto typed = [](const std::wstring& text) -> std::optional<double> {
        const std::optional<double> angle =
            readDirection(text[0] == L'<' ? text.substr(1) : text, currentUnits());
        return angle ? std::optional(withinTurn(*angle)) : std::nullopt;
    };
    return askNumber(wish, question, typed, [](const Span& span) {
        return withinTurn(std::atan2(span.to.y - span.from.y, span.to.x - span.from.x));
    });
}
} // namespace ed

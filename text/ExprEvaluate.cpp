#include "ExprEvaluate.h"

#include "ExprOperators.h"
#include "ExprTokens.h"
#include "ExprVariables.h"

#include <cstdlib>
#include <stdexcept>

namespace
{
using namespace expression;

/// Applies operators to operands in the order of their precedence (Dijkstra's shunting yard).
class Evaluator
{
public:
    Evaluator() { m_operators.push(endMarker); }

    /// Takes the next token of an expression. Behind an outcome other than done it takes no more.
    Outcome take(const Token& token);
    /// The value of the last expression of the list.
    double result() const;

private:
    Outcome takeOperator(OperatorIndex index);
    Outcome applyBefore(const Operator& incoming);
    Outcome close();

    Operands m_operands;
    InlineStack<OperatorIndex, 64> m_operators; // never empty: nothing takes the end marker off
    Variables m_variables;
};

Outcome Evaluator::take(const Token& token)
{
    switch (token.kind) {
    case TokenKind::number:
        m_operands.push({nullptr, token.number});
        return Outcome::done;
    case TokenKind::variable:
        m_operands.push({&m_variables.find(token.name), 0});
        return Outcome::done;
    default:
        return takeOperator(token.operation);
    }
}

double Evaluator::result() const
{
    if (m_operands.empty()) throw std::runtime_error("operand imbalance");
    return m_operands.top().value();
}

Outcome Evaluator::takeOperator(OperatorIndex index)
{
    if (index != openParenthesis) {
        const Outcome outcome = applyBefore(operators[index]);
        if (outcome != Outcome::done) return outcome;
    }
    if (index == closeParenthesis) return close();
    m_operators.push(index);
    return Outcome::done;
}

/// Applies what binds tighter than the incoming operator.
Outcome Evaluator::applyBefore(const Operator& incoming)
{
    // Of equal precedence the earlier operator is applied first when the incoming one groups from the left.
    const int limit = incoming.precedence - incoming.fromRight;
    while (operators[m_operators.top()].precedence <= limit) {
        const Outcome outcome = operators[m_operators.pop()].apply(m_operands);
        if (outcome != Outcome::done) return outcome;
    }
    return Outcome::done;
}

/// A ";" in the text drops the parentheses that are open before it.
Outcome Evaluator::close()
{
    if (m_operators.top() != openParenthesis) return Outcome::noParenthesis;
    m_operators.pop();
    return Outcome::done;
}

/// Ends the process by the processor's arithmetic fault.
[[noreturn]] void divideByZero()
{
    // Volatile, or the compiler would conclude that this is never called.
    volatile int divisor = 0;
    divisor = 1 % divisor; // NOLINT(clang-analyzer-core.DivideZero): it is the purpose
    std::abort();          // where the processor lets it pass
}

[[noreturn]] void fail(Outcome outcome)
{
    switch (outcome) {
    case Outcome::notVariable:
        throw std::runtime_error("Not left operand");
    case Outcome::noParenthesis:
        throw std::runtime_error("parenthese unmatch");
    case Outcome::zeroDivisor:
        divideByZero();
    default:
        throw std::runtime_error("syntax error");
    }
}

/// A fault of writing further on comes before a failure to evaluate what precedes it.
[[noreturn]] void failBehind(Tokenizer& tokenizer, Outcome outcome)
{
    while (tokenizer.next().kind != TokenKind::end) {
    }
    fail(outcome);
}
} // namespace

double ExprEvaluate(std::string expression)
{
    Tokenizer tokenizer(expression);
    Evaluator evaluator;
    for (;;) {
        const Token token = tokenizer.next();
        const Outcome outcome = evaluator.take(token);
        if (outcome != Outcome::done) failBehind(tokenizer, outcome);
        if (token.kind == TokenKind::end) return evaluator.result();
    }
}

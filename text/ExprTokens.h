#pragma once

/// The words of an expression.

#include "ExprOperators.h"

#include <cstddef>
#include <string_view>

namespace expression
{
enum class TokenKind { number, variable, operation, end };

struct Token {
    TokenKind kind;
    OperatorIndex operation;
    double number;
    std::string_view name; ///< of a variable
};

/// Takes an expression apart, from left to right. The text has to outlive the tokenizer and its tokens.
class Tokenizer
{
public:
    explicit Tokenizer(std::string_view text) : m_at(text.data()), m_end(text.data() + text.size()) {}

    /// The next token; behind the last one an `end`, again and again, which is the end marker as an
    /// operation.
    /// @throw std::runtime_error as ExprEvaluate says, for a symbol, an imbalance or a parenthesis
    Token next();

private:
    Token finish() const;
    Token number();
    Token word();
    Token symbol();
    Token operation(OperatorIndex index);
    void countOperand();
    void countParenthesis(OperatorIndex index);
    std::string_view run(unsigned char characterClass);

    const char* m_at;
    const char* m_end;
    std::ptrdiff_t m_pendingOperands = 0; ///< read, and not yet taken by an operator
    std::ptrdiff_t m_openParentheses = 0;
};

/// The value of a run of digits and points, up to the second point: 0 when it has no digit, the largest
/// double when it is too large for one.
double valueOfNumber(std::string_view run);
} // namespace expression

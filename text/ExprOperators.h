#pragma once

/// The operators of ExprEvaluate: their table and what they do with the operands.

#include "InlineStack.h"

#include <string_view>

namespace expression
{
/// A number, or a variable whose value is read when it is used.
struct Operand {
    double* variable; ///< null for a number
    double number;

    double value() const { return variable ? *variable : number; }
};

using Operands = InlineStack<Operand, 32>;

/// How the application of an operator ended.
enum class Outcome {
    done,
    tooFewOperands,
    notVariable,
    noParenthesis, ///< a ")" without its "("
    zeroDivisor,   ///< of an integer division
};

struct Operator {
    std::string_view name;
    /// Takes the operands off the stack and puts the result on it.
    Outcome (*apply)(Operands&);
    int precedence; ///< a smaller number binds tighter
    int effect;     ///< by how many operands the stack grows
    bool fromRight; ///< of equal precedence, the right one is applied first
};

/// Operators are named by their place in this table.
extern const Operator operators[];

using OperatorIndex = unsigned char;
constexpr OperatorIndex noOperator = 255;
constexpr OperatorIndex endMarker = 0;
constexpr OperatorIndex openParenthesis = 1;
constexpr OperatorIndex closeParenthesis = 2;
constexpr OperatorIndex separator = 55;

/// The operator with this name, which is not empty, or noOperator. Of prefix and other operators that share a
/// name it is the other one.
OperatorIndex findOperator(std::string_view name);

/// The operator with the longest name that the text, which is not empty, starts with, or noOperator; of those
/// that share a name as above.
OperatorIndex findOperatorAt(std::string_view text);

/// The prefix operator that has the name of this one; itself when there is none.
OperatorIndex prefixVariant(OperatorIndex index);
} // namespace expression

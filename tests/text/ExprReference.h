#pragma once

/// A second evaluator of the expressions that ExprEvaluate takes, slow and made in another way: the operators
/// that wait are the calls of a recursive function. It takes expressions of some thousand characters.

#include <random>
#include <string>

struct ExprVerdict {
    enum Kind { value, failure, fault } kind; ///< a fault is the division of integers by 0
    double number = 0;
    std::string message;
};

ExprVerdict referenceVerdict(const std::string& expression);

/// What ExprEvaluate does with an expression that is no fault.
ExprVerdict verdict(const std::string& expression);

/// Both are the same number, NaN being one number, or the same message.
bool operator==(const ExprVerdict& a, const ExprVerdict& b);
std::ostream& operator<<(std::ostream& stream, const ExprVerdict& verdict);

/// An expression that is well formed, but for assignments to what is not a variable.
std::string randomExpression(std::mt19937& random, int depth);
/// Words of expressions in any order.
std::string randomWords(std::mt19937& random);

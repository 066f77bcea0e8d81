#pragma once

/// A second evaluator of the expressions that ExprEvaluate takes, slow and made in another way: the operators
/// that wait are the calls of a recursive function. It takes expressions of some thousand characters.

#include <iosfwd>
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

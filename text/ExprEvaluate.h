#pragma once

#include <afxv_dll.h>

#include <string>

/// The value of an arithmetic and logical expression, in double arithmetic.
///
///     ExprEvaluate("(1200 - 2*25)/150 + 1")         8.666...
///     ExprEvaluate("w=300, h=500, w*h/1000000")     0.15
///
/// From the tightest to the loosest, operators of one line grouping from the left unless it says otherwise:
///
///     a++  a--                             the variable's value before the change
///     +a -a !a ~a ++a --a  functions       from the right, so that -2^2 is 4
///     ^                                    power: 2^3^2 is 64
///     * / %
///     + -
///     << >>
///     < > <= >=
///     == !=
///     &
///     >< xor                               bitwise exclusive or
///     |
///     &&
///     ||
///     = += -= *= /= %= &= |= <<= >>=       from the left: a=b=3 sets a to b and then to 3
///     ,                                    parts a list, whose value is that of its last expression
///
/// Functions: sin, cos, tan, asin, acos, atan (radians), sqrt, exp, abs, ceil, floor, log (natural), int
/// (whole part) and bool (0 for 0, else 1). They are prefix operators of one operand: sin(x)^2 is the square
/// of sin(x), and sin 1+2 is sin(1)+2.
///
/// Numbers consist of digits and points and are read up to the second point; they have no exponent. A point
/// alone is 0, and a number above the range of double is its largest value. Names consist of letters,
/// digits, "_", "[" and "]" and do not start with a digit; case counts. A name that is no operator is a
/// variable: it lives for one call and starts at 0. Its value is read when an operator is applied to it, so
/// that a+(a=3) is 6. Space, tab and line ends may stand between all of these, and a ";" at the end. A list
/// in parentheses leaves all of its values as operands, so that 1+(2,3) adds the last two.
///
/// && and || evaluate both sides; these, the comparisons and ! give 1 or 0. A division by zero gives an
/// infinity or NaN. % & | >< xor ~ << >> ! and int take 32-bit signed integers: their operands lose their
/// decimals, and a value out of that range, an infinity or NaN becomes -2147483648. Shifts are by the right
/// operand modulo 32, >> keeps the sign, and a result of << keeps its lower 32 bits. -2147483648 % -1 is 0.
///
/// The whole text is checked for faults of writing before the first operator is applied. It may be of any
/// length and nested to any depth: time and memory grow in proportion to it. May be called from any thread.
///
/// Attention: when the right operand of % or %= becomes 0, the process ends with the processor's arithmetic
/// fault, as a division of integers does. It is not an exception, and it is for the caller to rule out.
///
/// @throw std::runtime_error with the text
///   "unrecongized symbol: " and the character: no operator, name or number starts with it
///   "operand imbalance"   two operands without an operator between them, or no operand at all
///   "parenthese unmatch"  a parenthesis without its counterpart
///   "syntax error"        an operator without its operands
///   "Not left operand"    an assignment, increment or decrement of what is not a variable
/// @throw std::bad_alloc
AFX_EXT_API double ExprEvaluate(std::string expression);

#include "ExprOperators.h"

#include <climits>
#include <cmath>
#include <functional>
#include <iterator>
#include <type_traits>

namespace
{
using namespace expression;

/// The whole part as a 32-bit integer. Outside of its range the result is the one of the processor's own
/// conversion.
int truncated(double value)
{
    return value > INT_MIN - 1.0 && value < INT_MAX + 1.0 ? static_cast<int>(value) : INT_MIN;
}

constexpr int shiftMask = 31;

// What the standard library has no function object for. Like its own they take one or two doubles.

/// An operation on integers, of operands that lose their decimals.
template <class Compute>
struct OnIntegers {
    double operator()(double a) const { return Compute()(truncated(a)); }
    double operator()(double a, double b) const { return Compute()(truncated(a), truncated(b)); }
};

template <double (*function)(double)>
struct Function {
    double operator()(double a) const { return function(a); }
};

struct Power {
    double operator()(double a, double b) const { return std::pow(a, b); }
};

/// The divisor is not 0.
struct Remainder {
    // The smallest integer cannot be divided by -1: the quotient is out of range.
    int operator()(int a, int b) const { return b == -1 ? 0 : a % b; }
};

struct ShiftLeft {
    int operator()(int a, int b) const
    {
        return static_cast<int>(static_cast<unsigned>(a) << (b & shiftMask));
    }
};

struct ShiftRight {
    int operator()(int a, int b) const { return a >> (b & shiftMask); }
};

struct Same {
    double operator()(double a) const { return a; }
};

struct Second {
    double operator()(double, double b) const { return b; }
};

struct WholePart {
    int operator()(int a) const { return a; }
};

struct Truth {
    double operator()(double a) const { return a != 0; }
};

/// Whether the operation has a result with this second operand.
template <class Compute>
bool accepts(double right)
{
    return !std::is_same_v<Compute, OnIntegers<Remainder>> || truncated(right) != 0;
}

template <class Compute>
Outcome binary(Operands& operands)
{
    if (operands.empty()) return Outcome::tooFewOperands;
    const double right = operands.pop().value();
    if (operands.empty()) return Outcome::tooFewOperands;
    if (!accepts<Compute>(right)) return Outcome::zeroDivisor;
    operands.top() = {nullptr, static_cast<double>(Compute()(operands.top().value(), right))};
    return Outcome::done;
}

/// Leaves the variable itself, so that the result can be assigned to.
template <class Compute>
Outcome assign(Operands& operands)
{
    if (operands.empty()) return Outcome::tooFewOperands;
    const double right = operands.pop().value();
    if (operands.empty()) return Outcome::tooFewOperands;
    double* const variable = operands.top().variable;
    if (!variable) return Outcome::notVariable;
    if (!accepts<Compute>(right)) return Outcome::zeroDivisor;
    *variable = Compute()(*variable, right);
    return Outcome::done;
}

template <class Compute>
Outcome unary(Operands& operands)
{
    if (operands.empty()) return Outcome::tooFewOperands;
    operands.top() = {nullptr, Compute()(operands.top().value())};
    return Outcome::done;
}

template <int step>
Outcome changeBefore(Operands& operands)
{
    if (operands.empty()) return Outcome::tooFewOperands;
    if (!operands.top().variable) return Outcome::notVariable;
    *operands.top().variable += step;
    return Outcome::done;
}

template <int step>
Outcome changeAfter(Operands& operands)
{
    if (operands.empty()) return Outcome::tooFewOperands;
    double* const variable = operands.top().variable;
    if (!variable) return Outcome::notVariable;
    operands.top() = {nullptr, *variable};
    *variable += step;
    return Outcome::done;
}

Outcome nothing(Operands&)
{
    return Outcome::done;
}
} // namespace

namespace expression
{
// The two prefix operators in front of "+" and "-", and of the postfix "++" and "--", stand in the same
// order.
constexpr Operator operators[] = {
    {";", nothing, 254, 0, true},
    {"(", nothing, 253, 0, false},
    {")", nothing, 252, 0, false},
    {"^", binary<Power>, 3, -1, false},
    {"><", binary<OnIntegers<std::bit_xor<>>>, 10, -1, false},
    {"xor", binary<OnIntegers<std::bit_xor<>>>, 10, -1, false},
    {"+", unary<Same>, 2, 0, true},
    {"-", unary<std::negate<>>, 2, 0, true},
    {"+", binary<std::plus<>>, 5, -1, false},
    {"-", binary<std::minus<>>, 5, -1, false},
    {"*", binary<std::multiplies<>>, 4, -1, false},
    {"/", binary<std::divides<>>, 4, -1, false},
    {"%", binary<OnIntegers<Remainder>>, 4, -1, false},
    {"++", changeBefore<1>, 2, 0, true},
    {"--", changeBefore<-1>, 2, 0, true},
    {"++", changeAfter<1>, 1, 0, false},
    {"--", changeAfter<-1>, 1, 0, false},
    {"&&", binary<std::logical_and<>>, 12, -1, false},
    {"||", binary<std::logical_or<>>, 13, -1, false},
    {"!", unary<OnIntegers<std::logical_not<>>>, 2, 0, true},
    {"&", binary<OnIntegers<std::bit_and<>>>, 9, -1, false},
    {"|", binary<OnIntegers<std::bit_or<>>>, 11, -1, false},
    {"~", unary<OnIntegers<std::bit_not<>>>, 2, 0, true},
    {"<<", binary<OnIntegers<ShiftLeft>>, 6, -1, false},
    {">>", binary<OnIntegers<ShiftRight>>, 6, -1, false},
    {"=", assign<Second>, 15, -1, false},
    {"+=", assign<std::plus<>>, 15, -1, false},
    {"-=", assign<std::minus<>>, 15, -1, false},
    {"*=", assign<std::multiplies<>>, 15, -1, false},
    {"/=", assign<std::divides<>>, 15, -1, false},
    {"%=", assign<OnIntegers<Remainder>>, 15, -1, false},
    {"&=", assign<OnIntegers<std::bit_and<>>>, 15, -1, false},
    {"|=", assign<OnIntegers<std::bit_or<>>>, 15, -1, false},
    {"<<=", assign<OnIntegers<ShiftLeft>>, 15, -1, false},
    {">>=", assign<OnIntegers<ShiftRight>>, 15, -1, false},
    {">", binary<std::greater<>>, 7, -1, false},
    {"<", binary<std::less<>>, 7, -1, false},
    {">=", binary<std::greater_equal<>>, 7, -1, false},
    {"<=", binary<std::less_equal<>>, 7, -1, false},
    {"==", binary<std::equal_to<>>, 8, -1, false},
    {"!=", binary<std::not_equal_to<>>, 8, -1, false},
    {"sin", unary<Function<std::sin>>, 2, 0, true},
    {"cos", unary<Function<std::cos>>, 2, 0, true},
    {"tan", unary<Function<std::tan>>, 2, 0, true},
    {"asin", unary<Function<std::asin>>, 2, 0, true},
    {"acos", unary<Function<std::acos>>, 2, 0, true},
    {"atan", unary<Function<std::atan>>, 2, 0, true},
    {"sqrt", unary<Function<std::sqrt>>, 2, 0, true},
    {"exp", unary<Function<std::exp>>, 2, 0, true},
    {"abs", unary<Function<std::fabs>>, 2, 0, true},
    {"ceil", unary<Function<std::ceil>>, 2, 0, true},
    {"floor", unary<Function<std::floor>>, 2, 0, true},
    {"log", unary<Function<std::log>>, 2, 0, true},
    {"int", unary<OnIntegers<WholePart>>, 2, 0, true},
    {"bool", unary<Truth>, 2, 0, true},
    {",", nothing, 16, 0, false},
};
} // namespace expression

namespace
{
constexpr std::size_t operatorCount = std::size(operators);
constexpr int prefixDistance = 2;

/// The operators that start with one character, the longest names first.
struct Candidates {
    OperatorIndex indices[5];
    unsigned char count;

    constexpr const OperatorIndex* begin() const { return indices; }
    constexpr const OperatorIndex* end() const { return indices + count; }

    /// A later operator takes the place of one of the same name.
    constexpr void add(OperatorIndex index)
    {
        const std::string_view name = operators[index].name;
        int place = 0;
        while (place < count && operators[indices[place]].name.size() >= name.size() &&
               operators[indices[place]].name != name)
            ++place;
        if (place == count || operators[indices[place]].name != name) {
            for (int i = count++; i > place; --i)
                indices[i] = indices[i - 1];
        }
        indices[place] = index;
    }
};

struct CandidateTable {
    Candidates of[UCHAR_MAX + 1] = {};

    constexpr CandidateTable()
    {
        for (std::size_t i = 0; i < operatorCount; ++i)
            of[static_cast<unsigned char>(operators[i].name[0])].add(static_cast<OperatorIndex>(i));
    }
};

constexpr CandidateTable candidates;

struct PrefixTable {
    OperatorIndex of[operatorCount] = {};

    constexpr PrefixTable()
    {
        for (std::size_t i = 0; i < operatorCount; ++i) {
            const bool has = i >= prefixDistance && operators[i - prefixDistance].name == operators[i].name;
            of[i] = static_cast<OperatorIndex>(has ? i - prefixDistance : i);
        }
    }
};

constexpr PrefixTable prefixes;
static_assert(operatorCount < noOperator);
static_assert(operators[endMarker].name == ";" && operators[openParenthesis].name == "(" &&
              operators[closeParenthesis].name == ")" && operators[separator].name == ",");
} // namespace

namespace expression
{
OperatorIndex findOperator(std::string_view name)
{
    for (const OperatorIndex index : candidates.of[static_cast<unsigned char>(name[0])])
        if (operators[index].name == name) return index;
    return noOperator;
}

OperatorIndex findOperatorAt(std::string_view text)
{
    for (const OperatorIndex index : candidates.of[static_cast<unsigned char>(text[0])])
        if (text.substr(0, operators[index].name.size()) == operators[index].name) return index;
    return noOperator;
}

OperatorIndex prefixVariant(OperatorIndex index)
{
    return prefixes.of[index];
}
} // namespace expression

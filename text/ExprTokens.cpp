#include "ExprTokens.h"

#include <charconv>
#include <climits>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

namespace
{
constexpr unsigned char whiteSpace = 1;
constexpr unsigned char ofNumber = 2;
constexpr unsigned char ofOperator = 4;
constexpr unsigned char ofIdentifier = 8;

constexpr bool isDigit(int c)
{
    return c >= '0' && c <= '9';
}

constexpr bool isLetter(int c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The classes of one character. A few belong to two: a point to numbers, "[" and "]" to identifiers, and all
/// three of them to operators.
constexpr unsigned char classesOf(int c)
{
    int classes = 0;
    if (c == '\t' || c == '\n' || c == '\r' || c == ' ') classes |= whiteSpace;
    if (isDigit(c) || c == '.') classes |= ofNumber;
    if (c >= 33 && c <= 126 && !isLetter(c) && !isDigit(c) && c != '_' && c != '`') classes |= ofOperator;
    if (isLetter(c) || isDigit(c) || c == '_' || c == '[' || c == ']') classes |= ofIdentifier;
    return static_cast<unsigned char>(classes);
}

struct CharacterClasses {
    unsigned char of[UCHAR_MAX + 1] = {};

    constexpr CharacterClasses()
    {
        for (int c = 0; c <= UCHAR_MAX; ++c)
            of[c] = classesOf(c);
    }
};

constexpr CharacterClasses characterClasses;

bool isOf(unsigned char characterClass, char c)
{
    return characterClasses.of[static_cast<unsigned char>(c)] & characterClass;
}

[[noreturn]] void refuse(char symbol)
{
    throw std::runtime_error(std::string("unrecongized symbol: ") + symbol);
}

/// The value of a number in the range that from_chars does not give one for.
double valueOutOfRange(std::string_view number)
{
    const auto whole = number.substr(0, number.find('.'));
    const bool isLarge = whole.find_first_not_of('0') != std::string_view::npos;
    return isLarge ? std::numeric_limits<double>::max() : 0;
}

double valueOfLongNumber(std::string_view run)
{
    double value = 0;
    const auto read = std::from_chars(run.data(), run.data() + run.size(), value, std::chars_format::fixed);
    return read.ec == std::errc::result_out_of_range ? valueOutOfRange(run) : value;
}
} // namespace

namespace expression
{
double valueOfNumber(std::string_view run)
{
    // Both numbers of up to 15 digits and these powers are doubles without rounding, so that their quotient
    // is rounded once, as it has to be (Clinger, "How to read floating point numbers accurately", 1990).
    static constexpr double powersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    if (run.size() > 16) return valueOfLongNumber(run);
    std::int64_t digits = 0;
    std::size_t decimals = 0;
    bool behindPoint = false;
    for (const char c : run) {
        if (c == '.') {
            if (behindPoint) break;
            behindPoint = true;
        } else {
            digits = 10 * digits + (c - '0');
            decimals += behindPoint;
        }
    }
    return static_cast<double>(digits) / powersOfTen[decimals];
}

Token Tokenizer::next()
{
    while (m_at != m_end && isOf(whiteSpace, *m_at))
        ++m_at;
    if (m_at == m_end) return finish();
    if (isOf(ofNumber, *m_at)) return number();
    if (isOf(ofIdentifier, *m_at)) return word();
    if (isOf(ofOperator, *m_at)) return symbol();
    refuse(*m_at);
}

Token Tokenizer::finish() const
{
    if (m_openParentheses > 0) throw std::runtime_error("parenthese unmatch");
    return {TokenKind::end, endMarker, 0, {}};
}

Token Tokenizer::number()
{
    const auto digits = run(ofNumber);
    countOperand();
    return {TokenKind::number, noOperator, valueOfNumber(digits), {}};
}

Token Tokenizer::word()
{
    const auto name = run(ofIdentifier);
    const OperatorIndex index = findOperator(name);
    if (index != noOperator) return operation(index);
    countOperand();
    return {TokenKind::variable, noOperator, 0, name};
}

Token Tokenizer::symbol()
{
    const OperatorIndex index = findOperatorAt({m_at, static_cast<std::size_t>(m_end - m_at)});
    if (index == noOperator) refuse(*m_at);
    m_at += operators[index].name.size();
    return operation(index);
}

Token Tokenizer::operation(OperatorIndex index)
{
    countParenthesis(index);
    if (m_pendingOperands == 0) index = prefixVariant(index);
    m_pendingOperands += operators[index].effect;
    // What stands before a separator waits for no operator: the next expression of the list starts anew.
    if (index == separator) m_pendingOperands = 0;
    return {TokenKind::operation, index, 0, {}};
}

void Tokenizer::countOperand()
{
    if (++m_pendingOperands > 1) throw std::runtime_error("operand imbalance");
}

void Tokenizer::countParenthesis(OperatorIndex index)
{
    if (index == openParenthesis) ++m_openParentheses;
    if (index == closeParenthesis && --m_openParentheses < 0) throw std::runtime_error("parenthese unmatch");
}

std::string_view Tokenizer::run(unsigned char characterClass)
{
    const char* const begin = m_at;
    while (m_at != m_end && isOf(characterClass, *m_at))
        ++m_at;
    return {begin, static_cast<std::size_t>(m_at - begin)};
}
} // namespace expression

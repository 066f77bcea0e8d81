#include "ExprReference.h"

#include "QmCADLib.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <ostream>
#include <set>
#include <stdexcept>
#include <vector>

namespace
{
struct Fault {
};

enum class Place { operand, prefix, infix, postfix, marker };

struct Word {
    Place place;
    std::string text;
    int precedence;
};

struct Value {
    std::string variable; // empty for a number
    double number;
};

using Two = std::function<double(double, double)>;
using One = std::function<double(double)>;

double whole(double x)
{
    const double cut = std::trunc(x);
    return cut >= -2147483648.0 && cut <= 2147483647.0 ? cut + 0.0 : -2147483648.0; // not -0
}

long long bits(double x)
{
    return static_cast<long long>(whole(x)) & 0xffffffff;
}

double fromBits(long long x)
{
    x &= 0xffffffff;
    return static_cast<double>(x >= 0x80000000 ? x - 0x100000000 : x);
}

double remainderOf(double a, double b)
{
    if (whole(b) == 0) throw Fault();
    return std::fmod(whole(a), whole(b)) + 0.0;
}

const std::map<std::string, std::pair<int, Two>>& infixes()
{
    static const std::map<std::string, std::pair<int, Two>> table = {
        {"^", {3, [](double a, double b) { return std::pow(a, b); }}},
        {"*", {4, [](double a, double b) { return a * b; }}},
        {"/", {4, [](double a, double b) { return a / b; }}},
        {"%", {4, remainderOf}},
        {"+", {5, [](double a, double b) { return a + b; }}},
        {"-", {5, [](double a, double b) { return a - b; }}},
        {"<<", {6, [](double a, double b) { return fromBits(bits(a) << (bits(b) % 32)); }}},
        {">>", {6, [](double a, double b) { return std::floor(std::ldexp(whole(a), -(bits(b) % 32))); }}},
        {">", {7, [](double a, double b) { return a > b; }}},
        {"<", {7, [](double a, double b) { return a < b; }}},
        {">=", {7, [](double a, double b) { return a >= b; }}},
        {"<=", {7, [](double a, double b) { return a <= b; }}},
        {"==", {8, [](double a, double b) { return a == b; }}},
        {"!=", {8, [](double a, double b) { return a != b; }}},
        {"&", {9, [](double a, double b) { return fromBits(bits(a) & bits(b)); }}},
        {"><", {10, [](double a, double b) { return fromBits(bits(a) ^ bits(b)); }}},
        {"xor", {10, [](double a, double b) { return fromBits(bits(a) ^ bits(b)); }}},
        {"|", {11, [](double a, double b) { return fromBits(bits(a) | bits(b)); }}},
        {"&&", {12, [](double a, double b) { return a != 0 && b != 0; }}},
        {"||", {13, [](double a, double b) { return a != 0 || b != 0; }}},
    };
    return table;
}

const std::map<std::string, One>& prefixes()
{
    static const std::map<std::string, One> table = {
        {"+", [](double a) { return a; }},
        {"-", [](double a) { return -a; }},
        {"!", [](double a) { return whole(a) == 0; }},
        {"~", [](double a) { return -whole(a) - 1; }},
        {"sin", [](double a) { return std::sin(a); }},
        {"cos", [](double a) { return std::cos(a); }},
        {"tan", [](double a) { return std::tan(a); }},
        {"asin", [](double a) { return std::asin(a); }},
        {"acos", [](double a) { return std::acos(a); }},
        {"atan", [](double a) { return std::atan(a); }},
        {"sqrt", [](double a) { return std::sqrt(a); }},
        {"exp", [](double a) { return std::exp(a); }},
        {"abs", [](double a) { return std::copysign(a, 1.0); }},
        {"ceil", [](double a) { return std::ceil(a); }},
        {"floor", [](double a) { return std::floor(a); }},
        {"log", [](double a) { return std::log(a); }},
        {"int", [](double a) { return whole(a); }},
        {"bool", [](double a) { return std::isnan(a) || a != 0; }},
    };
    return table;
}

bool isAssignment(const std::string& text)
{
    static const std::set<std::string> all = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "<<=", ">>="};
    return all.count(text) > 0;
}

bool isOperator(const std::string& text)
{
    static const std::set<std::string> others = {";", "(", ")", "++", "--", ","};
    return infixes().count(text) || prefixes().count(text) || isAssignment(text) || others.count(text);
}

bool isAmong(const char* set, char c)
{
    return c != 0 && std::strchr(set, c);
}

constexpr char digits[] = "0123456789.";
constexpr char letters[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_[]";

class Reader
{
public:
    explicit Reader(const std::string& text) : m_text(text) {}

    std::vector<Word> words()
    {
        while (skipSpace(), m_at < m_text.size())
            m_words.push_back(word());
        if (m_open > 0) throw std::runtime_error("parenthese unmatch");
        m_words.push_back({Place::marker, ";", 254});
        return m_words;
    }

private:
    void skipSpace()
    {
        while (m_at < m_text.size() && isAmong(" \t\r\n", m_text[m_at]))
            ++m_at;
    }

    std::string run(const char* set)
    {
        const size_t begin = m_at;
        while (m_at < m_text.size() && isAmong(set, m_text[m_at]))
            ++m_at;
        return m_text.substr(begin, m_at - begin);
    }

    Word word()
    {
        if (isAmong(digits, m_text[m_at])) return operand(run(digits));
        if (isAmong(letters, m_text[m_at])) {
            const std::string name = run(letters);
            return isOperator(name) ? found(name) : operand(name);
        }
        for (size_t length = 3; length > 0; --length) {
            const std::string name = m_text.substr(m_at, length);
            if (name.size() != length || !isOperator(name)) continue;
            m_at += length;
            return found(name);
        }
        throw std::runtime_error(std::string("unrecongized symbol: ") + m_text[m_at]);
    }

    Word operand(const std::string& text)
    {
        if (++m_pending > 1) throw std::runtime_error("operand imbalance");
        return {Place::operand, text, 0};
    }

    Word found(const std::string& name)
    {
        if (name == "(") ++m_open;
        if (name == ")" && --m_open < 0) throw std::runtime_error("parenthese unmatch");
        if (name == "(") return {Place::marker, name, 253};
        if (name == ")") return {Place::marker, name, 252};
        if (name == ";") return {Place::marker, name, 254};
        if (name == ",") return m_pending = 0, Word{Place::marker, name, 16};
        if (name == "++" || name == "--")
            return m_pending == 0 ? Word{Place::prefix, name, 2} : Word{Place::postfix, name, 1};
        if (prefixes().count(name) && (m_pending == 0 || !infixes().count(name)))
            return {Place::prefix, name, 2};
        --m_pending;
        return {Place::infix, name, isAssignment(name) ? 15 : infixes().at(name).first};
    }

    const std::string& m_text;
    std::vector<Word> m_words;
    size_t m_at = 0;
    int m_pending = 0;
    int m_open = 0;
};

class Recursion
{
public:
    explicit Recursion(std::vector<Word> words) : m_words(std::move(words)) {}

    double run()
    {
        read({Place::marker, ";", 254});
        if (m_values.empty()) throw std::runtime_error("operand imbalance");
        return numberOf(m_values.back());
    }

private:
    /// Reads up to the word that the waiting operator has to be applied before.
    void read(const Word& waiting)
    {
        while (m_at < m_words.size()) {
            const Word word = m_words[m_at];
            if (word.place != Place::operand && word.text != "(" && goesFirst(waiting, word)) return;
            if (word.text == ")" && waiting.text != "(") throw std::runtime_error("parenthese unmatch");
            ++m_at;
            if (word.text == ")") return;
            if (word.place == Place::operand) {
                push(word.text);
            } else {
                read(word);
                apply(word);
            }
        }
    }

    static bool goesFirst(const Word& waiting, const Word& word)
    {
        const bool fromRight = word.place == Place::prefix || word.text == ";";
        return waiting.precedence < word.precedence || (waiting.precedence == word.precedence && !fromRight);
    }

    void push(const std::string& text)
    {
        if (!isAmong(digits, text[0])) return m_values.push_back({text, 0});
        const double number =
            std::strtod(text.substr(0, text.find('.', text.find('.') + 1)).c_str(), nullptr);
        m_values.push_back({"", std::min(number, std::numeric_limits<double>::max())});
    }

    double numberOf(const Value& value)
    {
        return value.variable.empty() ? value.number : m_variables[value.variable];
    }

    Value pop()
    {
        if (m_values.empty()) throw std::runtime_error("syntax error");
        const Value value = m_values.back();
        m_values.pop_back();
        return value;
    }

    double& variableOf(const Value& value)
    {
        if (value.variable.empty()) throw std::runtime_error("Not left operand");
        return m_variables[value.variable];
    }

    void apply(const Word& word)
    {
        if (word.place == Place::marker) return;
        const Value right = pop();
        if (word.text == "++" || word.text == "--") return step(word, right);
        if (word.place == Place::prefix)
            return m_values.push_back({"", prefixes().at(word.text)(numberOf(right))});
        const double second = numberOf(right);
        const Value left = pop();
        if (!isAssignment(word.text))
            return m_values.push_back({"", infixes().at(word.text).second(numberOf(left), second)});
        double& target = variableOf(left);
        const std::string name = word.text.substr(0, word.text.size() - 1);
        target = name.empty() ? second : infixes().at(name).second(target, second);
        m_values.push_back(left);
    }

    void step(const Word& word, const Value& value)
    {
        double& target = variableOf(value);
        const double before = target;
        target += word.text == "++" ? 1 : -1;
        m_values.push_back(word.place == Place::prefix ? value : Value{"", before});
    }

    std::vector<Word> m_words;
    size_t m_at = 0;
    std::vector<Value> m_values;
    std::map<std::string, double> m_variables;
};
} // namespace

ExprVerdict referenceVerdict(const std::string& expression)
{
    try {
        return {ExprVerdict::value, Recursion(Reader(expression).words()).run(), ""};
    } catch (const std::runtime_error& error) {
        return {ExprVerdict::failure, 0, error.what()};
    } catch (const Fault&) {
        return {ExprVerdict::fault, 0, ""};
    }
}

ExprVerdict verdict(const std::string& expression)
{
    try {
        return {ExprVerdict::value, ExprEvaluate(expression), ""};
    } catch (const std::runtime_error& error) {
        return {ExprVerdict::failure, 0, error.what()};
    }
}

bool operator==(const ExprVerdict& a, const ExprVerdict& b)
{
    const bool sameNumber = (std::isnan(a.number) && std::isnan(b.number)) ||
                            (a.number == b.number && std::signbit(a.number) == std::signbit(b.number));
    return a.kind == b.kind && sameNumber && a.message == b.message;
}

std::ostream& operator<<(std::ostream& stream, const ExprVerdict& verdict)
{
    if (verdict.kind == ExprVerdict::value) return stream << verdict.number;
    return stream << (verdict.kind == ExprVerdict::fault ? "fault" : verdict.message);
}

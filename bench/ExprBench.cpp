#include "QmCADLib.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <vector>

// The peer as it is installed takes narrow texts; its headers would choose wide ones by this name.
#undef _UNICODE
#include <muParser.h>

namespace
{
constexpr std::size_t expressionCount = 1000;
constexpr std::size_t mebibyte = std::size_t{1} << 20;

class Random
{
public:
    std::string number() { return std::to_string(1 + m_random() % 20000); }
    std::string decimal() { return number() + '.' + std::to_string(m_random() % 1000); }

private:
    std::mt19937 m_random{1};
};

/// Expressions that mean the same to both sides and differ in their numbers: each is parsed and evaluated
/// once.
template <class Make>
std::vector<std::string> expressions(Make make)
{
    Random random;
    std::vector<std::string> made(expressionCount);
    for (auto& text : made)
        text = make(random);
    return made;
}

/// The number of bars that a width takes.
std::string arithmetic(Random& r)
{
    return "(" + r.number() + "-2*" + r.decimal() + ")/" + r.number() + "+1";
}

/// The length of a sloping bar.
std::string functions(Random& r)
{
    return "sqrt((" + r.decimal() + ")^2+(" + r.number() + ")^2)*sin(" + r.decimal() + ")+abs(" + r.number() +
           ")";
}

/// The second moment of a rectangle.
std::string variables(Random& r)
{
    return "a=" + r.number() + ", b=" + r.decimal() + ", a*b*b*b/12";
}

void evaluateOurs(benchmark::State& state, std::string (*make)(Random&))
{
    const auto texts = expressions(make);
    for (auto _ : state)
        for (const auto& text : texts)
            benchmark::DoNotOptimize(ExprEvaluate(text));
    state.counters["goal"] = 10;
}

/// One parser for all expressions, as its users would have it: making one costs more than most expressions.
void evaluateMuParser(benchmark::State& state, std::string (*make)(Random&))
{
    double a = 0, b = 0;
    mu::Parser parser;
    parser.DefineVar("a", &a);
    parser.DefineVar("b", &b);
    const auto texts = expressions(make);
    for (const auto& text : texts) {
        parser.SetExpr(text);
        const double expected = parser.Eval();
        if (std::fabs(ExprEvaluate(text) - expected) > 1e-12 * std::fabs(expected))
            state.SkipWithError(("the sides differ: " + text).c_str());
    }
    for (auto _ : state)
        for (const auto& text : texts) {
            parser.SetExpr(text);
            benchmark::DoNotOptimize(parser.Eval());
        }
}

std::string repeated(const std::string& text, std::size_t count)
{
    std::string result;
    result.reserve(text.size() * count);
    while (count-- > 0)
        result += text;
    return result;
}

std::string longSum(std::size_t bytes)
{
    return repeated("1+", bytes / 2) + "1";
}

std::string deepNest(std::size_t bytes)
{
    return repeated("(", bytes / 2) + "1" + repeated(")", bytes / 2);
}

std::string longList(std::size_t bytes)
{
    return repeated("1,", bytes / 2) + "1";
}

std::string manyVariables(std::size_t bytes)
{
    std::string text;
    for (int i = 0; text.size() < bytes; ++i)
        text += "v" + std::to_string(i) + "+";
    return text + "1";
}

/// Time in proportion to the length is a ratio of about 1 to many short texts; what caches cost is allowed
/// for.
void evaluateLong(benchmark::State& state, std::string (*make)(std::size_t))
{
    const std::string text = make(64 * mebibyte);
    for (auto _ : state)
        benchmark::DoNotOptimize(ExprEvaluate(text));
    state.counters["goal"] = 0.25;
}

void evaluateParts(benchmark::State& state, std::string (*make)(std::size_t))
{
    const std::string text = make(mebibyte);
    for (auto _ : state)
        for (int i = 0; i < 64; ++i)
            benchmark::DoNotOptimize(ExprEvaluate(text));
}

#define SHORT_FAMILY(make)                                                                                   \
    BENCHMARK_CAPTURE(evaluateOurs, make, make)->Name("ExprEvaluate_" #make "/ours");                        \
    BENCHMARK_CAPTURE(evaluateMuParser, make, make)->Name("ExprEvaluate_" #make "/muParser")
#define LONG_FAMILY(make)                                                                                    \
    BENCHMARK_CAPTURE(evaluateLong, make, make)                                                              \
        ->Name("ExprEvaluate_64MiB_" #make "/ours")                                                          \
        ->Unit(benchmark::kMillisecond);                                                                     \
    BENCHMARK_CAPTURE(evaluateParts, make, make)                                                             \
        ->Name("ExprEvaluate_64MiB_" #make "/64_x_1MiB")                                                     \
        ->Unit(benchmark::kMillisecond)

SHORT_FAMILY(arithmetic);
SHORT_FAMILY(functions);
SHORT_FAMILY(variables);
LONG_FAMILY(longSum);
LONG_FAMILY(deepNest);
LONG_FAMILY(longList);
LONG_FAMILY(manyVariables);
} // namespace

// fuzz_expr SECONDS [SEED]: mutates expressions and gives them to ExprEvaluate, whose verdicts it compares
// with those of the reference. Made for a build with sanitizers. Exit status 0 when nothing was found, 1 with
// the expression that shows a difference, 2 for wrong arguments.

#include "../text/ExprReference.h"
#include "../text/RandomExpression.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <vector>

namespace
{
constexpr size_t longest = 4000; // the reference is recursive
constexpr size_t longestKept = 200;
constexpr size_t mostKept = 2000;

const std::vector<std::string> seeds = {"(1200-2*25)/150+1",
                                        "a=3,b=4,sqrt(a^2+b^2)",
                                        "x=1,x<<=3,x|=5,x%=7,x--,++x",
                                        "-2^2+!0.5*~7-bool(.5)&&1||0",
                                        "w[1]=2,w[2]=w[1]*1.5,w[1]><w[2] xor 3",
                                        "sin(cos(tan(1)))>=abs(-1)!=floor(2.5)",
                                        "((((((1))))))%3",
                                        "4294967296&2147483648|.1.2"};

size_t below(std::mt19937& random, size_t limit)
{
    return random() % limit;
}

/// Some piece of another expression, or something new.
std::string piece(std::mt19937& random, const std::string& other)
{
    switch (below(random, 4)) {
    case 0:
        return std::string(1, static_cast<char>(random()));
    case 1:
        return std::string(1, static_cast<char>(' ' + random() % 95));
    case 2:
        return randomWords(random);
    default:
        const size_t at = below(random, other.size() + 1);
        return other.substr(at, below(random, 40));
    }
}

void mutate(std::mt19937& random, std::string& text, const std::string& other)
{
    const size_t at = below(random, text.size() + 1);
    const size_t length = below(random, 8);
    switch (below(random, 5)) {
    case 0:
        text.insert(at, piece(random, other));
        break;
    case 1:
        text.erase(at, length);
        break;
    case 2:
        text.replace(at, length, piece(random, other));
        break;
    case 3:
        text.insert(at, text.substr(at, length));
        break;
    default: {
        const std::string repeated = text.substr(at, length);
        for (size_t count = below(random, 100); count > 0; --count)
            text.insert(at, repeated);
    }
    }
    text.resize(std::min(text.size(), longest));
}

/// Whether the expression has the verdict of the reference.
bool agrees(const std::string& text, const ExprVerdict& expected)
{
    if (expected.kind == ExprVerdict::fault) return true; // it would end this process as well
    const ExprVerdict found = verdict(text);
    if (found == expected) return true;
    std::cerr << "expression: " << text << "\nevaluated:  " << found << "\nreference:  " << expected << '\n';
    return false;
}

/// What can be evaluated is mutated further: mostly broken texts would not get far, and long ones take long.
void keep(std::mt19937& random, std::vector<std::string>& kept, const std::string& text)
{
    if (text.size() > longestKept) return;
    if (kept.size() < mostKept)
        kept.push_back(text);
    else
        kept[seeds.size() + below(random, mostKept - seeds.size())] = text;
}

int run(std::chrono::seconds duration, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<std::string> kept = seeds;
    const auto end = std::chrono::steady_clock::now() + duration;
    const char* const last = std::getenv("FUZZ_LAST");
    size_t rounds = 0, values = 0;
    for (; rounds % 256 != 0 || std::chrono::steady_clock::now() < end; ++rounds) {
        std::string text = kept[below(random, kept.size())];
        for (size_t changes = 1 + below(random, 4); changes > 0; --changes)
            mutate(random, text, kept[below(random, kept.size())]);
        // So that a crash leaves its cause.
        if (last) std::ofstream(last, std::ios::binary) << text;
        const ExprVerdict expected = referenceVerdict(text);
        if (!agrees(text, expected)) return 1;
        if (expected.kind != ExprVerdict::value) continue;
        ++values;
        keep(random, kept, text);
    }
    std::cout << rounds << " expressions, " << values << " of them with a value: nothing found (seed " << seed
              << ")\n";
    return 0;
}
} // namespace

int main(int count, char** arguments)
{
    const int seconds = count > 1 ? std::atoi(arguments[1]) : 0;
    if (seconds <= 0 || count > 3) {
        std::cerr << "fuzz_expr SECONDS [SEED]\n";
        return 2;
    }
    return run(std::chrono::seconds(seconds), count > 2 ? static_cast<unsigned>(std::atoi(arguments[2])) : 1);
}

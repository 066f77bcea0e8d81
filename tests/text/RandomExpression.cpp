#include "RandomExpression.h"

namespace
{
template <size_t count>
const char* one(std::mt19937& random, const char* const (&choices)[count])
{
    return choices[random() % count];
}

const char* randomOperand(std::mt19937& random)
{
    return one(random, {"a",   "b",    "a",          "x",          "w[1]",       "0",     "1",
                        "2",   "3",    "7",          ".5",         "2.9",        "31",    "33",
                        "100", "0.25", "2147483647", "2147483648", "4294967297", "1.2.3", "."});
}

const char* randomFunction(std::mt19937& random)
{
    return one(random, {"sin", "cos", "tan", "asin", "acos", "atan", "sqrt", "exp", "abs", "ceil", "floor",
                        "log", "int", "bool"});
}

const char* randomInfix(std::mt19937& random)
{
    return one(
        random,
        {"+",  "-",     "*",  "/",  "%", "^",  "<<", ">>", "<",  ">",  "<=", ">=", "==",  "!=",  "&", "|",
         "><", " xor ", "&&", "||", "=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "<<=", ">>=", ","});
}
} // namespace

std::string randomExpression(std::mt19937& random, int depth)
{
    const auto inner = [&] { return randomExpression(random, depth - 1); };
    if (depth == 0) return randomOperand(random);
    switch (random() % 8) {
    case 0:
        return randomOperand(random);
    case 1:
        return "(" + inner() + ")";
    case 2:
        return one(random, {"- ", "+ ", "!", "~"}) + inner();
    case 3:
        return std::string(randomFunction(random)) + "(" + inner() + ")";
    case 4:
        return std::string(random() % 2 ? "a" : "x") + one(random, {"=", "+=", "-=", "*="}) + inner();
    case 5:
        return random() % 2 ? one(random, {"++a", "--b", "a++", "x--"}) : randomOperand(random);
    default:
        return inner() + randomInfix(random) + inner();
    }
}

std::string randomWords(std::mt19937& random)
{
    std::string text;
    for (unsigned left = 1 + random() % 12; left > 0; --left) {
        switch (random() % 6) {
        case 0:
        case 1:
            text += randomOperand(random);
            break;
        case 2:
            text += randomFunction(random);
            break;
        case 3:
            text += one(random, {"(", ")", "++", "--", "!", "~", "-", ";", "#"});
            break;
        default:
            text += randomInfix(random);
        }
        if (random() % 4 == 0) text += ' ';
    }
    return text;
}

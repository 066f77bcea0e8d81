#include "ExprReference.h"
#include "QmCADLib.h"
#include "RandomExpression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <limits>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double smallestInteger = -2147483648.0;

using Values = std::vector<std::pair<std::string, double>>;
using Failures = std::vector<std::pair<std::string, std::string>>;

void expectValues(const Values& cases)
{
    for (const auto& [text, value] : cases)
        EXPECT_EQ(verdict(text), (ExprVerdict{ExprVerdict::value, value, ""})) << text;
}

void expectFailures(const Failures& cases)
{
    for (const auto& [text, message] : cases)
        EXPECT_EQ(verdict(text), (ExprVerdict{ExprVerdict::failure, 0, message})) << text;
}

std::string repeated(const std::string& text, size_t count)
{
    std::string result;
    result.reserve(text.size() * count);
    while (count-- > 0)
        result += text;
    return result;
}

#ifdef __SANITIZE_ADDRESS__
// The sanitizer ends the process before the processor does.
const auto endsByFault = [](int status) { return status != 0; };
constexpr int randomCount = 100000; // a million takes minutes
#else
const auto endsByFault = testing::KilledBySignal(SIGFPE);
constexpr int randomCount = 1000000;
#endif
} // namespace

TEST(ExprEvaluate, PrecedencesGroupTheOperands)
{
    expectValues({{"1+2*3", 7},
                  {"(1+2)*3", 9},
                  {"1<<2+1", 8},
                  {"1<2<<1", 1},
                  {"2==1<2", 0},
                  {"6&3==3", 0},
                  {"1><3&2", 3},
                  {"1|2><3", 1},
                  {"4 xor 1", 5},
                  {"0&&1|1", 0},
                  {"1||0&&0", 1},
                  {"x=1||0", 1},
                  {"-2^2", 4},
                  {"sin 0+2", 2},
                  {"sqrt(16)^2", 16},
                  {"2^-1", 0.5}});
}

TEST(ExprEvaluate, EqualPrecedencesGroupFromTheLeft)
{
    expectValues(
        {{"2^3^2", 64}, {"7-2-1", 4}, {"16/4/2", 2}, {"1-2+3", 2}, {"b=5, a=b=3", 3}, {"b=5, a=b=3, b", 5}});
}

TEST(ExprEvaluate, SignsBecomePrefixesWhereNoOperandWaits)
{
    expectValues({{"- -1", 1},
                  {"2- -1", 3},
                  {"2*(-1)", -2},
                  {"1,-2", -2},
                  {"a=5, -++a", -6},
                  {"a=5, b=2, a+++b", 7},
                  {"a=5, a--, a", 4},
                  {"*1-2", -2}}); // the product has one operand when the minus comes, and two at the end
}

TEST(ExprEvaluate, VariablesLiveForOneCall)
{
    expectValues({{"a=3, a*2", 6},
                  {"a", 0},
                  {"x+1", 1},
                  {"a++", 0},
                  {"a++, a", 1},
                  {"++a", 1},
                  {"(a=3)+=4, a", 7},
                  {"w[1]=2, w[2]=3, W[1]+w[1]*w[2]", 6},
                  {"_1=4, sin2=5, _1+sin2", 9},
                  {"c=1,d=2,e=3,f=4,g=5,h=6,i=7,j=8,k=9,l=10, c+d+e+f+g+h+i+j+k+l", 55}});
    // A variable is read when its operator is applied, a postfix increment where it stands.
    expectValues({{"a+(a=3)", 6}, {"a++ + a", 1}});
}

TEST(ExprEvaluate, CompoundAssignmentsCombine)
{
    expectValues({{"a=7, a+=2", 9},
                  {"a=7, a-=2", 5},
                  {"a=7, a*=2", 14},
                  {"a=7, a/=2", 3.5},
                  {"a=7, a%=4", 3},
                  {"a=7, a&=10", 2},
                  {"a=5, a|=10", 15},
                  {"a=3, a<<=2", 12},
                  {"a=13, a>>=2, a", 3}});
}

TEST(ExprEvaluate, FunctionsAreTheMathematicalOnes)
{
    expectValues({{"sin(1)", std::sin(1)},
                  {"cos 1", std::cos(1)},
                  {"tan(1)", std::tan(1)},
                  {"asin(.5)", std::asin(.5)},
                  {"acos(.5)", std::acos(.5)},
                  {"atan(2)", std::atan(2)},
                  {"sqrt 2", std::sqrt(2)},
                  {"exp(1)", std::exp(1)},
                  {"log(10)", std::log(10)},
                  {"ceil(-1.5)", -1},
                  {"floor(-1.5)", -2},
                  {"abs(-0)", 0}, // 0 and not -0
                  {"int(-2.7)", -2},
                  {"int(-.5)", 0},
                  {"bool(0)", 0},
                  {"bool(.1)", 1},
                  {"bool(0/0)", 1},
                  {"abs floor -1.5", 2}});
}

TEST(ExprEvaluate, IntegerOperatorsTruncateToThirtyTwoBits)
{
    expectValues({{"7%2.9", 1},
                  {"-7%2", -1},
                  {"!0.5", 1},
                  {"!1.5", 0},
                  {"~2.9", -3},
                  {"6.9&3.9", 2},
                  {"6.9|1.9", 7},
                  {"6.9><3.9", 5},
                  {"1<<33", 2},
                  {"1<<(-1)", smallestInteger},
                  {"3<<31", smallestInteger},
                  {"(-8)>>33", -4},
                  {"2147483647.9 & -1", 2147483647},
                  {"(-2147483648.9)|0", smallestInteger}});
}

TEST(ExprEvaluate, IntegersOutOfRangeBecomeTheSmallestOne)
{
    expectValues({{"int(2147483648)", smallestInteger},
                  {"int(-2147483649)", smallestInteger},
                  {"int(4294967297)", smallestInteger},
                  {"int(1/0)", smallestInteger},
                  {"int(0/0)", smallestInteger},
                  {"!(0/0)", 0},
                  {"~(1/0)", 2147483647},
                  {"(0/0)%10", -8},
                  {"1<<(1/0)", 1}, // the smallest integer is 0 modulo 32
                  {"(-2147483648)%(-1)", 0},
                  {"a=-2147483648, a%=-1", 0}});
}

TEST(ExprEvaluate, DoublesFollowTheRulesOfFloatingPoint)
{
    expectValues({{"1/0", infinity},
                  {"-1/0", -infinity},
                  {"0/0", NAN},
                  {"0/0==0/0", 0},
                  {"0/0!=0/0", 1},
                  {"0/0<1", 0},
                  {"0/0&&1", 1},
                  {"-0", -0.0},
                  {"2>1>=1", 1},
                  {"1<=0", 0}});
}

TEST(ExprEvaluate, BothSidesOfLogicalOperatorsAreEvaluated)
{
    expectValues({{"0&&(a=3), a", 3}, {"1||(b=4), b", 4}});
}

TEST(ExprEvaluate, NumbersAreReadAsStreamsReadThem)
{
    const std::vector<std::string> numbers = {"0",
                                              "1.5",
                                              ".5",
                                              "5.",
                                              ".",
                                              "..5",
                                              "1.2.3",
                                              "007",
                                              "123456789012345.",
                                              ".123456789012345",
                                              "1234567890123456",
                                              "9007199254740993",
                                              "9999999999999999",
                                              "0.1234567890123456789",
                                              "179769313486231580793728971405303415",
                                              "1" + repeated("0", 308),
                                              "2" + repeated("0", 308),
                                              repeated("9", 400),
                                              "0." + repeated("0", 400) + "1",
                                              "0." + repeated("0", 310) + "1",
                                              repeated("0", 400) + "1"};
    for (const auto& number : numbers) {
        double expected = 0;
        std::istringstream(number) >> expected;
        EXPECT_EQ(ExprEvaluate(number), expected) << number;
    }
}

TEST(ExprEvaluate, ListHasTheValueOfItsLastExpression)
{
    // Parentheses leave all values of a list: the sum takes the last two.
    expectValues(
        {{"1,2,3", 3}, {"1,", 1}, {",1", 1}, {"sin(1,0)", 0}, {"1+(2,3)", 5}, {"(1,2)+3", 5}, {"1;", 1}});
}

TEST(ExprEvaluate, FaultsOfWritingComeFirst)
{
    expectFailures({{"1 # 2", "unrecongized symbol: #"},
                    {"1 $", "unrecongized symbol: $"},
                    {"`", "unrecongized symbol: `"},
                    {"\xd6\xd0", "unrecongized symbol: \xd6"},
                    {"1 2", "operand imbalance"},
                    {"1e3", "operand imbalance"},
                    {"1;2", "operand imbalance"},
                    {"(1)(2)", "operand imbalance"},
                    {"1+2)", "parenthese unmatch"},
                    {"((1)", "parenthese unmatch"},
                    {")(", "parenthese unmatch"},
                    {"(1;)", "parenthese unmatch"},
                    {"3=4, 1 2", "operand imbalance"},
                    {"7%0, #", "unrecongized symbol: #"},
                    {"(1+", "parenthese unmatch"}});
    expectFailures({{std::string("1\0", 2), "unrecongized symbol: "}}); // what() ends at the 0 itself
}

TEST(ExprEvaluate, OperatorsNeedTheirOperands)
{
    expectFailures({{"1+", "syntax error"},
                    {"*", "syntax error"},
                    {"sin", "syntax error"},
                    {"sin()", "syntax error"},
                    {"=3", "syntax error"},
                    {"++", "syntax error"},
                    {"*-1", "syntax error"},
                    {"", "operand imbalance"},
                    {" \t\r\n", "operand imbalance"},
                    {"()", "operand imbalance"}});
    for (const char* text : {"3=4", "a+1=2", "+a=2", "3%=0", "1++", "++3", "--(a+1)", "a++ = 2"})
        expectFailures({{text, "Not left operand"}});
}

TEST(ExprEvaluateDeathTest, IntegerDivisionByZeroEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ExprEvaluate("7%0.9"), endsByFault, "");
    EXPECT_EXIT(ExprEvaluate("a=7, a%=b"), endsByFault, "");
}

TEST(ExprEvaluate, DepthIsLimitedByMemoryOnly)
{
    constexpr size_t million = 1000000;
    expectValues({{repeated("(", million) + "7" + repeated(")", million), 7},
                  {repeated("(1+", million) + "0" + repeated(")", million), million},
                  {repeated("~", million) + "7", 7},
                  {repeated("abs(", million) + "-7" + repeated(")", million), 7}});
    expectFailures({{repeated("(", million), "parenthese unmatch"}});
}

TEST(ExprEvaluate, SixtyFourMebibytesAreEvaluated)
{
    constexpr size_t half = 32 << 20;
    expectValues({{repeated("1+", half) + "0", half},
                  {repeated("(", half) + "7" + repeated(")", half), 7},
                  {"x0" + repeated("0", 2 * half) + "=3", 3}});
}

TEST(ExprEvaluate, ManyVariablesKeepTheirValues)
{
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "v" + std::to_string(i) + "=" + std::to_string(i) + ",";
    expectValues({{text + "v99999-v0+v1+v7*v8+v50000", 99999 + 1 + 56 + 50000}});
}

TEST(ExprEvaluate, RandomExpressionsHaveTheVerdictOfTheReference)
{
    std::mt19937 random(20);
    std::map<std::string, int> seen;
    for (int i = 0; i < randomCount; ++i) {
        const std::string text = i % 2 ? randomExpression(random, 1 + random() % 5) : randomWords(random);
        const ExprVerdict expected = referenceVerdict(text);
        ++seen[expected.kind == ExprVerdict::value ? "value" : expected.message];
        if (expected.kind == ExprVerdict::fault) continue;
        ASSERT_EQ(verdict(text), expected) << text;
    }
    // Each way to end has been compared often.
    EXPECT_GT(seen["value"], randomCount / 5);
    for (const char* message : {"syntax error", "parenthese unmatch", "operand imbalance", "Not left operand",
                                "unrecongized symbol: #"})
        EXPECT_GT(seen[message], randomCount / 200) << message;
}

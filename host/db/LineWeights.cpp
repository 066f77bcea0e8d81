#include "LineWeights.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace lineweights
{
namespace
{
constexpr int weights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                           53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
} // namespace

bool isLineWeight(int hundredths)
{
    return std::binary_search(std::begin(weights), std::end(weights), hundredths);
}

int nearestLineWeight(double millimetres)
{
    if (!(millimetres > 0)) return 0;
    const double wanted = millimetres * 100;
    return *std::min_element(std::begin(weights), std::end(weights),
                             [&](int a, int b) { return std::abs(a - wanted) < std::abs(b - wanted); });
}

double millimetresOf(int weight)
{
    return (isLineWeight(weight) ? weight : 25) / 100.0;
}
} // namespace lineweights

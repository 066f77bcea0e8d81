#pragma once

#include <random>
#include <string>

/// An expression that is well formed, but for assignments to what is not a variable.
std::string randomExpression(std::mt19937& random, int depth);
/// Words of expressions in any order.
std::string randomWords(std::mt19937& random);

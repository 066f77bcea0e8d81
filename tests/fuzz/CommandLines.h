#pragma once

/// Lines as a fuzzer types them at the command prompt.

#include <random>
#include <string>
#include <vector>

namespace fuzz
{
using Random = std::mt19937;

/// The names of the registered commands, without those that are slow or wait.
std::vector<std::string> commandNames();
/// Names of commands, what they ask for, and what none of them takes, in any order; or what people type.
std::string randomLine(Random& random, const std::vector<std::string>& commands);
} // namespace fuzz

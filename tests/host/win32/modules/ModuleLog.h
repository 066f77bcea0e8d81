#pragma once

#include <string>
#include <vector>

/// What the modules of the tests were told, in order: "base attach", "user detach" ...
__attribute__((visibility("default"))) std::vector<std::string>& moduleLog();

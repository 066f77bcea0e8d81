#pragma once

/// How many things are out that someone must still give back; tests ask after every case.

#include <cstdint>

namespace live
{
std::int64_t& resbufs();
} // namespace live

#pragma once

/// Damage to drawing files, as disks, transfers and careless programs do it.

#include <random>
#include <string>
#include <vector>

namespace dxftest
{
using Random = std::mt19937;

/// Changes a file: bytes flipped, lines dropped, doubled or made huge numbers, cut off, runs of extreme bytes.
void mutate(std::string& file, Random& random);
} // namespace dxftest

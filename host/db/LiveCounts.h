#pragma once

/// How many things are out that someone must still give back; tests ask after every case.

#include <cstdint>

class AcDbDatabase;

namespace live
{
std::int64_t& resbufs();
/// How many objects of a drawing are open.
int openObjects(const AcDbDatabase& database);
} // namespace live

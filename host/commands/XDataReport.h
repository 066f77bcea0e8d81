#pragma once

#include <string>

class AcDbObject;

namespace commands
{
/// The extended data of an object, a line each value, under the names of its applications; empty when it has
/// none.
std::wstring xdataReport(const AcDbObject& object);
} // namespace commands

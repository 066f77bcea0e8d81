#pragma once

class AcDbDatabase;

namespace console
{
/// Prints each layout with the number of entities it holds, by kind, on standard output.
void printSummary(AcDbDatabase& database);
} // namespace console

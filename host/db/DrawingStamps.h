#pragma once

/// What a drawing knows of its making: times and identifiers in the header.

class AcDbDatabase;

namespace stamps
{
/// A drawing that begins now.
void create(AcDbDatabase& database);
/// The time that is spent in the drawing counts from now on.
void open(AcDbDatabase& database);
/// The drawing is about to be saved.
void save(AcDbDatabase& database);
} // namespace stamps

#pragma once

class AcDbDatabase;

/// Makes layouts for the spaces that have none: "Model", and "Layout1" ... for paper spaces. Older files have
/// no layouts.
void addMissingLayouts(AcDbDatabase& database);

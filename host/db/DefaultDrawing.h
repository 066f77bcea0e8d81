#pragma once

class AcDbDatabase;

/// Adds what a new drawing holds beside its first tables and dictionaries: dimension styles, the viewport of the
/// screen, a multiline style, the list of scales.
void addDefaultContents(AcDbDatabase& database);

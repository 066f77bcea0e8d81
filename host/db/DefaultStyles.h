#pragma once

#include "dbid.h"
#include "PackedGroups.h"

class AcDbDatabase;

/// Puts a record that is nothing but groups into a dictionary; its id, null when it cannot be added.
AcDbObjectId addKeptRecord(AcDbObjectId dictionary, const ACHAR* name, const char* recordName,
                           const PackedGroups& groups);

/// Adds the materials, styles and settings of a new drawing that are objects of dictionaries, and makes them current.
void addDefaultStyles(AcDbDatabase& database);
/// The visual styles of every drawing into their dictionary.
void addVisualStyles(AcDbObjectId dictionary);

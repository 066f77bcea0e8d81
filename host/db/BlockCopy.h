#pragma once

/// Copies of objects together with what belongs to them.

#include "dbblock.h"

#include <unordered_map>
#include <vector>

/// The copy of each object that was copied.
using CopiedIds = std::unordered_map<AcDbObjectId, AcDbObjectId>;

/// Adds copies of the living entities of a block to another one of the same drawing, in their order: with
/// vertices, attributes, extended data and extension dictionaries. What they refer to among themselves, the
/// copies refer to among themselves; all other references stay.
CopiedIds copyEntities(const AcDbBlockTableRecord& from, AcDbBlockTableRecord& to);
/// The same of some entities of the drawing, each of them once.
CopiedIds copyEntities(const std::vector<AcDbObjectId>& entities, AcDbBlockTableRecord& to);

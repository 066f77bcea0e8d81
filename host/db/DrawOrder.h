#pragma once

/// The order in which the entities of a block are drawn, where it is not that of their addition.

class AcDbBlockTableRecord;
class AcDbSortentsTable;

/// The block's table of draw order; null when its entities lie in the order they came in.
const AcDbSortentsTable* drawOrderOf(const AcDbBlockTableRecord& block);

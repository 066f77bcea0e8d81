#pragma once

/// What all of the boundary representation shares.

#include "acadstrc.h"
#include "adesk.h"

namespace AcBr
{
enum ErrorStatus {
    eOk = Acad::eOk,
    eNotImplementedYet = Acad::eNotImplementedYet,
    eNotApplicable = Acad::eNotApplicable,
    eInvalidInput = Acad::eInvalidInput,
    eOutOfMemory = Acad::eOutOfMemory,
    eNullObjectPointer = Acad::eNullObjectPointer,
    eInvalidIndex = Acad::eInvalidIndex,
    eWrongObjectType = Acad::eWrongObjectType,
    eNullObjectId = Acad::eNullObjectId,
    eOutOfRange = Acad::eOutOfRange,
    eInvalidObject = 3001,       ///< the entity's shape is not known
    eUninitialisedObject = 3002, ///< nothing was set
    eEndOfTraverser = 3003       ///< a traverser that is done points at nothing
};

enum LoopType { kLoopUnclassified = 0, kLoopExterior, kLoopInterior, kLoopWinding };
} // namespace AcBr

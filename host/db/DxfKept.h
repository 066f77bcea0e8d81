#pragma once

/// Groups that the class of their object does not know: kept, and written back in their section.

#include "DxfFields.h"

void keepGroup(AcDbObject& object, const DxfClass* section, const DxfGroup& group);
void writeKeptGroups(const AcDbObject& object, const DxfClass* section, DxfSink& sink);
/// The record without what the class writes: the frame, sections of unknown names, extended data.
void dxfWriteAttached(const AcDbObject& object, DxfSink& sink);

#pragma once

/// What refers to objects that share a handle in a damaged file.

#include "ReadContext.h"

namespace dxf
{
/// Leads references that name a handle twice given to the object that is meant, where the drawing tells:
/// entries of dictionaries and extension dictionaries mean what names them as its owner, blocks and layouts
/// mean each other, and what a dictionary holds is owned by it. All others stay with the object that kept the
/// handle. Called when all of the file has been read.
void settleDoubles(ReadContext& context);
} // namespace dxf

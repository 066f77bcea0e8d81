#pragma once

/// Multiline texts that are written downwards: their lines are columns of upright letters, from left to
/// right.
///
/// They are laid out lying first, each letter a step of its column wide, and then turned: what was the way
/// along the line becomes the way down, what was below becomes what is at the right.

#include "MTextLayout.h"

namespace lettering
{
/// The attachment of the lying layout for that of the upright one, and the other way round.
Attachment transposed(Attachment attachment);

/// The upright layout for a lying one: a fragment for each letter, without lines below or above it.
MTextLayout writtenDown(const MTextLayout& lying);
} // namespace lettering

#pragma once

/// Free curves drawn.

#include "acgi.h"
#include "gecurv3d.h"

/// Arcs and ellipses as such, others as chords within the deviation that the draw allows.
void drawCurve(const AcGeCurve3d& curve, AcGiWorldDraw& draw);

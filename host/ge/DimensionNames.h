#pragma once

/// The classes of the plane and of space have many members that are the same but for the names of the classes. Such
/// members stand once, in an .inl file, with the names that this gives the classes of one dimension:
///
///     namespace
///     {
///     GE_DIMENSION_NAMES(2d)
///     using Curve = AcGeCurve2d;
///     }
///     #include "AcGeCurve.inl"

#include "Dimension.h"
#include "gecurv2d.h"
#include "gecurv3d.h"

#define GE_DIMENSION_NAMES(D)                                                                                \
    using Point = AcGePoint##D;                                                                              \
    using Points = AcGePoint##D##Array;                                                                      \
    using Vector = AcGeVector##D;                                                                            \
    using Vectors = AcGeVector##D##Array;                                                                    \
    using Matrix = AcGeMatrix##D;                                                                            \
    using Entity = AcGeEntity##D;                                                                            \
    inline Point toPoint(const gecore::Place& place) { return gecore::toPoint##D(place); }                   \
    inline Vector toVector(const gecore::Arrow& arrow) { return gecore::toVector##D(arrow); }

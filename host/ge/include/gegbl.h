#pragma once

#include "gegblge.h"
#include "getol.h"

/// Settings that the whole process shares.
struct AcGeContext {
    /// The tolerance of every call that is not given one. 1e-10 for points and for vectors unless changed.
    static AcGeTol gTol;
};

#pragma once

/// The list interface to the drawing editor in one include: each header below holds one subject.

#include "acedoutput.h"
#include "acutads.h"

#pragma once

/// Services: see rxregsvc.h.

#include "rxregsvc.h"

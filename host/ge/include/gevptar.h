#pragma once

#include "acarray.h"

using AcGeVoidPointerArray = AcArray<void*>;

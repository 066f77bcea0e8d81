#pragma once

/// Every class of dimensions.

#include "dbdimangular.h"
#include "dbdimension.h"
#include "dbdimlinear.h"
#include "dbdimordinate.h"
#include "dbdimradial.h"

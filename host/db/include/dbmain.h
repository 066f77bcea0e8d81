#pragma once

/// The core of the drawing database in one include.

#include "dbapserv.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbdatabasereactor.h"
#include "dbentity.h"
#include "dbidar.h"
#include "dbobject.h"
#include "dbsymtb.h"

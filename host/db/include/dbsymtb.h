#pragma once

/// The symbol tables of a drawing with the classes of their records; blocks are in dbblock.h.

#include "dbdimsty.h"
#include "dblayer.h"
#include "dblinetp.h"
#include "dbregapp.h"
#include "dbsymbase.h"
#include "dbtxtsty.h"
#include "dbucs.h"
#include "dbview.h"
#include "dbvport.h"

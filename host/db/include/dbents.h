#pragma once

/// The entities of drawings in one include.

#include "dbattdef.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "dbdim.h"
#include "dbface.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbline.h"
#include "dbmline.h"
#include "dbmtext.h"
#include "dbobjiter.h"
#include "dbpoint.h"
#include "dbray.h"
#include "dbregion.h"
#include "dbsolid.h"
#include "dbtext.h"
#include "dbviewport.h"
#include "dbxline.h"

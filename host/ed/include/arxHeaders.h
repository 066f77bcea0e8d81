#pragma once

/// The interfaces of the drawing editor and its database in one include.

#include <afxwin.h>

#include <tchar.h>

#include "acapdmgr.h"
#include "acdbads.h"
#include "acdbunits.h"
#include "acdocman.h"
#include "aced.h"
#include "acedads.h"
#include "acgi.h"
#include "actrans.h"
#include "acutads.h"
#include "acutmath.h"
#include "adsdef.h"
#include "axlock.h"
#include "dbdict.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbfiler.h"
#include "dbgroup.h"
#include "dbidmap.h"
#include "dbjig.h"
#include "dblayout.h"
#include "dbmain.h"
#include "dbobjptr.h"
#include "dbobjptr2.h"
#include "dbpl.h"
#include "dbproxy.h"
#include "dbsortentstbl.h"
#include "dbspline.h"
#include "dbxrecrd.h"
#include "geassign.h"
#include "rxregsvc.h"

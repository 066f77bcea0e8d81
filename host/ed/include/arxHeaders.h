#pragma once

/// The interfaces of the drawing editor and its database in one include.

#include <afxwin.h>

#include "acdocman.h"
#include "aced.h"
#include "acedads.h"
#include "acutads.h"
#include "adsdef.h"
#include "dbents.h"
#include "dbjig.h"
#include "dbmain.h"
#include "dbxrecrd.h"
#include "rxregsvc.h"

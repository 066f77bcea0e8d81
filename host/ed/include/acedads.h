#pragma once

/// The list interface to the drawing editor in one include: each header below holds one subject.

#include "acedcmd.h"
#include "acedgraphics.h"
#include "acedhooks.h"
#include "acedinput.h"
#include "acedlisp.h"
#include "acedmodules.h"
#include "acedoutput.h"
#include "acedselect.h"
#include "acedtrace.h"
#include "acedvars.h"
#include "acedviews.h"
#include "acutads.h"

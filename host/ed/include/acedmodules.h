#pragma once

/// Modules as the list interface sees them.

#include "acutads.h"
#include "rxregsvc.h"

/// Loads a module with its messages on the command line. RTNORM or RTERROR: see AcRxDynamicLinker::loadModule.
int acedArxLoad(const ACHAR* fileName);
/// RTNORM or RTERROR: see AcRxDynamicLinker::unloadModule.
int acedArxUnload(const ACHAR* fileName);
/// The file names of the loaded modules, without folders, as a list of RTSTR that the caller releases; null when there are
/// none.
resbuf* acedArxLoaded();

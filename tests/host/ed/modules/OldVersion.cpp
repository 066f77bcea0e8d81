/// A module of another release.

#include "rxdlinkr.h"

extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*) { return AcRx::kRetOK; }
extern "C" __declspec(dllexport) int acrxGetApiVersion() { return 0x170000; }

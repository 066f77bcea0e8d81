/// A module that answers kInitAppMsg with kRetError.

#include "rxdlinkr.h"

extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void*)
{
    return message == AcRx::kInitAppMsg ? AcRx::kRetError : AcRx::kRetOK;
}
extern "C" __declspec(dllexport) int acrxGetApiVersion() { return 0x180000; }

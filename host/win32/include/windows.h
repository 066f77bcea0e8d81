#pragma once

/// The Windows interface of the host: what the library and its modules need of Win32 on other machines.
/// Each header below carries the part that the SDK header of the same name declares. What is not
/// declared is not supported.

#include "windef.h"

#include "winerror.h"

#include "mscrt.h"

#include "errhandlingapi.h"
#include "fileapi.h"
#include "handleapi.h"
#include "libloaderapi.h"
#include "processthreadsapi.h"
#include "profileapi.h"
#include "stringapiset.h"
#include "synchapi.h"
#include "sysinfoapi.h"
#include "timezoneapi.h"
#include "winbase.h"
#include "winnls.h"
#include "winprofile.h"
#include "winreg.h"
#include "winuser.h"
#include "winver.h"

#include "objbase.h"
#include "oleauto.h"

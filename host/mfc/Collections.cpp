#include "afxcoll.h"

IMPLEMENT_SERIAL(CStringArray, CObject, 0)
IMPLEMENT_SERIAL(CStringList, CObject, 0)
IMPLEMENT_SERIAL(CMapStringToString, CObject, 0)
IMPLEMENT_DYNCREATE(CMapStringToPtr, CObject)

#include "CDebugError.h"

void CArxUtils::CDebugError::RxErrorMsg(Acad::ErrorStatus) {}

void CArxUtils::CDebugError::RxErrorMsg(Acad::ErrorStatus, CGTStringW) {}

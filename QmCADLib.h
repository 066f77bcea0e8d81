#pragma once

/// What a module includes: every public header of the library.

#include "AlgorString.h"
#include "ArxDbgDocLockWrite.h"
#include "CArxUtils.h"
#include "CDebugError.h"
#include "CEncoding.h"
#include "CFamStuCmdState.h"
#include "CFamStuEnt.h"
#include "CFamStuGlobe.h"
#include "CFamStuIniFile.h"
#include "CFamStuPub.h"
#include "CFamStuStr.h"
#include "CFamStuSysVar.h"
#include "CGloableVar.h"
#include "CMatrix.h"
#include "CMatrixHelper.h"
#include "ConfigManager.h"
#include "CRegexString.h"
#include "CtransStr.h"
#include "ExprEvaluate.h"
#include "FileInfo.h"

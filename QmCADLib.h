#pragma once

/// What a module includes: every public header of the library.

#include "AlgorString.h"
#include "CEncoding.h"
#include "CFamStuIniFile.h"
#include "CFamStuStr.h"
#include "CMatrix.h"
#include "CMatrixHelper.h"
#include "CRegexString.h"
#include "CtransStr.h"
#include "ExprEvaluate.h"

#pragma once

/// What CMatrix throws: pointers to these texts, which live as long as the module.

namespace matrixmessages
{
constexpr const char* notSafeArray = "Not a SafeArray";
constexpr const char* notDoubles = "Not a double SafeArray";
constexpr const char* wrongDimensions = "SafeArray, incorrect number of dimensions";
constexpr const char* noAccess = "SafeArray access error";
constexpr const char* invalidOperation = "Invalid operation";
constexpr const char* noCommonSize = "Matrices do not have common size";
constexpr const char* notSquare = "Matrix must be square.";
constexpr const char* noInverse = "Matrix inversion error";
constexpr const char* notInside = "Sub matrix is not contained in source";
constexpr const char* noDiagonal = "Can only extract diagonal from square matrix";
constexpr const char* cannotJoin = "Cannot concatenate matrices, not same size";
} // namespace matrixmessages

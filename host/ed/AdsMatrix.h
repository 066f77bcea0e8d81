#pragma once

/// The matrices of the calls that lists and selection sets have.

#include "adsdef.h"
#include "gemat3d.h"

namespace ed
{
inline AcGeMatrix3d matrixOf(const ads_matrix from)
{
    AcGeMatrix3d matrix;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix.entry[row][column] = from[row][column];
    }
    return matrix;
}
} // namespace ed

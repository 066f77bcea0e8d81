#pragma once

#include <afx.h>
#include <afxv_dll.h>

class CMatrix;

/// One column of a matrix for reading: matrix[x][y] is element (x, y). It refers to the matrix, which must
/// outlive it and keep its size.
class AFX_EXT_CLASS CMatrixHelper
{
public:
    CMatrixHelper(const CMatrix& matrix, int x) : m_matrix(matrix), m_x(x) {}

    /// Element (x, y). The reference is valid until the matrix is next changed. Throws "Invalid operation"
    /// when there is no such element.
    const double& operator[](int y) const;

private:
    const CMatrix& m_matrix;
    int m_x;
};

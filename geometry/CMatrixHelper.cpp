#include "CMatrixHelper.h"

#include "CMatrix.h"

const double& CMatrixHelper::operator[](int y) const
{
    return m_matrix.GetElement(m_x, y);
}

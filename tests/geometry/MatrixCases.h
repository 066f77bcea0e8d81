#pragma once

#include "QmCADLib.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <initializer_list>
#include <ostream>
#include <random>
#include <string>

/// A matrix from its rows.
inline CMatrix fromRows(std::initializer_list<std::initializer_list<double>> rows)
{
    CMatrix matrix(rows.size() ? static_cast<int>(rows.begin()->size()) : 0, static_cast<int>(rows.size()));
    int y = 0;
    for (const auto& row : rows) {
        int x = 0;
        for (const double value : row)
            matrix.SetElement(x++, y, value);
        ++y;
    }
    return matrix;
}

inline CMatrix randomMatrix(int columns, int rows, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> spread(-1.0, 1.0);
    CMatrix matrix(columns, rows);
    for (int x = 0; x < columns; ++x)
        for (int y = 0; y < rows; ++y)
            matrix.SetElement(x, y, spread(random));
    return matrix;
}

/// For messages of failed tests.
inline void PrintTo(const CMatrix& matrix, std::ostream* out)
{
    *out << matrix.GetNumColumns() << " x " << matrix.GetNumRows();
    for (int y = 0; y < std::min(matrix.GetNumRows(), 8); ++y) {
        *out << "\n";
        for (int x = 0; x < std::min(matrix.GetNumColumns(), 8); ++x)
            *out << " " << matrix[x][y];
    }
}

/// The text that the work throws, "" when it throws none.
template <class Work>
std::string thrownBy(Work work)
{
    try {
        work();
    } catch (const char* message) {
        return message;
    }
    return "";
}

/// The cause of the archive exception that the work throws, `none` without one.
template <class Work>
int archiveFaultOf(Work work)
{
    try {
        work();
    } catch (CArchiveException* error) {
        const int cause = error->m_cause;
        error->Delete();
        return cause;
    }
    return CArchiveException::none;
}

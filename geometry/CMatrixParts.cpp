#include "CMatrix.h"
#include "MatrixMessages.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

namespace
{
using std::size_t;

/// Copies `rows` runs of `columns` numbers between two places whose runs begin at these distances.
void copyRows(const double* from, size_t fromStride, double* to, size_t toStride, size_t columns, size_t rows)
{
    for (size_t y = 0; y < rows; ++y)
        std::copy_n(from + y * fromStride, columns, to + y * toStride);
}

int sizeAfter(int size, int added)
{
    if (size > std::numeric_limits<int>::max() - added) throw matrixmessages::invalidOperation;
    return size + added;
}

void requireValues(const double* values)
{
    if (!values) throw matrixmessages::invalidOperation;
}

/// Whether [from, from + count) lies in [0, size).
bool isInside(int from, int count, int size)
{
    return from >= 0 && count >= 0 && static_cast<std::int64_t>(from) + count <= size;
}

std::vector<int> indicesOf(const std::vector<char>& marks)
{
    std::vector<int> indices;
    for (size_t i = 0; i < marks.size(); ++i)
        if (marks[i]) indices.push_back(static_cast<int>(i));
    return indices;
}
} // namespace

/// A copy with `count` columns before column x: (i, y) of them is values[i + y * stride].
CMatrix CMatrix::WithColumns(int x, const double* values, size_t stride, int count) const
{
    CMatrix wider = Unfilled(sizeAfter(m_columns, count), m_rows);
    const auto rows = static_cast<size_t>(m_rows), columns = static_cast<size_t>(m_columns);
    const auto before = static_cast<size_t>(x), added = static_cast<size_t>(count);
    copyRows(m_block, columns, wider.m_block, columns + added, before, rows);
    copyRows(values, stride, wider.m_block + before, columns + added, added, rows);
    copyRows(m_block + before, columns, wider.m_block + before + added, columns + added, columns - before,
             rows);
    return wider;
}

/// A copy with `count` rows before row y, whose values follow one another.
CMatrix CMatrix::WithRows(int y, const double* values, int count) const
{
    CMatrix higher = Unfilled(m_columns, sizeAfter(m_rows, count));
    double* to = std::copy(Row(0), Row(y), higher.m_block);
    to = std::copy_n(values, static_cast<size_t>(count) * m_columns, to);
    std::copy(Row(y), Row(m_rows), to);
    return higher;
}

void CMatrix::AddColumn(const double* values)
{
    InsertCol(m_columns, values);
}

void CMatrix::AddRow(const double* values)
{
    InsertRow(m_rows, values);
}

void CMatrix::InsertCol(int x, const double* values)
{
    if (x != m_columns) RequireColumn(x);
    requireValues(values);
    *this = WithColumns(x, values, 1, 1);
}

void CMatrix::InsertRow(int y, const double* values)
{
    if (y != m_rows) RequireRow(y);
    requireValues(values);
    *this = WithRows(y, values, 1);
}

int CMatrix::DeleteCol(int x)
{
    if (x < 0 || x >= m_columns) return 0;
    CMatrix rest = Unfilled(m_columns - 1, m_rows);
    const auto rows = static_cast<size_t>(m_rows), columns = static_cast<size_t>(m_columns);
    const auto before = static_cast<size_t>(x);
    copyRows(m_block, columns, rest.m_block, columns - 1, before, rows);
    copyRows(m_block + before + 1, columns, rest.m_block + before, columns - 1, columns - 1 - before, rows);
    *this = rest;
    return 1;
}

int CMatrix::DeleteRow(int y)
{
    if (y < 0 || y >= m_rows) return 0;
    CMatrix rest = Unfilled(m_columns, m_rows - 1);
    std::copy(Row(y + 1), Row(m_rows), std::copy(Row(0), Row(y), rest.m_block));
    *this = rest;
    return 1;
}

void CMatrix::ConcatinateColumns(const CMatrix& other)
{
    *this = GetConcatinatedColumns(other);
}

void CMatrix::ConcatinateRows(const CMatrix& other)
{
    *this = GetConcatinatedRows(other);
}

CMatrix CMatrix::GetConcatinatedColumns(const CMatrix& other) const
{
    if (m_rows != other.m_rows) throw matrixmessages::cannotJoin;
    return WithColumns(m_columns, other.m_block, static_cast<size_t>(other.m_columns), other.m_columns);
}

CMatrix CMatrix::GetConcatinatedRows(const CMatrix& other) const
{
    if (m_columns != other.m_columns) throw matrixmessages::cannotJoin;
    return WithRows(m_rows, other.m_block, other.m_rows);
}

void CMatrix::RequireInside(int x, int y, int columns, int rows) const
{
    if (!isInside(x, columns, m_columns) || !isInside(y, rows, m_rows)) throw matrixmessages::notInside;
}

CMatrix CMatrix::ExtractSubMatrix(int x, int y, int columns, int rows) const
{
    RequireInside(x, y, columns, rows);
    CMatrix block = Unfilled(columns, rows);
    copyRows(Row(y) + x, static_cast<size_t>(m_columns), block.m_block, static_cast<size_t>(columns),
             static_cast<size_t>(columns), static_cast<size_t>(rows));
    return block;
}

void CMatrix::SetSubMatrix(int x, int y, const CMatrix& block)
{
    RequireInside(x, y, block.m_columns, block.m_rows);
    if (block.m_block == m_block) return; // as large as this one, so it is this one
    double* const to = Writable() + static_cast<size_t>(y) * m_columns + x;
    const auto columns = static_cast<size_t>(block.m_columns);
    copyRows(block.m_block, columns, to, static_cast<size_t>(m_columns), columns,
             static_cast<size_t>(block.m_rows));
}

CMatrix CMatrix::ExtractDiagonal() const
{
    if (m_columns != m_rows) throw matrixmessages::noDiagonal;
    CMatrix diagonal = Unfilled(1, m_rows);
    for (int i = 0; i < m_rows; ++i)
        diagonal.m_block[i] = Row(i)[i];
    return diagonal;
}

void CMatrix::MakeSquare()
{
    *this = GetSquareMatrix();
}

CMatrix CMatrix::GetSquareMatrix() const
{
    if (m_columns == m_rows) return *this;
    const int size = std::max(m_columns, m_rows);
    CMatrix square(size, size);
    square.SetSubMatrix(0, 0, *this);
    return square;
}

CMatrix CMatrix::SiftZeroRowAndCol() const
{
    std::vector<char> columnCounts(static_cast<size_t>(m_columns)), rowCounts(static_cast<size_t>(m_rows));
    for (int y = 0; y < m_rows; ++y)
        for (int x = 0; x < m_columns; ++x)
            if (Row(y)[x] != 0.0)
                columnCounts[static_cast<size_t>(x)] = rowCounts[static_cast<size_t>(y)] = 1;
    const std::vector<int> columns = indicesOf(columnCounts), rows = indicesOf(rowCounts);
    CMatrix sifted = Unfilled(static_cast<int>(columns.size()), static_cast<int>(rows.size()));
    double* to = sifted.m_block;
    for (const int y : rows)
        for (const int x : columns)
            *to++ = Row(y)[x];
    return sifted;
}

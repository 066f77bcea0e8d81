#include "CMatrix.h"

#include "MatrixMessages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

IMPLEMENT_SERIAL(CMatrix, CObject, 1)

namespace
{
static_assert(sizeof(LONG) == 4, "the count of sharers is the first 32 bits of the last double");

LONG& sharersOf(double* block, std::size_t count)
{
    return *reinterpret_cast<LONG*>(block + count);
}

std::size_t countOf(int columns, int rows)
{
    return static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
}

/// The bytes of a block: the elements and the count.
std::size_t bytesOf(int columns, int rows)
{
    if (columns < 0 || rows < 0) throw matrixmessages::invalidOperation;
    constexpr std::size_t most = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(double) - 1;
    if (countOf(columns, rows) > most) AfxThrowMemoryException();
    return (countOf(columns, rows) + 1) * sizeof(double);
}

double* asBlock(void* memory, int columns, int rows)
{
    if (!memory) AfxThrowMemoryException();
    double* const block = static_cast<double*>(memory);
    sharersOf(block, countOf(columns, rows)) = 1;
    return block;
}
} // namespace

CMatrix::CMatrix() : CMatrix(1, 1) {}

CMatrix::CMatrix(int columns, int rows) : CMatrix(columns, rows, AllocateMemory(columns, rows)) {}

CMatrix::CMatrix(int size, bool identity) : CMatrix(size, size)
{
    for (std::size_t i = 0; identity && i < Count(); i += static_cast<std::size_t>(size) + 1)
        m_block[i] = 1.0;
}

CMatrix::CMatrix(const CMatrix& other)
    : CObject(), m_columns(other.m_columns), m_rows(other.m_rows), m_block(other.m_block)
{
    ++Sharers();
}

/// Takes over a block that nobody shares.
CMatrix::CMatrix(int columns, int rows, double* block) : m_columns(columns), m_rows(rows), m_block(block) {}

CMatrix::~CMatrix()
{
    DecrementAndRelease();
}

CMatrix& CMatrix::operator=(const CMatrix& other)
{
    ++other.Sharers();
    DecrementAndRelease();
    m_columns = other.m_columns;
    m_rows = other.m_rows;
    m_block = other.m_block;
    return *this;
}

/// A block of zeros that one matrix has.
double* CMatrix::AllocateMemory(int columns, int rows)
{
    return asBlock(std::calloc(bytesOf(columns, rows), 1), columns, rows);
}

/// The same for those who write every element.
double* CMatrix::AllocateUnfilled(int columns, int rows)
{
    return asBlock(std::malloc(bytesOf(columns, rows)), columns, rows);
}

CMatrix CMatrix::Unfilled(int columns, int rows)
{
    return CMatrix(columns, rows, AllocateUnfilled(columns, rows));
}

void CMatrix::DecrementAndRelease()
{
    if (--Sharers() == 0) std::free(m_block);
}

std::size_t CMatrix::Count() const
{
    return countOf(m_columns, m_rows);
}

LONG& CMatrix::Sharers() const
{
    return sharersOf(m_block, Count());
}

/// The elements for writing, no longer shared.
double* CMatrix::Writable()
{
    if (Sharers() > 1) {
        double* const own = AllocateUnfilled(m_columns, m_rows);
        std::copy_n(m_block, Count(), own);
        --Sharers();
        m_block = own;
    }
    return m_block;
}

void CMatrix::RequireColumn(int x) const
{
    if (x < 0 || x >= m_columns) throw matrixmessages::invalidOperation;
}

void CMatrix::RequireRow(int y) const
{
    if (y < 0 || y >= m_rows) throw matrixmessages::invalidOperation;
}

const double& CMatrix::GetElement(int x, int y) const
{
    RequireColumn(x);
    RequireRow(y);
    return Row(y)[x];
}

bool CMatrix::SetElement(int x, int y, double value)
{
    RequireColumn(x);
    RequireRow(y);
    Writable()[static_cast<std::size_t>(y) * m_columns + x] = value;
    return true;
}

void CMatrix::SetSize(int columns, int rows)
{
    *this = CMatrix(columns, rows);
}

bool CMatrix::operator==(const CMatrix& other) const
{
    if (m_block == other.m_block) return true;
    return m_columns == other.m_columns && m_rows == other.m_rows &&
           std::memcmp(m_block, other.m_block, Count() * sizeof(double)) == 0;
}

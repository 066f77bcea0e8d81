#include "CMatrix.h"
#include "dense/Elimination.h"
#include "dense/Transposition.h"
#include "MatrixMessages.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <new>
#include <vector>

namespace
{
using std::size_t;

size_t sizeOf(int count)
{
    return static_cast<size_t>(count);
}

/// The elements of a column less their mean, for every column. A running sum for each column keeps to the
/// order of the elements in memory.
void takeOffMeans(double* elements, size_t columns, size_t rows)
{
    std::vector<double> means(columns);
    for (size_t y = 0; y < rows; ++y)
        for (size_t x = 0; x < columns; ++x)
            means[x] += elements[y * columns + x];
    for (double& mean : means)
        mean /= static_cast<double>(rows);
    for (size_t y = 0; y < rows; ++y)
        for (size_t x = 0; x < columns; ++x)
            elements[y * columns + x] -= means[x];
}

/// The product with working memory that is kept for the next one: to take a megabyte from the system, and
/// give it back, costs half of a product of that size. Threads that meet here take memory of their own.
void multiply(const dense::ProductSize& size, dense::Source a, dense::Source b, dense::Target product)
{
    static std::mutex mutex;
    static dense::Multiplier kept;
    const std::unique_lock<std::mutex> lock(mutex, std::try_to_lock);
    if (lock.owns_lock()) return kept.run(size, a, b, product, dense::Update::assign);
    dense::Multiplier().run(size, a, b, product, dense::Update::assign);
}

/// Turns the standard library's exception into the framework's.
template <class Work>
auto withMemory(Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}
} // namespace

void CMatrix::RequireSizeOf(const CMatrix& other) const
{
    if (m_columns != other.m_columns || m_rows != other.m_rows) throw matrixmessages::noCommonSize;
}

CMatrix CMatrix::operator*(const CMatrix& b) const
{
    if (m_rows != b.m_columns) throw matrixmessages::noCommonSize;
    CMatrix product = Unfilled(m_columns, b.m_rows);
    const size_t width = sizeOf(m_columns), height = sizeOf(b.m_rows), depth = sizeOf(m_rows);
    withMemory([&] {
        multiply({width, height, depth}, {m_block, width}, {b.m_block, depth}, {product.m_block, width});
    });
    return product;
}

CMatrix& CMatrix::operator*=(const CMatrix& b)
{
    return *this = *this * b;
}

CMatrix& CMatrix::operator*=(double factor)
{
    double* const elements = Writable();
    for (size_t i = 0; i < Count(); ++i)
        elements[i] *= factor;
    return *this;
}

CMatrix CMatrix::operator+(const CMatrix& b) const
{
    RequireSizeOf(b);
    CMatrix sum = Unfilled(m_columns, m_rows);
    std::transform(m_block, m_block + Count(), b.m_block, sum.m_block, std::plus<double>());
    return sum;
}

CMatrix CMatrix::operator-(const CMatrix& b) const
{
    RequireSizeOf(b);
    CMatrix difference = Unfilled(m_columns, m_rows);
    std::transform(m_block, m_block + Count(), b.m_block, difference.m_block, std::minus<double>());
    return difference;
}

CMatrix& CMatrix::operator+=(const CMatrix& b)
{
    RequireSizeOf(b);
    double* const elements = Writable();
    std::transform(elements, elements + Count(), b.m_block, elements, std::plus<double>());
    return *this;
}

CMatrix& CMatrix::operator-=(const CMatrix& b)
{
    RequireSizeOf(b);
    double* const elements = Writable();
    std::transform(elements, elements + Count(), b.m_block, elements, std::minus<double>());
    return *this;
}

void CMatrix::Invert()
{
    if (m_columns != m_rows) throw matrixmessages::notSquare;
    const size_t size = sizeOf(m_columns);
    const size_t done = withMemory([&] { return dense::Elimination({Writable(), size}, size).run(); });
    if (done < size) throw matrixmessages::noInverse;
}

CMatrix CMatrix::GetInverted() const
{
    CMatrix inverse(*this);
    inverse.Invert();
    return inverse;
}

void CMatrix::Transpose()
{
    *this = GetTransposed();
}

CMatrix CMatrix::GetTransposed() const
{
    CMatrix transposed = Unfilled(m_rows, m_columns);
    dense::transpose({m_block, sizeOf(m_columns)}, sizeOf(m_columns), sizeOf(m_rows),
                     {transposed.m_block, sizeOf(m_rows)});
    return transposed;
}

CMatrix CMatrix::Covariant() const
{
    if (m_rows < 2) return CMatrix(m_columns, m_columns);
    CMatrix deviations(*this);
    double* const elements = deviations.Writable();
    withMemory([&] { takeOffMeans(elements, sizeOf(m_columns), sizeOf(m_rows)); });
    CMatrix covariances = deviations * deviations.GetTransposed();
    const double degrees = m_rows - 1;
    for (size_t i = 0; i < covariances.Count(); ++i)
        covariances.m_block[i] /= degrees;
    return covariances;
}

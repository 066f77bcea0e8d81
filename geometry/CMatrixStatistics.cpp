#include "CMatrix.h"
#include "MatrixMessages.h"

#include <cmath>
#include <limits>

namespace
{
using std::size_t;

/// Elements of one row or column, or of the whole matrix.
struct Elements {
    const double* first;
    size_t stride;
    size_t count;
};

struct Extremes {
    double least, most;
};

/// A comparison with a NaN is false: it is passed over, except that the first one stays until a number comes.
Extremes extremesOf(const Elements& elements)
{
    if (elements.count == 0) throw matrixmessages::invalidOperation;
    Extremes found{*elements.first, *elements.first};
    for (size_t i = 1; i < elements.count; ++i) {
        const double value = elements.first[i * elements.stride];
        if (!(value >= found.least) && !std::isnan(value)) found.least = value;
        if (!(value <= found.most) && !std::isnan(value)) found.most = value;
    }
    return found;
}

template <class Term>
double sumOf(const Elements& elements, Term term)
{
    double sum = 0.0;
    for (size_t i = 0; i < elements.count; ++i)
        sum += term(elements.first[i * elements.stride]);
    return sum;
}

double itself(double value)
{
    return value;
}

double squared(double value)
{
    return value * value;
}

/// The map of one range to another. Halves keep the width of a range from overflowing; both ends are met.
class LinearMap
{
public:
    LinearMap(Extremes from, Extremes to)
        : m_from(from), m_to(to), m_halfWidth(from.most / 2 - from.least / 2)
    {
    }

    double operator()(double value) const
    {
        if (m_halfWidth == 0.0) return std::isnan(value) ? value : m_to.least;
        const double part = (value / 2 - m_from.least / 2) / m_halfWidth;
        return m_to.least * (1.0 - part) + m_to.most * part;
    }

private:
    Extremes m_from, m_to;
    double m_halfWidth;
};
} // namespace

double CMatrix::GetColumnMax(int x) const
{
    RequireColumn(x);
    return extremesOf({m_block + x, static_cast<size_t>(m_columns), static_cast<size_t>(m_rows)}).most;
}

double CMatrix::GetColumnMin(int x) const
{
    RequireColumn(x);
    return extremesOf({m_block + x, static_cast<size_t>(m_columns), static_cast<size_t>(m_rows)}).least;
}

double CMatrix::GetRowMax(int y) const
{
    RequireRow(y);
    return extremesOf({Row(y), 1, static_cast<size_t>(m_columns)}).most;
}

double CMatrix::GetRowMin(int y) const
{
    RequireRow(y);
    return extremesOf({Row(y), 1, static_cast<size_t>(m_columns)}).least;
}

void CMatrix::GetNumericRange(double& min, double& max) const
{
    const Extremes found = extremesOf({m_block, 1, Count()});
    min = found.least;
    max = found.most;
}

double CMatrix::SumColumn(int x) const
{
    RequireColumn(x);
    return sumOf({m_block + x, static_cast<size_t>(m_columns), static_cast<size_t>(m_rows)}, itself);
}

double CMatrix::SumColumnSquared(int x) const
{
    RequireColumn(x);
    return sumOf({m_block + x, static_cast<size_t>(m_columns), static_cast<size_t>(m_rows)}, squared);
}

double CMatrix::SumRowSquared(int y) const
{
    RequireRow(y);
    return sumOf({Row(y), 1, static_cast<size_t>(m_columns)}, squared);
}

void CMatrix::Normalise(double min, double max)
{
    const LinearMap map(extremesOf({m_block, 1, Count()}), {min, max});
    double* const elements = Writable();
    for (size_t i = 0; i < Count(); ++i)
        elements[i] = map(elements[i]);
}

CMatrix CMatrix::GetNormalised(double min, double max) const
{
    CMatrix normalised(*this);
    normalised.Normalise(min, max);
    return normalised;
}

#include "MatrixCases.h"

#include <cmath>
#include <future>
#include <vector>

namespace
{
double largestElement(const CMatrix& matrix)
{
    double min = 0, max = 0;
    matrix.GetNumericRange(min, max);
    return std::max(std::abs(min), std::abs(max));
}

/// The largest element of a b - 1, in units of the rounding of the sums in it.
double residual(const CMatrix& a, const CMatrix& b)
{
    const int size = a.GetNumColumns();
    return largestElement(a * b - CMatrix(size, true)) /
           (1.1e-16 * size * largestElement(a) * largestElement(b));
}

CMatrix dominant(int size, unsigned seed)
{
    CMatrix matrix = randomMatrix(size, size, seed);
    for (int i = 0; i < size; ++i)
        matrix.SetElement(i, i, matrix[i][i] + size);
    return matrix;
}
} // namespace

// result(x, y) = sum of left(x, k) b(k, y): with left = (1 2 3 / 4 5 6), three columns and two rows, and
// b = (1 2 / 3 4 / 5 6 / 7 8), two columns and four rows, result(0, 0) = 1 * 1 + 4 * 2 = 9.
TEST(MatrixProduct, HasTheColumnsOfTheLeftAndTheRowsOfTheRight)
{
    const CMatrix left = fromRows({{1, 2, 3}, {4, 5, 6}}), right = fromRows({{1, 2}, {3, 4}, {5, 6}, {7, 8}});
    const CMatrix expected = fromRows({{9, 12, 15}, {19, 26, 33}, {29, 40, 51}, {39, 54, 69}});
    EXPECT_EQ(left * right, expected);
    CMatrix product = left;
    product *= right;
    EXPECT_EQ(product, expected);
    EXPECT_EQ(thrownBy([&] { product *= left; }), "Matrices do not have common size");
    EXPECT_EQ(product, expected);
}

TEST(MatrixProduct, OfItselfReadsTheOldElements)
{
    CMatrix matrix = fromRows({{0, 1}, {1, 1}});
    for (int i = 0; i < 5; ++i)
        matrix *= matrix; // the 32nd power holds the Fibonacci numbers 31, 32 and 33
    EXPECT_EQ(matrix, fromRows({{1346269, 2178309}, {2178309, 3524578}}));
}

TEST(MatrixProduct, WithNothingBetweenIsZero)
{
    EXPECT_EQ(CMatrix(3, 0) * CMatrix(0, 2), CMatrix(3, 2));
}

TEST(MatrixProduct, TransposesInReverse)
{
    const CMatrix a = randomMatrix(70, 90, 1), b = randomMatrix(90, 50, 2);
    const CMatrix difference = a * b - (b.GetTransposed() * a.GetTransposed()).GetTransposed();
    EXPECT_LE(largestElement(difference), 90 * 1.2e-16 * 90);
}

// The working memory that is kept between products must not be used by two at once.
TEST(MatrixProduct, IsTheSameWhenThreadsMultiplyAtOnce)
{
    const auto power = [](unsigned seed) {
        const CMatrix matrix = randomMatrix(90, 90, seed);
        CMatrix product = matrix;
        for (int i = 0; i < 100; ++i)
            product = (product * matrix) *= 0.1;
        return product;
    };
    std::vector<std::future<CMatrix>> threads;
    for (unsigned seed = 0; seed < 4; ++seed)
        threads.push_back(std::async(std::launch::async, power, seed));
    std::vector<CMatrix> found;
    for (auto& thread : threads)
        found.push_back(thread.get());
    for (unsigned seed = 0; seed < 4; ++seed)
        EXPECT_EQ(found[seed], power(seed)) << seed;
}

TEST(MatrixSum, IsElementByElement)
{
    const CMatrix a = fromRows({{1, 2}, {3, 4}}), b = fromRows({{10, 20}, {30, 40}});
    EXPECT_EQ(a + b, fromRows({{11, 22}, {33, 44}}));
    EXPECT_EQ(b - a, fromRows({{9, 18}, {27, 36}}));
    CMatrix sum = a;
    sum += sum;
    EXPECT_EQ(sum, fromRows({{2, 4}, {6, 8}}));
    sum -= a;
    EXPECT_EQ(sum, a);
    sum *= -0.5;
    EXPECT_EQ(sum, fromRows({{-0.5, -1}, {-1.5, -2}}));
    const std::string message = "Matrices do not have common size";
    EXPECT_EQ(thrownBy([&] { sum += CMatrix(2, 3); }), message);
    EXPECT_EQ(thrownBy([&] { a - CMatrix(3, 2); }), message);
}

TEST(MatrixTranspose, ExchangesColumnsAndRows)
{
    CMatrix matrix = fromRows({{1, 2, 3}, {4, 5, 6}});
    matrix.Transpose();
    EXPECT_EQ(matrix, fromRows({{1, 4}, {2, 5}, {3, 6}}));
    EXPECT_EQ(CMatrix(0, 3).GetTransposed(), CMatrix(3, 0));
}

TEST(MatrixInverse, OfSmallIntegersIsExact)
{
    EXPECT_EQ(fromRows({{2, 1}, {1, 1}}).GetInverted(), fromRows({{1, -1}, {-1, 2}}));
    EXPECT_EQ(fromRows({{4}}).GetInverted(), fromRows({{0.25}}));
    EXPECT_EQ(CMatrix(0, 0).GetInverted(), CMatrix(0, 0));
}

// A matrix whose diagonal outweighs its rows needs no pivoting, and its inverse is as good as the rounding.
TEST(MatrixInverse, TimesTheMatrixIsTheIdentity)
{
    for (const int size : {3, 17, 100, 260}) {
        const CMatrix matrix = dominant(size, static_cast<unsigned>(size)), inverse = matrix.GetInverted();
        EXPECT_LE(residual(matrix, inverse), 10) << size;
        EXPECT_LE(residual(inverse, matrix), 10) << size;
    }
}

TEST(MatrixInverse, ZeroOnTheDiagonalIsAnErrorEvenWhereAnInverseExists)
{
    const CMatrix exchange = fromRows({{0, 1}, {1, 0}});
    CMatrix matrix = exchange;
    EXPECT_EQ(thrownBy([&] { matrix.Invert(); }), "Matrix inversion error");
    EXPECT_EQ(matrix, fromRows({{1, 1}, {1, 0}})); // the first pivot was set to 1 before it was looked at
    EXPECT_EQ(thrownBy([&] { exchange.GetInverted(); }), "Matrix inversion error");
    EXPECT_EQ(exchange, fromRows({{0, 1}, {1, 0}}));
    // The step k = 0 makes (1, 0) 0 - 2 * 1, (1, 1) 4 - 2 * 2, and divides (0, 0) and (0, 1) by 1.
    matrix = fromRows({{1, 2}, {2, 4}});
    EXPECT_EQ(thrownBy([&] { matrix.Invert(); }), "Matrix inversion error");
    EXPECT_EQ(matrix, fromRows({{1, -2}, {2, 1}}));
}

TEST(MatrixInverse, OfNoSquareIsRefusedUnchanged)
{
    CMatrix matrix = fromRows({{1, 2}, {3, 4}, {5, 6}});
    EXPECT_EQ(thrownBy([&] { matrix.Invert(); }), "Matrix must be square.");
    EXPECT_EQ(matrix, fromRows({{1, 2}, {3, 4}, {5, 6}}));
}

// The inverse of (4 2 / 1 3), whose determinant is 10, is (3 -2 / -1 4) / 10.
TEST(MatrixInverse, LeavesSharersAlone)
{
    const CMatrix matrix = fromRows({{4, 2}, {1, 3}});
    CMatrix inverse = matrix;
    inverse.Invert();
    EXPECT_EQ(matrix, fromRows({{4, 2}, {1, 3}}));
    EXPECT_NEAR(inverse[0][0], 0.3, 1e-16);
    EXPECT_NEAR(inverse[1][0], -0.2, 1e-16);
    EXPECT_NEAR(inverse[0][1], -0.1, 1e-16);
    EXPECT_NEAR(inverse[1][1], 0.4, 1e-16);
}

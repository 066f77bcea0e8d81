#include "MatrixCases.h"

#include <climits>
#include <cmath>

namespace
{
const CMatrix numbers2x3 = fromRows({{1, 2}, {3, 4}, {5, 6}}); // two columns, three rows
} // namespace

TEST(Matrix, DefaultIsOneZero)
{
    const CMatrix matrix;
    EXPECT_EQ(matrix.GetNumColumns(), 1);
    EXPECT_EQ(matrix.GetNumRows(), 1);
    EXPECT_EQ(matrix.GetElement(0, 0), 0.0);
}

TEST(Matrix, IdentityHasOnesOnTheDiagonal)
{
    EXPECT_EQ(CMatrix(3, true), fromRows({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    EXPECT_EQ(CMatrix(2, false), CMatrix(2, 2));
    EXPECT_EQ(CMatrix(0, true), CMatrix(0, 0));
}

TEST(Matrix, ChangeOfACopyLeavesTheOthersAsTheyWere)
{
    CMatrix first = numbers2x3, second(first), third;
    third = second;
    EXPECT_TRUE(third == first);
    third.SetElement(1, 2, 7);
    EXPECT_EQ(first, numbers2x3);
    EXPECT_EQ(second, numbers2x3);
    EXPECT_EQ(third, fromRows({{1, 2}, {3, 4}, {5, 7}}));
    third.SetElement(1, 2, 6);
    EXPECT_TRUE(third == first);
    first *= 2.0;
    EXPECT_EQ(second, numbers2x3);
}

TEST(Matrix, AssignmentToItselfAndToASharerKeepsTheElements)
{
    CMatrix matrix = numbers2x3;
    const CMatrix& same = matrix;
    matrix = same;
    const CMatrix sharer(matrix);
    matrix = sharer;
    EXPECT_EQ(matrix, numbers2x3);
}

TEST(Matrix, EqualityIsOfSizesAndBits)
{
    EXPECT_FALSE(CMatrix(2, 3) == CMatrix(3, 2));
    EXPECT_FALSE(fromRows({{0.0}}) == fromRows({{-0.0}}));
    EXPECT_TRUE(fromRows({{NAN}}) == fromRows({{NAN}}));
}

TEST(Matrix, ReadingByColumnAndRowAgrees)
{
    EXPECT_EQ(numbers2x3[1][2], 6);
    EXPECT_EQ(numbers2x3.GetElement(0, 2), 5);
    const CMatrix matrix = numbers2x3;
    const double& element = CMatrixHelper(matrix, 1)[0];
    EXPECT_EQ(element, 2);
}

TEST(Matrix, MisuseIsAnInvalidOperation)
{
    const std::string invalid = "Invalid operation";
    CMatrix matrix = numbers2x3;
    for (const auto& [x, y] : {std::pair(-1, 0), std::pair(2, 0), std::pair(0, -1), std::pair(0, 3)}) {
        EXPECT_EQ(thrownBy([&] { matrix.GetElement(x, y); }), invalid);
        EXPECT_EQ(thrownBy([&] { matrix.SetElement(x, y, 1); }), invalid);
        EXPECT_EQ(thrownBy([&] { static_cast<void>(matrix[x][y]); }), invalid);
    }
    EXPECT_EQ(thrownBy([] { CMatrix(-1, 2); }), invalid);
    EXPECT_EQ(thrownBy([] { CMatrix(-1, true); }), invalid);
    EXPECT_EQ(thrownBy([&] { matrix.SetSize(2, -1); }), invalid);
    EXPECT_EQ(thrownBy([&] { matrix.AddRow(nullptr); }), invalid);
    EXPECT_EQ(thrownBy([&] { matrix.GetColumnMax(2); }), invalid);
    EXPECT_EQ(thrownBy([&] { matrix.GetRowAsText(3); }), invalid);
    EXPECT_EQ(thrownBy([] { CMatrix(0, 3).GetRowMin(1); }), invalid);
    EXPECT_EQ(matrix, numbers2x3);
}

TEST(Matrix, SizeBeyondMemoryIsAMemoryException)
{
    CMatrix matrix = numbers2x3;
    bool caught = false;
    try {
        matrix.SetSize(INT_MAX, INT_MAX);
    } catch (CMemoryException* error) {
        caught = true;
        error->Delete();
    }
    EXPECT_TRUE(caught);
    EXPECT_EQ(matrix, numbers2x3);
}

TEST(Matrix, SetSizeForgetsTheElements)
{
    CMatrix matrix = numbers2x3;
    const CMatrix copy(matrix);
    matrix.SetSize(2, 3);
    EXPECT_EQ(matrix, CMatrix(2, 3));
    EXPECT_EQ(copy, numbers2x3);
}

TEST(MatrixParts, InsertionMovesWhatIsBehind)
{
    const double column[] = {7, 8, 9}, row[] = {0, -1};
    CMatrix matrix = numbers2x3;
    matrix.InsertCol(1, column);
    EXPECT_EQ(matrix, fromRows({{1, 7, 2}, {3, 8, 4}, {5, 9, 6}}));
    matrix = numbers2x3;
    matrix.InsertRow(0, row);
    EXPECT_EQ(matrix, fromRows({{0, -1}, {1, 2}, {3, 4}, {5, 6}}));
    matrix = numbers2x3;
    matrix.AddColumn(column);
    EXPECT_EQ(matrix, fromRows({{1, 2, 7}, {3, 4, 8}, {5, 6, 9}}));
    matrix = numbers2x3;
    matrix.AddRow(row);
    EXPECT_EQ(matrix, fromRows({{1, 2}, {3, 4}, {5, 6}, {0, -1}}));
    EXPECT_EQ(thrownBy([&] { matrix.InsertCol(3, column); }), "Invalid operation");
    EXPECT_EQ(thrownBy([&] { matrix.InsertRow(-1, row); }), "Invalid operation");
}

TEST(MatrixParts, OwnElementsCanBeInserted)
{
    CMatrix matrix = numbers2x3;
    matrix.AddRow(&matrix[0][1]);
    EXPECT_EQ(matrix, fromRows({{1, 2}, {3, 4}, {5, 6}, {3, 4}}));
    matrix.ConcatinateColumns(matrix);
    EXPECT_EQ(matrix, fromRows({{1, 2, 1, 2}, {3, 4, 3, 4}, {5, 6, 5, 6}, {3, 4, 3, 4}}));
    matrix.SetSubMatrix(0, 0, matrix);
    EXPECT_EQ(matrix[3][3], 4);
}

TEST(MatrixParts, DeletionTellsWhetherThereWasSuchALine)
{
    CMatrix matrix = numbers2x3;
    EXPECT_EQ(matrix.DeleteCol(2), 0);
    EXPECT_EQ(matrix.DeleteRow(-1), 0);
    EXPECT_EQ(matrix, numbers2x3);
    EXPECT_EQ(matrix.DeleteRow(1), 1);
    EXPECT_EQ(matrix, fromRows({{1, 2}, {5, 6}}));
    EXPECT_EQ(matrix.DeleteCol(0), 1);
    EXPECT_EQ(matrix, fromRows({{2}, {6}}));
    EXPECT_EQ(matrix.DeleteCol(0), 1);
    EXPECT_EQ(matrix, CMatrix(0, 2));
}

TEST(MatrixParts, JoiningNeedsTheOtherDimensionToMatch)
{
    const CMatrix column = fromRows({{7}, {8}, {9}}), row = fromRows({{7, 8}});
    EXPECT_EQ(numbers2x3.GetConcatinatedColumns(column), fromRows({{1, 2, 7}, {3, 4, 8}, {5, 6, 9}}));
    EXPECT_EQ(numbers2x3.GetConcatinatedRows(row), fromRows({{1, 2}, {3, 4}, {5, 6}, {7, 8}}));
    const std::string message = "Cannot concatenate matrices, not same size";
    CMatrix matrix = numbers2x3;
    EXPECT_EQ(thrownBy([&] { matrix.ConcatinateColumns(row); }), message);
    EXPECT_EQ(thrownBy([&] { matrix.ConcatinateRows(column); }), message);
    EXPECT_EQ(matrix, numbers2x3);
}

TEST(MatrixParts, BlocksOutsideTheMatrixAreRefused)
{
    EXPECT_EQ(numbers2x3.ExtractSubMatrix(1, 1, 1, 2), fromRows({{4}, {6}}));
    CMatrix matrix = numbers2x3;
    matrix.SetSubMatrix(0, 1, fromRows({{7, 8}}));
    EXPECT_EQ(matrix, fromRows({{1, 2}, {7, 8}, {5, 6}}));
    const std::string message = "Sub matrix is not contained in source";
    EXPECT_EQ(thrownBy([&] { matrix.ExtractSubMatrix(1, 0, 2, 1); }), message);
    EXPECT_EQ(thrownBy([&] { matrix.ExtractSubMatrix(0, -1, 1, 1); }), message);
    EXPECT_EQ(thrownBy([&] { matrix.ExtractSubMatrix(1, 1, -1, 1); }), message);
    EXPECT_EQ(thrownBy([&] { matrix.ExtractSubMatrix(1, 1, INT_MAX, 1); }), message);
    EXPECT_EQ(thrownBy([&] { matrix.SetSubMatrix(1, 2, fromRows({{7, 8}})); }), message);
}

TEST(MatrixParts, DiagonalIsOfSquareMatricesOnly)
{
    EXPECT_EQ(fromRows({{1, 2}, {3, 4}}).ExtractDiagonal(), fromRows({{1}, {4}}));
    EXPECT_EQ(thrownBy([] { numbers2x3.ExtractDiagonal(); }), "Can only extract diagonal from square matrix");
}

TEST(MatrixParts, SquareIsFilledUpWithZeros)
{
    EXPECT_EQ(numbers2x3.GetSquareMatrix(), fromRows({{1, 2, 0}, {3, 4, 0}, {5, 6, 0}}));
    CMatrix matrix = fromRows({{1, 2}});
    matrix.MakeSquare();
    EXPECT_EQ(matrix, fromRows({{1, 2}, {0, 0}}));
}

TEST(MatrixParts, SiftingDropsLinesOfZerosOnly)
{
    EXPECT_EQ(fromRows({{0, 1, -0.0}, {0, 0, 0}, {0, NAN, 0}}).SiftZeroRowAndCol(), fromRows({{1}, {NAN}}));
    EXPECT_EQ(CMatrix(3, 2).SiftZeroRowAndCol(), CMatrix(0, 0));
}

TEST(MatrixStatistics, ExtremesAndSumsOfLines)
{
    const CMatrix matrix = fromRows({{1, -5}, {NAN, 2}, {3, 0}});
    EXPECT_EQ(matrix.GetColumnMax(0), 3);
    EXPECT_EQ(matrix.GetColumnMin(0), 1);
    EXPECT_EQ(matrix.GetRowMax(1), 2);
    EXPECT_EQ(matrix.GetRowMin(0), -5);
    EXPECT_EQ(matrix.SumColumn(1), -3);
    EXPECT_EQ(matrix.SumColumnSquared(1), 29);
    EXPECT_EQ(matrix.SumRowSquared(0), 26);
    double min = 0, max = 0;
    matrix.GetNumericRange(min, max);
    EXPECT_EQ(min, -5);
    EXPECT_EQ(max, 3);
    fromRows({{NAN, NAN}}).GetNumericRange(min, max);
    EXPECT_TRUE(std::isnan(min) && std::isnan(max));
    EXPECT_EQ(thrownBy([&] { CMatrix(0, 0).GetNumericRange(min, max); }), "Invalid operation");
}

TEST(MatrixStatistics, NormalisingMeetsBothEnds)
{
    EXPECT_EQ(fromRows({{2, 4, 6}}).GetNormalised(-1, 1), fromRows({{-1, 0, 1}}));
    EXPECT_EQ(fromRows({{2, 4, 6}}).GetNormalised(10, 0), fromRows({{10, 5, 0}}));
    EXPECT_EQ(fromRows({{3, 3}}).GetNormalised(1, 2), fromRows({{1, 1}}));
    const double huge = 1.7e308; // the range is more than the largest double
    EXPECT_EQ(fromRows({{-huge, 0, huge}}).GetNormalised(0, 4), fromRows({{0, 2, 4}}));
}

// Columns (1, 2, 3) and (2, 4, 9), means 2 and 5: sums of products 2, (-1)(-3) + 0 + 1 * 4 = 7 and
// 9 + 1 + 16 = 26, divided by 2.
TEST(MatrixStatistics, CovarianceIsOfColumnsOverOneLessThanTheRows)
{
    EXPECT_EQ(fromRows({{1, 2}, {2, 4}, {3, 9}}).Covariant(), fromRows({{1, 3.5}, {3.5, 13}}));
    EXPECT_EQ(fromRows({{1, 2, 3}}).Covariant(), CMatrix(3, 3));
}

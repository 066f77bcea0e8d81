#pragma once

#include "CMatrixHelper.h"

#include <afx.h>
#include <afxv_dll.h>
#include <cstddef>
#include <oleauto.h>

class CMatrix;
/// Loads a matrix that was stored as an object; it is the caller's.
AFX_EXT_API CArchive& AFXAPI operator>>(CArchive& archive, CMatrix*& matrix);

/// A dense matrix of doubles of any size.
///
/// Element (x, y) is in column x, from 0 to the number of columns less 1, and row y. The number of columns is
/// always given first. A matrix may be empty: with no columns, no rows, or neither.
///
/// Copies share their elements until one of them is changed, which pays for one copy of the elements. The
/// count of those who share is a plain integer: matrices that may share must stay on one thread.
///
/// Misuse throws a `const char*`, one of eleven fixed texts, named below where they are thrown. Besides these
/// an index that no element has, a null pointer, a negative size, and a statistic of no elements throw
/// "Invalid operation". Where there is no memory for the elements, CMemoryException is thrown. Whatever is
/// thrown, the matrix is as it was before, unless the member says otherwise.
class AFX_EXT_CLASS CMatrix : public CObject
{
    DECLARE_SERIAL(CMatrix)

public:
    /// One column, one row, 0.
    CMatrix();
    /// Zeros.
    CMatrix(int columns, int rows);
    /// A square matrix: the identity, or zeros.
    CMatrix(int size, bool identity);
    /// From a safe array of two dimensions, the first for columns, the second for rows. Element (x, y) is the
    /// double at position (x - lower1) * rows - lower2 + y of the data, where lower1 and lower2 are the lower
    /// bounds: the order of GetSafeArray when both are 0. With other lower bounds the elements are shifted by
    /// that formula, and those whose position lies outside the data are 0.
    ///
    /// Throws, in this order: "Not a SafeArray" without VT_ARRAY; "Not a double SafeArray" when the type has
    /// no bit of VT_R8 (types that share a bit with it pass, and their data are read as doubles as far as
    /// they go); "SafeArray, incorrect number of dimensions"; "SafeArray access error" when bounds or data
    /// cannot be had.
    CMatrix(VARIANT& array);
    /// Shares the elements.
    CMatrix(const CMatrix& other);
    ~CMatrix() override;
    CMatrix& operator=(const CMatrix& other);

    int GetNumColumns() const { return m_columns; }
    int GetNumRows() const { return m_rows; }
    /// Element (x, y). The reference is valid until the matrix is next changed.
    const double& GetElement(int x, int y) const;
    const CMatrixHelper operator[](int x) const { return CMatrixHelper(*this, x); }
    /// Writes one element; returns true.
    bool SetElement(int x, int y, double value);
    /// Makes it a zero matrix of that size.
    void SetSize(int columns, int rows);

    /// Whether sizes and elements are the same, these bit by bit: 0 and -0 differ, a NaN is equal to itself.
    bool operator==(const CMatrix& other) const;
    bool operator!=(const CMatrix& other) const { return !(*this == other); }

    /// The product: element (x, y) is the sum over k of left(x, k) b(k, y), in an order, and with
    /// intermediate roundings, that suit the processor. The result has the columns of the left operand and
    /// the rows of b; the rows of the left operand must be as many as the columns of b, or "Matrices do not
    /// have common size" is thrown.
    CMatrix operator*(const CMatrix& b) const;
    CMatrix& operator*=(const CMatrix& b);
    CMatrix& operator*=(double factor);
    /// Element by element. Throw "Matrices do not have common size" when the sizes differ.
    CMatrix operator+(const CMatrix& b) const;
    CMatrix operator-(const CMatrix& b) const;
    CMatrix& operator+=(const CMatrix& b);
    CMatrix& operator-=(const CMatrix& b);

    /// Replaces the matrix by its inverse: Gauss-Jordan elimination without pivoting, each element through
    /// the operations of the plain algorithm in their order, so that the result is the same bit for bit on
    /// every processor. Without pivoting the error grows when a pivot is small beside the other elements, and
    /// a pivot of exactly 0 throws "Matrix inversion error" even where an inverse exists; the matrix is then
    /// left partly eliminated. "Matrix must be square." is thrown before anything is changed.
    void Invert();
    CMatrix GetInverted() const;
    void Transpose();
    CMatrix GetTransposed() const;
    /// The sample covariances of the columns, a square matrix of as many: element (i, j) is the sum over the
    /// rows of (column i - its mean) (column j - its mean), divided by the number of rows less 1. With fewer
    /// than two rows all are 0.
    CMatrix Covariant() const;
    /// Maps the elements linearly so that the smallest becomes `min` and the largest `max`. When they are the
    /// same all become `min`. A NaN stays one. Throws "Invalid operation" as GetNumericRange does.
    void Normalise(double min, double max);
    CMatrix GetNormalised(double min, double max) const;
    /// Makes it square by columns or rows of zeros at the end.
    void MakeSquare();
    CMatrix GetSquareMatrix() const;
    /// A copy without the rows and columns that hold only zeros; empty when all are 0.
    CMatrix SiftZeroRowAndCol() const;

    /// Appends a column of GetNumRows() values, or a row of GetNumColumns().
    void AddColumn(const double* values);
    void AddRow(const double* values);
    /// Inserts before the index; the number of columns (rows) appends.
    void InsertCol(int x, const double* values);
    void InsertRow(int y, const double* values);
    /// Removes one; 0, and nothing is changed, when there is no such column (row), else 1.
    int DeleteCol(int x);
    int DeleteRow(int y);
    /// Puts the other's columns to the right of these, or its rows below. The other dimension must match, or
    /// "Cannot concatenate matrices, not same size" is thrown.
    void ConcatinateColumns(const CMatrix& other);
    void ConcatinateRows(const CMatrix& other);
    CMatrix GetConcatinatedColumns(const CMatrix& other) const;
    CMatrix GetConcatinatedRows(const CMatrix& other) const;
    /// The block whose first element is (x, y). Both throw "Sub matrix is not contained in source" when the
    /// block is not inside this matrix.
    CMatrix ExtractSubMatrix(int x, int y, int columns, int rows) const;
    void SetSubMatrix(int x, int y, const CMatrix& block);
    /// The diagonal as a matrix of one column. Throws "Can only extract diagonal from square matrix".
    CMatrix ExtractDiagonal() const;

    /// The largest and smallest element. A NaN does not count unless all are.
    double GetColumnMax(int x) const;
    double GetColumnMin(int x) const;
    double GetRowMax(int y) const;
    double GetRowMin(int y) const;
    void GetNumericRange(double& min, double& max) const;
    /// Sums of the elements, or of their squares.
    double SumColumn(int x) const;
    double SumColumnSquared(int x) const;
    double SumRowSquared(int y) const;

    /// An array of doubles (VT_ARRAY | VT_R8) that the caller clears: the first dimension has the columns,
    /// the second the rows, lower bounds are 0, element (x, y) is at position x * rows + y. VT_EMPTY when it
    /// cannot be made.
    VARIANT GetSafeArray() const;

    /// Writes the rows as lines of numbers in the form "%e" (7 digits) with commas between and "\r\n" behind,
    /// in UTF-16, low byte first, without a byte-order mark. A file that exists is replaced. Throws
    /// CFileException.
    void WriteAsCSVFile(const CString& path) const;
    /// The matrix in such a file, or in one of bytes, as spreadsheets write them: the first character tells.
    /// A byte-order mark is skipped, and so are lines without a token; a token that begins with no number is
    /// 0. Throws CFileException, and "Cannot concatenate matrices, not same size" when a line has more or
    /// fewer tokens than the one before.
    static CMatrix ReadFromCSVFile(const CString& path);
    /// Puts the matrix on the clipboard as text: one line per row, ended by "\r\n". False when the clipboard
    /// cannot be had.
    bool CopyToClipboard() const;
    /// The row's numbers with tabs between, as tables are pasted; each with as many digits, 15 to 17, as it
    /// takes to read the same number back.
    CString GetRowAsText(int y) const;

    /// Takes the token at `start` (less than 0 counts as 0): separators there are skipped, and the token runs
    /// to the next one, whose index is returned, or to the end of the text, whose length is. From the end on
    /// the token is empty.
    static int GetStringToken(const CString& source, CString& token, int start, TCHAR separator);
    /// Reads UTF-16 characters up to a line feed or the end of the file; a carriage return before the line
    /// feed is dropped.
    static CString ReadLine(CFile& file);

    /// The archive has, low byte first: DWORD 0x434D6174, DWORD 0x72697843, LONG version 1, LONG columns,
    /// LONG rows, and the elements as doubles column by column. Loading throws CArchiveException: badClass
    /// for other first words, badSchema for another version, badIndex for a negative size, endOfFile when the
    /// data are too short, which is found before memory is taken for them.
    void Serialize(CArchive& archive) override;

private:
    CMatrix(int columns, int rows, double* block);

    static double* AllocateMemory(int columns, int rows);
    static double* AllocateUnfilled(int columns, int rows);
    void DecrementAndRelease();

    static CMatrix Unfilled(int columns, int rows);
    std::size_t Count() const;
    LONG& Sharers() const;
    double* Writable();
    const double* Row(int y) const { return m_block + static_cast<std::size_t>(y) * m_columns; }
    void RequireColumn(int x) const;
    void RequireRow(int y) const;
    void RequireSizeOf(const CMatrix& other) const;
    void RequireInside(int x, int y, int columns, int rows) const;
    CMatrix WithColumns(int x, const double* values, std::size_t stride, int count) const;
    CMatrix WithRows(int y, const double* values, int count) const;
    void Store(CArchive& archive) const;
    static CMatrix Load(CArchive& archive);

    int m_columns;
    int m_rows;
    double* m_block; ///< the elements row by row, and one double more: the count of those who share it
};

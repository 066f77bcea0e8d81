#include "CMatrix.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace
{
using std::size_t;

constexpr DWORD firstMark = 0x434D6174, secondMark = 0x72697843;
constexpr LONG version = 1;
constexpr size_t numbersInPiece = 512;
constexpr ULONGLONG smallData = 4096; // bytes that may be taken on trust

using Piece = BYTE[numbersInPiece * sizeof(double)];

void encode(double number, BYTE* to)
{
    std::uint64_t bits;
    std::memcpy(&bits, &number, sizeof bits);
    for (size_t i = 0; i < sizeof bits; ++i)
        to[i] = static_cast<BYTE>(bits >> (8 * i));
}

double decode(const BYTE* from)
{
    std::uint64_t bits = 0;
    for (size_t i = 0; i < sizeof bits; ++i)
        bits |= std::uint64_t{from[i]} << (8 * i);
    double number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

void storeNumbers(CArchive& archive, const double* numbers, size_t count)
{
    Piece piece;
    for (size_t done = 0; done < count; done += numbersInPiece) {
        const size_t now = std::min(numbersInPiece, count - done);
        for (size_t i = 0; i < now; ++i)
            encode(numbers[done + i], piece + i * sizeof(double));
        archive.Write(piece, static_cast<UINT>(now * sizeof(double)));
    }
}

void loadNumbers(CArchive& archive, double* numbers, size_t count)
{
    Piece piece;
    for (size_t done = 0; done < count; done += numbersInPiece) {
        const auto bytes = static_cast<UINT>(std::min(numbersInPiece, count - done) * sizeof(double));
        archive.EnsureRead(piece, bytes);
        for (size_t i = 0; i < bytes / sizeof(double); ++i)
            numbers[done + i] = decode(piece + i * sizeof(double));
    }
}

[[noreturn]] void fail(const CArchive& archive, int cause)
{
    AfxThrowArchiveException(cause, archive.m_strFileName);
}

void checkMarks(CArchive& archive)
{
    DWORD first = 0, second = 0;
    LONG found = 0;
    archive >> first >> second;
    if (first != firstMark || second != secondMark) fail(archive, CArchiveException::badClass);
    archive >> found;
    if (found != version) fail(archive, CArchiveException::badSchema);
}

/// Whether that many numbers can still be in the archive. Flushing moves the file's position to what comes
/// next; a file of no known length has no limit.
bool canHold(CArchive& archive, ULONGLONG numbers)
{
    if (numbers <= smallData / sizeof(double)) return true;
    ULONGLONG left = std::numeric_limits<ULONGLONG>::max();
    TRY
    {
        archive.Flush();
        const ULONGLONG length = archive.GetFile()->GetLength(), position = archive.GetFile()->GetPosition();
        left = length > position ? length - position : 0;
    }
    CATCH(CNotSupportedException, e) {}
    END_CATCH
    return numbers <= left / sizeof(double);
}
} // namespace

void CMatrix::Serialize(CArchive& archive)
{
    CObject::Serialize(archive);
    if (archive.IsStoring())
        Store(archive);
    else
        *this = Load(archive);
}

void CMatrix::Store(CArchive& archive) const
{
    const CMatrix byColumns = GetTransposed();
    archive << firstMark << secondMark << version << LONG{m_columns} << LONG{m_rows};
    storeNumbers(archive, byColumns.m_block, Count());
}

CMatrix CMatrix::Load(CArchive& archive)
{
    LONG columns = 0, rows = 0;
    checkMarks(archive);
    archive >> columns >> rows;
    if (columns < 0 || rows < 0) fail(archive, CArchiveException::badIndex);
    if (!canHold(archive, static_cast<ULONGLONG>(columns) * static_cast<ULONGLONG>(rows)))
        fail(archive, CArchiveException::endOfFile);
    CMatrix byColumns = Unfilled(rows, columns);
    loadNumbers(archive, byColumns.m_block, byColumns.Count());
    return byColumns.GetTransposed();
}

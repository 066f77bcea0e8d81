#include "../win32/TempFolder.h"
#include "Thrown.h"

#include <afx.h>

#include <cstdlib>
#include <memory>

class FileInFolder : public TempFolder
{
};

TEST_F(FileInFolder, CreatingEmptiesUnlessToldNotTo)
{
    put("a.bin", "0123456789");
    {
        CFile file(path(L"a.bin").c_str(), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite);
        EXPECT_EQ(file.GetLength(), 10u);
        file.Seek(-2, CFile::end);
        file.Write("ab", 2);
        EXPECT_EQ(file.GetPosition(), 10u);
    }
    EXPECT_EQ(get("a.bin"), "01234567ab");
    CFile(path(L"a.bin").c_str(), CFile::modeCreate | CFile::modeWrite).Close();
    EXPECT_EQ(get("a.bin"), "");
}

TEST_F(FileInFolder, OpenSaysWhyItFailed)
{
    put("held.txt", "x");
    CFileException error;
    CFile file, second;
    EXPECT_FALSE(file.Open(path(L"none.txt").c_str(), CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
    EXPECT_EQ(error.m_lOsError, ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(error.m_strFileName.Right(8), L"none.txt");
    EXPECT_EQ(file.m_hFile, CFile::hFileNull);
    EXPECT_FALSE(file.Open(path(L"none\\x.txt").c_str(), CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::badPath);
    ASSERT_TRUE(file.Open(path(L"held.txt").c_str(), CFile::modeRead | CFile::shareExclusive));
    EXPECT_FALSE(second.Open(path(L"held.txt").c_str(), CFile::modeRead | CFile::shareDenyNone, &error));
    EXPECT_EQ(error.m_cause, CFileException::sharingViolation);
    EXPECT_EQ(thrownCause<CFileException>([&] { CFile other(path(L"held.txt").c_str(), CFile::modeRead); }),
              CFileException::sharingViolation);
}

TEST_F(FileInFolder, MisuseThrowsTheDocumentedCause)
{
    put("r.txt", "abc");
    CFile file(path(L"r.txt").c_str(), CFile::modeRead | CFile::shareDenyNone);
    EXPECT_EQ(thrownCause<CFileException>([&] { file.Write("x", 1); }), CFileException::accessDenied);
    EXPECT_EQ(thrownCause<CFileException>([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 0u);
    file.Close();
    char byte;
    EXPECT_EQ(thrownCause<CFileException>([&] { file.Read(&byte, 1); }), CFileException::invalidFile);
    EXPECT_EQ(thrownCause<CFileException>([&] { CFile::Remove(path(L"none").c_str()); }),
              CFileException::fileNotFound);
}

TEST_F(FileInFolder, NamesStatusLengthAndRename)
{
    put("line.v2.lin", "12345");
    CFile file(path(L"line.v2.lin").c_str(), CFile::modeReadWrite);
    EXPECT_EQ(file.GetFileName(), L"line.v2.lin");
    EXPECT_EQ(file.GetFileTitle(), L"line.v2");
    file.SetLength(3);
    EXPECT_EQ(file.GetPosition(), 3u);
    CFileStatus status, byName;
    ASSERT_TRUE(file.GetStatus(status));
    EXPECT_EQ(status.m_size, 3u);
    EXPECT_EQ(file.GetFilePath(), status.m_szFullName);
    file.Close();
    CFile::Rename(path(L"line.v2.lin").c_str(), path(L"new.lin").c_str());
    EXPECT_FALSE(CFile::GetStatus(path(L"line.v2.lin").c_str(), byName));
    ASSERT_TRUE(CFile::GetStatus(path(L"new.lin").c_str(), byName));
    EXPECT_EQ(byName.m_size, 3u);
    EXPECT_EQ(byName.m_mtime, status.m_mtime);
    EXPECT_LE(std::abs(byName.m_mtime.GetTime() - CTime::GetCurrentTime().GetTime()), 60);
}

TEST_F(FileInFolder, DuplicateSharesThePosition)
{
    put("d.txt", "abcdef");
    CFile file(path(L"d.txt").c_str(), CFile::modeRead);
    const std::unique_ptr<CFile> copy(file.Duplicate());
    file.Seek(2, CFile::begin);
    file.Close();
    char bytes[10];
    EXPECT_EQ(copy->Read(bytes, 10), 4u);
    EXPECT_EQ(bytes[0], 'c');
}

TEST(MemFile, WriteBeyondTheEndFillsTheGapWithZeros)
{
    CMemFile file(16);
    file.Write("ab", 2);
    file.Seek(40, CFile::begin);
    char byte = 'x';
    EXPECT_EQ(file.Read(&byte, 1), 0u);
    file.Write("z", 1);
    EXPECT_EQ(file.GetLength(), 41u);
    file.Seek(39, CFile::begin);
    EXPECT_EQ(file.Read(&byte, 1), 1u);
    EXPECT_EQ(byte, 0);
    EXPECT_EQ(thrownCause<CFileException>([&] { file.Seek(-41, CFile::current); }), CFileException::badSeek);
    EXPECT_EQ(file.Seek(-40, CFile::current), 0u);
    EXPECT_EQ(thrown<CMemoryException>([&] { file.SetLength(ULONGLONG(-1)); }), 1);
    BYTE* memory = file.Detach();
    EXPECT_EQ(memory[40], 'z');
    EXPECT_EQ(file.GetLength(), 0u);
    std::free(memory);
}

TEST(MemFile, AttachedMemoryDoesNotGrow)
{
    BYTE memory[4] = {'a', 'b', 'c', 'd'};
    CMemFile file(memory, 4);
    char bytes[8];
    EXPECT_EQ(file.Read(bytes, 8), 4u);
    EXPECT_EQ(thrown<CMemoryException>([&] { file.Write("e", 1); }), 1);
    file.Seek(1, CFile::begin);
    file.Write("X", 1);
    EXPECT_EQ(memory[1], 'X');
}

#pragma once

#include <afx.h>
#include <string>

/// A file in the system's folder for temporary ones, gone with this object.
class TemporaryFile
{
public:
    TemporaryFile()
    {
        wchar_t folder[MAX_PATH], name[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        GetTempFileNameW(folder, L"mat", 0, name);
        m_path = name;
    }
    ~TemporaryFile() { DeleteFileW(m_path); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const CString& path() const { return m_path; }
    std::string bytes() const
    {
        CFile file(m_path, CFile::modeRead);
        std::string read(static_cast<size_t>(file.GetLength()), 0);
        file.Read(&read[0], static_cast<UINT>(read.size()));
        return read;
    }
    void setBytes(const std::string& bytes) const
    {
        CFile file(m_path, CFile::modeCreate | CFile::modeWrite);
        file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    }

private:
    CString m_path;
};

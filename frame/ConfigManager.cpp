#include "ConfigManager.h"

#include "AlgorString.h"
#include "autoref_ptr.h"
#include "ModulePath.h"

#include <cstring>

namespace
{
CString timeStamp()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    CString text;
    text.Format(L"[%04d-%02d-%02d %02d:%02d:%02d] ", now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute,
                now.wSecond);
    return text;
}

void append(const CString& path, const char* bytes)
{
    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite | CFile::shareDenyNone))
        return;
    try {
        file.SeekToEnd();
        file.Write(bytes, static_cast<UINT>(std::strlen(bytes)));
        file.Close();
    } catch (CFileException* failure) { // the disk is full: the line is lost
        failure->Delete();
    }
}
} // namespace

ConfigManager::ConfigManager() = default;
ConfigManager::~ConfigManager() = default;

ConfigManager& ConfigManager::Instance()
{
    static autoref_ptr<ConfigManager> instance;
    if (!instance) instance.reset(new ConfigManager);
    return *instance;
}

int ConfigManager::__GetInstallDir()
{
    const CString path = modulePath();
    if (path.IsEmpty()) {
        MessageBoxW(nullptr, L"获取CAD集成平台的安装目录失败！", L"错误", MB_ICONINFORMATION);
        return 0;
    }
    m_installDir = parentOfFolderOf(path);
    return 1;
}

int ConfigManager::Initiate()
{
    if (!__GetInstallDir()) {
        m_installDir = L"C:\\";
        return 0;
    }
    m_recordPath = m_installDir + L"record.ini";
    m_logPath = m_installDir + L"log.txt";
    return 1;
}

int ConfigManager::GetRecord(CString& value, const CString& section, const CString& key)
{
    wchar_t buffer[512] = L"";
    if (GetPrivateProfileStringW(section, key, nullptr, buffer, 512, m_recordPath) == 0) return 0;
    value = buffer;
    return 1;
}

void ConfigManager::WriteLog(const CString& text)
{
    char line[5000];
    AlgorString::Instance().CStr2Char(line, sizeof line, timeStamp() + text + L"\r\n");
    append(m_logPath, line);
}

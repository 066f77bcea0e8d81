#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
/// The parent of the folder that holds the library, found by the library's name.
CString installDir()
{
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(GetModuleHandleW(L"QmCADLib.arx"), path, MAX_PATH);
    const CString folder = CString(path).Left(CString(path).ReverseFind(L'\\'));
    return folder.Left(folder.ReverseFind(L'\\') + 1);
}

std::string contents(const CString& path)
{
    CFile file;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone)) return "";
    std::string bytes(static_cast<size_t>(file.GetLength()), ' ');
    file.Read(&bytes[0], static_cast<UINT>(bytes.size()));
    return bytes;
}

class ConfigManagerTest : public testing::Test
{
protected:
    ConfigManagerTest() { EXPECT_EQ(m_manager.Initiate(), 1); }
    ~ConfigManagerTest() override
    {
        WritePrivateProfileStringW(L"ConfigManagerTest", nullptr, nullptr, m_record);
        if (contents(m_record).empty()) DeleteFileW(m_record);
        if (!m_hadLog) DeleteFileW(m_log);
    }
    void put(const wchar_t* key, const wchar_t* value)
    {
        ASSERT_TRUE(WritePrivateProfileStringW(L"ConfigManagerTest", key, value, m_record));
    }
    /// What a line adds to the log.
    std::string logged(const CString& text)
    {
        const size_t before = contents(m_log).size();
        m_manager.WriteLog(text);
        return contents(m_log).substr(before);
    }

    ConfigManager& m_manager = ConfigManager::Instance();
    const CString m_record = installDir() + L"record.ini";
    const CString m_log = installDir() + L"log.txt";
    const bool m_hadLog = !contents(m_log).empty();
};

TEST_F(ConfigManagerTest, RecordGivesTheValueOfItsKey)
{
    put(L"path", L"D:\\图库");
    CString value = L"before";
    EXPECT_EQ(m_manager.GetRecord(value, L"ConfigManagerTest", L"path"), 1);
    EXPECT_EQ(value, L"D:\\图库");
}

TEST_F(ConfigManagerTest, RecordLongerThanItsBufferIsCut)
{
    put(L"long", CString(L'x', 600));
    CString value;
    EXPECT_EQ(m_manager.GetRecord(value, L"ConfigManagerTest", L"long"), 1);
    EXPECT_EQ(value, CString(L'x', 511));
}

TEST_F(ConfigManagerTest, AbsentOrEmptyRecordLeavesTheValue)
{
    put(L"empty", L"");
    for (const wchar_t* key : {L"absent", L"empty"}) {
        CString value = L"before";
        EXPECT_EQ(m_manager.GetRecord(value, L"ConfigManagerTest", key), 0);
        EXPECT_EQ(value, L"before");
    }
}

TEST_F(ConfigManagerTest, LogGetsOneLineBehindItsTime)
{
    const std::string first = logged(L"打开 a.dwg");
    const std::string second = logged(L"");
    // In code page 936 each Chinese character has two bytes: 打 B4F2, 开 BFAA.
    EXPECT_EQ(first.substr(22), "\xB4\xF2\xBF\xAA a.dwg\r\n");
    SYSTEMTIME year;
    GetLocalTime(&year);
    EXPECT_EQ(first.substr(0, 6), "[" + std::to_string(year.wYear) + "-");
    EXPECT_EQ(first.substr(11, 1) + first.substr(14, 1) + first.substr(17, 1) + first.substr(20, 2), " ::] ");
    EXPECT_EQ(second.substr(22), "\r\n");
}

// 5000 bytes with the terminator: 4999 of text, of them 22 for the time. A character of two bytes is not
// halved.
TEST_F(ConfigManagerTest, LogLineIsCutAtItsBuffer)
{
    EXPECT_EQ(logged(CString(L'x', 6000)).substr(22), std::string(4977, 'x'));
    EXPECT_EQ(logged(CString(L'图', 3000)).size(), 22u + 2 * 2488);
}

} // namespace

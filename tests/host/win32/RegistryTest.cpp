#include "Headless.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{
class Registry : public TempFolder
{
protected:
    Registry()
    {
        setenv("QM_REGISTRY", host("test.reg").c_str(), 1);
        headless::reloadRegistry();
    }
    ~Registry() override
    {
        unsetenv("QM_REGISTRY");
        headless::reloadRegistry();
    }

    static HKEY make(const wchar_t* path, REGSAM access = KEY_ALL_ACCESS, DWORD options = 0)
    {
        HKEY key = nullptr;
        EXPECT_EQ(
            RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, options, access, nullptr, &key, nullptr), 0);
        return key;
    }

    static LSTATUS set(HKEY key, const wchar_t* name, DWORD type, const std::wstring& text)
    {
        return RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }

    // A text value with all its nulls, or the error.
    static std::wstring get(const wchar_t* path, const wchar_t* name, DWORD flags = RRF_RT_ANY)
    {
        DWORD size = 0;
        LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, path, name, flags, nullptr, nullptr, &size);
        std::wstring text(size / sizeof(wchar_t), L'?');
        if (status == 0)
            status = RegGetValueW(HKEY_CURRENT_USER, path, name, flags, nullptr, text.data(), &size);
        return status == 0 ? text : L"error " + std::to_wstring(status);
    }

    static LSTATUS open(const wchar_t* path, REGSAM access = KEY_READ)
    {
        HKEY key = nullptr;
        const LSTATUS status = RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, access, &key);
        if (key) RegCloseKey(key);
        return status;
    }
};
} // namespace

TEST_F(Registry, ValuesOfAllKindsSurviveTheFile)
{
    const HKEY key = make(L"Software\\图纸 \\\\ \"A\"");
    const std::wstring awkward = L"C:\\a \"b\"\U0001F600", lines = L"one\ntwo";
    const BYTE bytes[] = {0, 255, 16};
    const DWORD number = 0xDEADBEEF;
    EXPECT_EQ(set(key, nullptr, REG_SZ, awkward), 0);
    EXPECT_EQ(set(key, L"行=\"1\"", REG_SZ, lines), 0);
    EXPECT_EQ(set(key, L"list", REG_MULTI_SZ, std::wstring(L"a\0b\0", 4)), 0);
    EXPECT_EQ(RegSetValueExW(key, L"number", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4), 0);
    EXPECT_EQ(RegSetValueExW(key, L"bytes", 0, REG_BINARY, bytes, 3), 0);
    EXPECT_EQ(RegSetValueExW(key, L"none", 0, 0x12345, nullptr, 0), 0);
    headless::reloadRegistry();
    HKEY again = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\图纸 \\ \"a\"", 0, KEY_READ, &again), 0);
    wchar_t buffer[64];
    DWORD size = sizeof buffer, type = 0;
    EXPECT_EQ(RegQueryValueExW(again, L"", nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size), 0);
    EXPECT_EQ(std::wstring(buffer), awkward);
    size = sizeof buffer;
    EXPECT_EQ(RegQueryValueExW(again, L"行=\"1\"", nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size),
              0);
    EXPECT_EQ(std::wstring(buffer), lines);
    size = sizeof buffer;
    EXPECT_EQ(RegQueryValueExW(again, L"LIST", nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size), 0);
    EXPECT_EQ(std::wstring(buffer, size / sizeof(wchar_t)), std::wstring(L"a\0b\0\0", 5));
    DWORD readNumber = 0;
    size = sizeof readNumber;
    EXPECT_EQ(RegQueryValueExW(again, L"number", nullptr, &type, reinterpret_cast<BYTE*>(&readNumber), &size),
              0);
    EXPECT_EQ(readNumber, number);
    size = sizeof buffer;
    EXPECT_EQ(RegQueryValueExW(again, L"bytes", nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size), 0);
    EXPECT_EQ(size, 3u);
    EXPECT_EQ(std::memcmp(buffer, bytes, 3), 0);
    EXPECT_EQ(RegQueryValueExW(again, L"none", nullptr, &type, nullptr, &size), 0);
    EXPECT_EQ(type, 0x12345u);
    EXPECT_EQ(size, 0u);
}

TEST_F(Registry, SmallBufferIsToldTheSize)
{
    const HKEY key = make(L"A");
    set(key, L"v", REG_SZ, L"text");
    wchar_t buffer[4] = L"...";
    DWORD size = sizeof buffer;
    EXPECT_EQ(RegQueryValueExW(key, L"v", nullptr, nullptr, reinterpret_cast<BYTE*>(buffer), &size),
              ERROR_MORE_DATA);
    EXPECT_EQ(size, 5 * sizeof(wchar_t));
    EXPECT_STREQ(buffer, L"...");
    EXPECT_EQ(RegQueryValueExW(key, L"w", nullptr, nullptr, nullptr, &size), ERROR_FILE_NOT_FOUND);
    size = sizeof buffer;
    EXPECT_EQ(RegGetValueW(key, nullptr, L"v", RRF_RT_REG_DWORD | RRF_ZEROONFAILURE, nullptr, buffer, &size),
              ERROR_UNSUPPORTED_TYPE);
    EXPECT_EQ(buffer[2], L'\0');
}

TEST_F(Registry, TextsAreTerminatedAndExpandedWhenAskedByType)
{
    const HKEY key = make(L"A");
    RegSetValueExW(key, L"bare", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"ab"), 2 * sizeof(wchar_t));
    setenv("QM_TEST_VALUE", "z", 1);
    set(key, L"path", REG_EXPAND_SZ, L"%QM_TEST_VALUE%\\x");
    EXPECT_EQ(get(L"A", L"bare"), std::wstring(L"ab\0", 3));
    EXPECT_EQ(get(L"A", L"path"), std::wstring(L"z\\x\0", 4));
    EXPECT_EQ(get(L"A", L"path", RRF_RT_ANY | RRF_NOEXPAND), std::wstring(L"%QM_TEST_VALUE%\\x\0", 18));
}

TEST_F(Registry, KeyWithKeysBelowIsDeletedAsATreeOnly)
{
    const HKEY top = make(L"A"), below = make(L"A\\B\\C");
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"A"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, L"a"), 0);
    EXPECT_EQ(open(L"A"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(set(top, L"v", REG_SZ, L""), ERROR_KEY_DELETED);
    EXPECT_EQ(set(below, L"v", REG_SZ, L""), ERROR_KEY_DELETED);
    EXPECT_EQ(RegCloseKey(below), 0);
    EXPECT_EQ(RegCloseKey(below), ERROR_INVALID_HANDLE);
}

TEST_F(Registry, KeyAllowsWhatItWasOpenedFor)
{
    make(L"A\\B");
    const HKEY reader = make(L"A", KEY_READ), writer = make(L"A", KEY_WRITE);
    wchar_t name[8];
    DWORD size = 8;
    HKEY key = nullptr;
    EXPECT_EQ(set(reader, L"v", REG_SZ, L"x"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCreateKeyExW(reader, L"New", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegEnumKeyExW(writer, 0, name, &size, nullptr, nullptr, nullptr, nullptr), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegEnumKeyExW(reader, 0, name, &size, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_STREQ(name, L"B");
    EXPECT_EQ(RegEnumKeyExW(reader, 1, name, &size, nullptr, nullptr, nullptr, nullptr), ERROR_NO_MORE_ITEMS);
}

TEST_F(Registry, ClassesArePartOfTheMachine)
{
    HKEY key = nullptr;
    DWORD disposition = 0;
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CLASSES_ROOT, L".dwg", 0, nullptr, 0, KEY_READ, nullptr, &key, &disposition), 0);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_CREATED_NEW_KEY));
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\.DWG", 0, KEY_READ, &key), 0);
}

TEST_F(Registry, VolatileKeyIsNotSaved)
{
    make(L"Kept");
    make(L"Gone\\Below", KEY_ALL_ACCESS, REG_OPTION_VOLATILE);
    headless::reloadRegistry();
    EXPECT_EQ(open(L"Kept"), 0);
    EXPECT_EQ(open(L"Gone"), ERROR_FILE_NOT_FOUND);
}

TEST_F(Registry, HandWrittenFileIsRead)
{
    put("test.reg",
        "\xEF\xBB\xBFWindows Registry Editor Version 5.00\n; comment\n\n[HKEY_CURRENT_USER\\A]\n"
        "@=\"d\"\n\"x\" = dword:2a\n\"long\"=hex(2):61,00,\\\n  62,00,00,00\n\"gone\"=\"1\"\n\"gone\"=-\n"
        "[HKEY_CURRENT_USER\\B]\n[-HKEY_CURRENT_USER\\B]\n");
    headless::reloadRegistry();
    EXPECT_EQ(get(L"A", nullptr), std::wstring(L"d\0", 2));
    EXPECT_EQ(get(L"A", L"long"), std::wstring(L"ab\0", 3));
    EXPECT_EQ(get(L"A", L"gone"), L"error 2");
    EXPECT_EQ(open(L"B"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(set(make(L"A"), L"y", REG_SZ, L""), 0);
}

TEST_F(Registry, FileThatIsNotUnderstoodIsNeverWrittenOver)
{
    const std::string start = "Windows Registry Editor Version 5.00\n[HKEY_CURRENT_USER\\A]\n\"v\"=\"1\"\n";
    for (const std::string& content :
         {std::string("my notes\n"), start + "what is this\n", start + "\"w\"=hex:0g\n",
          start + "\"w\"=dword:123456789\n", start + "\"open\n", start + "[HKEY_X\n"}) {
        put("test.reg", content);
        headless::reloadRegistry();
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"New", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
                  ERROR_REGISTRY_CORRUPT)
            << content;
        EXPECT_EQ(TempFolder::get("test.reg"), content);
    }
    EXPECT_EQ(get(L"A", L"v"), std::wstring(L"1\0", 2));
}

TEST_F(Registry, FileThatCannotBeWrittenIsReported)
{
    setenv("QM_REGISTRY", host("missing/test.reg").c_str(), 1);
    headless::reloadRegistry();
    EXPECT_EQ(RegSetValueExW(HKEY_CURRENT_USER, L"v", 0, REG_BINARY, nullptr, 0), ERROR_REGISTRY_IO_FAILED);
}

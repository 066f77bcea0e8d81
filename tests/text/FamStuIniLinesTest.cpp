// Lines of profile files, and the places of windows.

#include "IniFolder.h"

#include "Headless.h"

#include <thread>

namespace
{
class IniLines : public IniFolder
{
protected:
    std::string allLines() const
    {
        CStringArray lines;
        return CFamStuIniFile::GetAllLines(lines, file()) ? listed(lines) : "(none)";
    }
};

class IniWindow : public IniFolder
{
protected:
    IniWindow()
    {
        EXPECT_TRUE(_window.CreateEx(0, nullptr, L"w", WS_POPUP, CRect(10, 20, 310, 220), nullptr, 0));
    }
    ~IniWindow() override { _window.DestroyWindow(); }

    CRect place() const
    {
        CRect rect;
        _window.GetWindowRect(rect);
        return rect;
    }

    CWnd _window;
};
} // namespace

TEST_F(IniLines, EndWithALineFeedAndTheTextWithCtrlZ)
{
    EXPECT_EQ(allLines(), "(none)");
    put("");
    EXPECT_EQ(allLines(), "");
    put("\na\r\n b \r\rc\r\n\nlast\r");
    EXPECT_EQ(allLines(), "|a| b \r\rc||last\r");
    put("a\nb\x1A"
        "c\nd");
    EXPECT_EQ(allLines(), "a|b");
    for (const auto& encode : encodings()) {
        put(encode("\u6881\r\n[\u67F1]\n") + "\n"); // in UTF-16 the last byte is half a unit
        EXPECT_EQ(allLines().substr(0, 9), "\u6881|[\u67F1]");
    }
}

TEST_F(IniLines, RemovedLinesLeaveTheOtherBytesAlone)
{
    for (const auto& encode : encodings()) {
        put(encode("\u6881\n\r\n;c\r\nk=1\n\nend"));
        EXPECT_EQ(CFamStuIniFile::DelOneRow(file(), 1), 1);
        EXPECT_EQ(get(), encode("\u6881\n;c\r\nk=1\n\nend"));
        EXPECT_EQ(CFamStuIniFile::DelLnLines(file(), 2, 3), 1);
        EXPECT_EQ(get(), encode("\u6881\n;c\r\n"));
        for (int line : {-1, 2, INT_MAX, INT_MIN})
            EXPECT_EQ(CFamStuIniFile::DelOneRow(file(), line), 0);
        EXPECT_EQ(CFamStuIniFile::DelLnLines(file(), 0, 0), 0);
        EXPECT_EQ(CFamStuIniFile::DelLnLines(file(), 1, 2), 0);
        EXPECT_EQ(CFamStuIniFile::DelLnLines(file(), 1, INT_MAX), 0);
        EXPECT_EQ(get(), encode("\u6881\n;c\r\n"));
    }
    put("\xFF\xD6\r\na\n\x81\nb\x1A rest"); // bytes that are no text of the code page
    EXPECT_EQ(CFamStuIniFile::DelOneRow(file(), 1), 1);
    EXPECT_EQ(get(), "\xFF\xD6\r\n\x81\nb\x1A rest");
    put("a\n\xEF\xBB\xBF"
        "b\n"); // would become the mark of UTF-8
    EXPECT_EQ(CFamStuIniFile::DelOneRow(file(), 0), 0);
    EXPECT_EQ(CFamStuIniFile::DelOneRow(L"", 0), 0);
}

TEST_F(IniLines, ModifiedLinesKeepTheirEnds)
{
    CStringArray lines;
    for (const auto& encode : encodings()) {
        put(encode("a\r\nb\nc"));
        EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 1, list(lines, {L"\u6881", L"d"})), 1);
        EXPECT_EQ(get(), encode("a\r\n\u6881\nd"));
        for (const wchar_t* text : {L"x\ny", L"x\r", L"\x1A"})
            EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 0, list(lines, {text})), 0);
        EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 2, list(lines, {L"x", L"y"})), 0);
        EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), -1, list(lines, {L"x"})), 0);
        EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 0, list(lines, {})), 0);
        EXPECT_EQ(get(), encode("a\r\n\u6881\nd"));
    }
    put("\xFF\nb\n");
    EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 1, list(lines, {L"\u0E01"})), 0); // not in GBK
    CFamStuIniFile::GetAllLines(lines, file());
    EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 0, lines), 1); // says the same as before
    EXPECT_EQ(get(), "\xFF\nb\n");
}

// Behind the last line end an empty line would not be there when the file is read again.
TEST_F(IniLines, EmptyLastLineIsNotLost)
{
    CStringArray lines;
    for (const auto& encode : encodings()) {
        put(encode("a\nb"));
        EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 1, list(lines, {L""})), 1);
        EXPECT_EQ(get(), encode("a\n\n"));
        put(encode("a\nb"));
        EXPECT_EQ(CFamStuIniFile::writerLines(list(lines, {L"a", L"", L""}), file()), 1);
        EXPECT_EQ(get(), encode("a\n\r\n\r\n"));
        EXPECT_EQ(allLines().substr(0, 3), "a||");
    }
}

TEST_F(IniLines, DescriptionIsTheCommentDirectlyAbove)
{
    put(";far\n\n; \xC1\xBA \n  ;two\nk=1\nplain\n");
    CString description = L"old", definition;
    EXPECT_EQ(CFamStuIniFile::getLnDesDef(description, definition, file(), 4), 1);
    EXPECT_STREQ(description, L"\u6881\r\ntwo");
    EXPECT_STREQ(definition, L"k=1");
    EXPECT_EQ(CFamStuIniFile::getLnDesDef(description, definition, file(), 5), 1);
    EXPECT_STREQ(description, L"");
    EXPECT_STREQ(definition, L"plain");
    for (int line : {-1, 6}) {
        EXPECT_EQ(CFamStuIniFile::getLnDesDef(description, definition, file(), line), 0);
        EXPECT_TRUE(description.IsEmpty() && definition.IsEmpty());
    }
}

TEST_F(IniLines, WrittenLinesThatWereThereKeepTheirBytes)
{
    put("\xFF one\n[s]\r\nk=1\n\nlast\n\x1A rest");
    CStringArray lines;
    ASSERT_EQ(CFamStuIniFile::GetAllLines(lines, file()), 1);
    EXPECT_EQ(CFamStuIniFile::writerLines(lines, file()), 1);
    EXPECT_EQ(get(), "\xFF one\n[s]\r\nk=1\n\nlast\n\x1A rest");
    lines[2] = L"k=\u6881";
    lines.InsertAt(1, L"new");
    EXPECT_EQ(CFamStuIniFile::writerLines(lines, file()), 1);
    EXPECT_EQ(get(), "\xFF one\nnew\r\n[s]\r\nk=\xC1\xBA\r\n\nlast\n\x1A rest");
    lines.Add(L"\u0E01");
    EXPECT_EQ(CFamStuIniFile::writerLines(lines, file()), 0);
    put("a\nb");
    EXPECT_EQ(CFamStuIniFile::writerLines(list(lines, {L"b", L"a", L"a"}), file()), 1);
    EXPECT_EQ(get(), "b\r\na\na");
    EXPECT_EQ(CFamStuIniFile::writerLines(list(lines, {}), file()), 1);
    EXPECT_EQ(get(), "");
}

TEST_F(IniLines, NewFileTakesTheEncodingThatItsLinesNeed)
{
    CStringArray lines;
    EXPECT_EQ(CFamStuIniFile::writerLines(list(lines, {L"\u6881", L"b"}), file()), 1);
    EXPECT_EQ(get(), "\xC1\xBA\r\nb");
    std::filesystem::remove(host());
    EXPECT_EQ(CFamStuIniFile::writerLines(list(lines, {L"\u0E01", L"\U00020000"}), file()), 1);
    EXPECT_EQ(get(), std::string("\xFF\xFE\x01\x0E\r\0\n\0\x40\xD8\x00\xDC", 12));
    EXPECT_EQ(allLines(), "\u0E01|\U00020000");
    EXPECT_EQ(CFamStuIniFile::writerLines(lines, L"Z:\\none\\a.ini"), 0);
}

TEST_F(IniLines, FailedReplacementLeavesTheFileAndNothingBesideIt)
{
    put("\xEF\xBB\xBF[s]\nk=1\n");
    std::filesystem::permissions(host(), std::filesystem::perms::owner_read);
    EXPECT_EQ(CFamStuIniFile::DelOneRow(file(), 0), 0);
    EXPECT_EQ(CFamStuIniFile::WriteKey(L"s", L"k", 2, file()), 0);
    std::filesystem::permissions(host(), std::filesystem::perms(0640));
    {
        CFile held(file(), CFile::modeRead | CFile::shareDenyWrite);
        EXPECT_EQ(CFamStuIniFile::DelOneRow(file(), 0), 0);
    }
    EXPECT_EQ(get(), "\xEF\xBB\xBF[s]\nk=1\n");
    EXPECT_EQ(CFamStuIniFile::DelOneRow(file(), 0), 1);
    EXPECT_EQ(std::filesystem::status(host()).permissions(), std::filesystem::perms(0640));
    const auto entries = std::filesystem::directory_iterator(folder());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(IniLines, ReaderSeesTheOldFileOrTheNewOneWhole)
{
    std::string longFile = "[s]\nk=1\n;";
    longFile.append(1 << 20, 'x');
    put(longFile);
    CStringArray lines;
    bool isDone = false, isWhole = true;
    std::thread reader([&] {
        while (!__atomic_load_n(&isDone, __ATOMIC_ACQUIRE))
            isWhole = isWhole && get().size() == longFile.size();
    });
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(CFamStuIniFile::ModifyLnLines(file(), 1, list(lines, {i % 2 ? L"k=1" : L"k=2"})), 1);
    __atomic_store_n(&isDone, true, __ATOMIC_RELEASE);
    reader.join();
    EXPECT_TRUE(isWhole);
}

TEST_F(IniWindow, WithoutKeysItGoesToTheDefaultPlaceAndKeepsItsSize)
{
    EXPECT_EQ(CFamStuIniFile::LoadWindowPos(&_window, file(), L"main", 1), 1);
    EXPECT_EQ(place(), CRect(100, 50, 400, 250));
}

TEST_F(IniWindow, ComesBackWhereItWasSaved)
{
    EXPECT_EQ(CFamStuIniFile::SaveWindowPos(&_window, file(), L"main"), 1);
    EXPECT_EQ(CEncoding::UTF8ToUnicode(get()).empty(), false);
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"窗口位置", L"mainX", -1, file()), 10);
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"窗口位置", L"mainY", -1, file()), 20);
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"窗口尺寸", L"mainWid", -1, file()), 300);
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"窗口尺寸", L"mainHei", -1, file()), 200);
    _window.MoveWindow(1, 2, 30, 40);
    EXPECT_EQ(CFamStuIniFile::LoadWindowPos(&_window, file(), L"main", 0), 1);
    EXPECT_EQ(place(), CRect(10, 20, 40, 60));
    EXPECT_EQ(CFamStuIniFile::LoadWindowPos(&_window, file(), L"main", 1), 1);
    EXPECT_EQ(place(), CRect(10, 20, 310, 220));
    EXPECT_EQ(CFamStuIniFile::WriteKey(L"窗口尺寸", L"mainHei", 0, file()), 1);
    EXPECT_EQ(CFamStuIniFile::WriteKey(L"窗口尺寸", L"mainWid", 99, file()), 1);
    EXPECT_EQ(CFamStuIniFile::LoadWindowPos(&_window, file(), L"main", 1), 1);
    EXPECT_EQ(place(), CRect(10, 20, 310, 220)); // one side is not enough
}

TEST_F(IniWindow, PlaceBeyondTheScreenCountsAsTheDefault)
{
    headless::setScreenSize(1000, 800);
    const auto loaded = [&](int x, int y) {
        CFamStuIniFile::WriteKey(L"窗口位置", L"wX", x, file());
        CFamStuIniFile::WriteKey(L"窗口位置", L"wY", y, file());
        EXPECT_EQ(CFamStuIniFile::LoadWindowPos(&_window, file(), L"w", 0), 1);
        return place().TopLeft();
    };
    EXPECT_EQ(loaded(1001, 30), CPoint(100, 30));
    EXPECT_EQ(loaded(30, 801), CPoint(30, 50));
    EXPECT_EQ(loaded(1000, 800), CPoint(1000, 800));
    EXPECT_EQ(loaded(-40, -1), CPoint(-40, -1));
    headless::setScreenSize(1920, 1080);
}

TEST_F(IniWindow, EmptyNameIsTheControlNumber)
{
    CWnd child;
    ASSERT_TRUE(child.Create(L"STATIC", L"", WS_CHILD, CRect(1, 2, 4, 6), &_window, 1234));
    EXPECT_EQ(CFamStuIniFile::SaveWindowPos(&child, file(), L""), 1);
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"窗口尺寸", L"1234Wid", -1, file()), 3);
    child.DestroyWindow();
}

TEST_F(IniWindow, MinimisedWindowIsNotSavedAndAMaximisedOneWithoutItsSize)
{
    CWnd none;
    EXPECT_EQ(CFamStuIniFile::SaveWindowPos(nullptr, file(), L"w"), 0);
    EXPECT_EQ(CFamStuIniFile::LoadWindowPos(nullptr, file(), L"w", 1), 0);
    EXPECT_EQ(CFamStuIniFile::SaveWindowPos(&none, file(), L"w"), 0);
    _window.ShowWindow(SW_SHOWMINIMIZED);
    EXPECT_EQ(CFamStuIniFile::SaveWindowPos(&_window, file(), L"w"), 0);
    EXPECT_EQ(get(), "(missing)");
    _window.ShowWindow(SW_SHOWMAXIMIZED);
    EXPECT_EQ(CFamStuIniFile::SaveWindowPos(&_window, file(), L"w"), 1);
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"窗口位置", L"wX", -1, file()), place().left);
    EXPECT_EQ(CFamStuIniFile::ReadKey(L"窗口尺寸", L"wWid", -1, file()), -1);
}

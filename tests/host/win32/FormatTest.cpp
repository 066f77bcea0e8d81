#include <windows.h>

#include <gtest/gtest.h>

#include <limits>

namespace
{
template <class... Args>
std::wstring wide(const wchar_t* format, const Args&... args)
{
    const auto list = crt::formatArgs(args...);
    return crt::format(format, list.begin(), list.size());
}

template <class... Args>
std::string narrow(const char* format, const Args&... args)
{
    const auto list = crt::formatArgs(args...);
    return crt::format(format, list.begin(), list.size());
}

std::wstring wideV(const wchar_t* format, ...)
{
    va_list args;
    va_start(args, format);
    const std::wstring text = crt::formatV(format, args);
    va_end(args);
    return text;
}
} // namespace

TEST(Format, IntegersTakeTheBitsOfTheirSize)
{
    const long long big = 0x1234567890LL;
    EXPECT_EQ(wide(L"%d %u %x", -1, -1, -1), L"-1 4294967295 ffffffff");
    EXPECT_EQ(wide(L"%d|%ld|%I64d|%lld|%zd", big, big, big, big, big),
              L"878082192|78187493520|78187493520|78187493520|78187493520");
    EXPECT_EQ(wide(L"%hd %hhu %hX %I32x", 0x12345, 0x1ff, -1, big), L"9029 255 FFFF 34567890");
    EXPECT_EQ(wide(L"%I64d %llu %lld", -5, 4000000000u, 4000000000u), L"-5 4000000000 4000000000");
    EXPECT_EQ(wide(L"%ld %d", 4000000000u, 4000000000u), L"-294967296 -294967296");
    EXPECT_EQ(wide(L"%I64d", std::numeric_limits<long long>::min()), L"-9223372036854775808");
}

TEST(Format, FlagsWidthAndPrecisionOfIntegers)
{
    EXPECT_EQ(wide(L"[%5d][%-5d][%05d][%+d][% d]", 42, 42, -42, 42, 42), L"[   42][42   ][-0042][+42][ 42]");
    EXPECT_EQ(wide(L"[%.4d][%08.3d][%.0d][%-08d]", 7, 7, 0, 7), L"[0007][     007][][7       ]");
    EXPECT_EQ(wide(L"%#x %#X %#o %#x %#.0o", 255, 255, 8, 0, 0), L"0xff 0XFF 010 0 0");
    EXPECT_EQ(wide(L"[%*d][%-*d][%*d][%.*d]", 4, 1, 4, 2, -4, 3, 3, 4), L"[   1][2   ][3   ][004]");
    EXPECT_EQ(wide(L"[%#06x]", 0xab), L"[0x00ab]");
}

TEST(Format, RealsDoNotDependOnTheLocale)
{
    EXPECT_EQ(wide(L"%f %.2f %e %G", 3.5, 2.675, 12345.678, 1e-10), L"3.500000 2.67 1.234568e+04 1E-10");
    EXPECT_EQ(wide(L"%g %g %g %g %#g", 100000.0, 1000000.0, 0.0001, 0.00001, 1.5),
              L"100000 1e+06 0.0001 1e-05 1.50000");
    EXPECT_EQ(wide(L"%g %.0f %#.0f %.0g %g", 0.0, 0.5, 3.0, 25.0, -0.0), L"0 0 3. 2e+01 -0");
    EXPECT_EQ(wide(L"%.3g|%.10g|%e", 999.9, 1.0 / 3, 1e100), L"1e+03|0.3333333333|1.000000e+100");
    EXPECT_EQ(wide(L"[%10.3f][%-10.1f][%010.2f][%+.1f]", 3.14159, 2.0, -2.5, 2.0),
              L"[     3.142][2.0       ][-000002.50][+2.0]");
    EXPECT_EQ(wide(L"%a %.0a %.2A", 1.5, 1.0, 0.5), L"0x1.8000000000000p+0 0x1p+0 0X1.00P-1");
    EXPECT_EQ(wide(L"%.2f", 1e300).size(), 304u) << "301 digits and two decimals";
    EXPECT_EQ(wide(L"%lf %Lf", 1.5, 1.5L), L"1.500000 1.500000");
}

TEST(Format, InfinitiesAndNansHaveNames)
{
    const double inf = std::numeric_limits<double>::infinity(),
                 nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(wide(L"%f %E %+g [%08.2f]", inf, -inf, inf, inf), L"inf -INF +inf [     inf]");
    EXPECT_EQ(wide(L"%f %f %F", nan, -nan, -nan), L"nan -nan(ind) -NAN(IND)");
}

TEST(Format, TextsFollowTheWidthOfTheFormat)
{
    EXPECT_EQ(wide(L"%s|%S|%hs|%ls|%ws", L"宽", "\xd5\xad", "\xd5\xad", L"宽", L"宽"), L"宽|窄|窄|宽|宽");
    EXPECT_EQ(narrow("%s|%S|%hs|%ls", "\xd5\xad", L"窄", "x", L"窄"), "\xd5\xad|\xd5\xad|x|\xd5\xad");
    EXPECT_EQ(wide(L"%c%C%hc%lc", L'宽', 'n', 'h', L'窄'), L"宽nh窄");
    EXPECT_EQ(narrow("%c%C", 'n', L'窄'), "n\xd5\xad");
    EXPECT_EQ(wide(L"[%6s][%-6s][%.2s][%06s]", L"abc", L"abc", L"abc", L"abc"),
              L"[   abc][abc   ][ab][000abc]");
    EXPECT_EQ(wide(L"%s %.3s", static_cast<const wchar_t*>(nullptr), static_cast<const char*>(nullptr)),
              L"(null) (nu");
    EXPECT_EQ(wide(L"a%cb", 0).size(), 3u);
}

TEST(Format, PrecisionCutsNoCharacterAndReadsNoFurther)
{
    const wchar_t letters[] = {L'a', L'b', L'c'};
    EXPECT_EQ(wide(L"%.3s", &letters[0]), L"abc");
    const char bytes[] = {'\xd5', '\xad', 'x'};
    EXPECT_EQ(wide(L"%.2S", &bytes[0]), L"窄x");
    EXPECT_EQ(narrow("%.3S|%.1S|", L"窄窄", L"窄"), "\xd5\xad||");
    EXPECT_EQ(narrow("%.3s", &bytes[0]), "\xd5\xadx");
}

TEST(Format, MismatchesPrintSomethingDefined)
{
    int variable = 0;
    EXPECT_EQ(wide(L"%s %s %s", 42, 0, 1.5), L"42 (null) 1.5");
    EXPECT_EQ(wide(L"%s", &variable), wide(L"%p", &variable));
    EXPECT_EQ(wide(L"%s %S", "narrow", L"wide"), L"narrow wide");
    EXPECT_EQ(wide(L"%d %f %f", 3.9, 7, L"x"), L"3 7.000000 0.000000");
    EXPECT_EQ(wide(L"%d %d", 1e300, std::numeric_limits<double>::quiet_NaN()), L"-1 0");
    EXPECT_EQ(wide(L"%c", L"xyz"), L"x");
    EXPECT_EQ(wide(L"%d %s|%.1f", 1), L"1 (null)|0.0");
}

TEST(Format, OddDirectivesDoNoHarm)
{
    EXPECT_EQ(wide(L"100%% %y %", 1), L"100% y ");
    int count = 1;
    EXPECT_EQ(wide(L"%n%d", &count, 5), L"5");
    EXPECT_EQ(count, 1);
    EXPECT_EQ(wide(L"%"), L"");
    EXPECT_EQ(wide(L"%-"), L"");
    EXPECT_EQ(wide(L"%墙"), L"墙");
    EXPECT_EQ(wide(nullptr), L"");
    EXPECT_EQ(wide(L"%p %p", reinterpret_cast<void*>(0xabcULL), nullptr),
              L"0000000000000ABC 0000000000000000");
}

TEST(Format, VariadicArgumentsAreTakenByTheirDirectives)
{
    EXPECT_EQ(
        wideV(L"%d %ld %I64d %s %S %c %.1f %*d %p", -1, 7, 1LL << 40, L"w", "n", 'c', 2.5, 3, 4, nullptr),
        L"-1 7 1099511627776 w n c 2.5   4 0000000000000000");
}

TEST(Format, MessagesPutInsertsWhereTheirNumbersStand)
{
    const auto list = crt::formatArgs(L"one", 2, 5, L"five");
    const auto message = [&](const wchar_t* text) {
        return crt::formatMessage(text, list.begin(), list.size());
    };
    EXPECT_EQ(message(L"%1-%2!d!-%2!03x!"), L"one-2-002");
    EXPECT_EQ(message(L"%3!*s!|"), L" five|");
    EXPECT_EQ(message(L"a%nb%%%!%.%bc%0never"), L"a\r\nb%!. c");
    EXPECT_EQ(message(L"%9|%1!|"), L"(null)|one!|");
    EXPECT_EQ(message(L"end%"), L"end");
}

TEST(PrintToBuffer, WhatDoesNotFitFollowsTheFamily)
{
    wchar_t text[6] = L"";
    EXPECT_EQ(swprintf_s(text, L"%d", 12345), 5);
    EXPECT_STREQ(text, L"12345");
    EXPECT_EQ(swprintf_s(text, L"%d", 123456), -1);
    EXPECT_EQ(errno, ERANGE);
    EXPECT_STREQ(text, L"");
    EXPECT_EQ(_snwprintf_s(text, _TRUNCATE, L"%d", 123456), -1);
    EXPECT_STREQ(text, L"12345");
    EXPECT_EQ(_snwprintf_s(text, 3, L"%d", 123456), -1);
    EXPECT_STREQ(text, L"123");
    EXPECT_EQ(_snwprintf_s(text, 6, L"%d", 123456), -1);
    EXPECT_STREQ(text, L"");
    text[4] = L'!';
    EXPECT_EQ(_snwprintf(text, 4, L"%d", 123456), -1);
    EXPECT_EQ(std::wstring(text, 5), L"1234!");
    EXPECT_EQ(_snwprintf(text, 4, L"%s", L"wxyz"), 4);
    EXPECT_EQ(std::wstring(text, 5), L"wxyz!");
    EXPECT_EQ(swprintf(text, 4, L"%s", L"abcdef"), -1);
    EXPECT_STREQ(text, L"abc");
    EXPECT_EQ(_scwprintf(L"%s", L"abcdef"), 6);
}

TEST(PrintToBuffer, NoBufferIsInvalid)
{
    wchar_t text[] = L"old";
    const wchar_t* noFormat = nullptr;
    EXPECT_EQ(swprintf_s(static_cast<wchar_t*>(nullptr), 5, L"x"), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(swprintf_s(&text[0], 0, L"x"), -1);
    EXPECT_STREQ(text, L"old");
    EXPECT_EQ(swprintf_s(text, noFormat), -1);
    EXPECT_STREQ(text, L"");
    char bytes[4];
    EXPECT_EQ(sprintf_s(bytes, "%S", L"中"), 2);
    EXPECT_STREQ(bytes, "\xd6\xd0");
}

#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace
{
// The numbers that have a Chinese text, as ranges with both ends.
const std::vector<std::pair<int, int>> ranges = {
    {0, 18},    {20, 77},   {80, 107},    {110, 110},   {120, 120},   {122, 142},    {150, 173}, {180, 180},
    {190, 193}, {200, 208}, {210, 213},   {220, 222},   {230, 232},   {250, 256},    {260, 261}, {290, 292},
    {300, 303}, {310, 312}, {314, 314},   {320, 323},   {325, 325},   {330, 335},    {337, 338}, {340, 340},
    {342, 346}, {348, 352}, {354, 376},   {378, 411},   {420, 420},   {430, 437},    {440, 442}, {500, 527},
    {550, 550}, {600, 609}, {1001, 1003}, {1101, 1104}, {1201, 1203}, {20000, 20052}};

std::set<int> codesWithText()
{
    std::set<int> codes;
    for (const auto& [first, last] : ranges) {
        for (int code = first; code <= last; ++code)
            codes.insert(code);
    }
    return codes;
}

std::wstring textOf(int code)
{
    return CFamStuGlobe::acadErrorStatusTextChs(static_cast<Acad::ErrorStatus>(code)).GetString();
}

TEST(AcadErrorStatusTextChs, KnownStatusesKeepTheirWordsMarksAndMisspellings)
{
    const std::map<int, const wchar_t*> rows = {{0, L"正确"},
                                                {1, L"尚未实现"},
                                                {3, L"无效的输入"},
                                                {6, L"内存不足"},
                                                {15, L"对象指针为空"},
                                                {16, L"对象ID为空"},
                                                {21, L"非法的实体类型"},
                                                {22, L"关键字未找到"},
                                                {59, L"不可以嵌套块定义"},
                                                {71, L"文件被ACAD锁定"},
                                                {80, L"对象被删除"},
                                                {82, L"对象只读打开"},
                                                {87, L"对象在锁定图层上"},
                                                {100, L"不是可写打开"},
                                                {173, L"无效的图层"},
                                                {180, L"用户打断"},
                                                {190, L"DWG文件需要修复"},
                                                {320, L"锁定妨碍当前操作"},
                                                {330, L"没有文档"},
                                                {360, L"无效的文件后缀名成"},
                                                {380, L"不完整的合成(?复杂)对象"},
                                                {420, L"填充太密集"},
                                                {600, L"无效的对象ID或者对象ID不在当前数据库"},
                                                {1001, L"SEC(?)初始化错误"},
                                                {20000, L"网络正常"},
                                                {20030, L"HTTP对象未找到"},
                                                {20052, L"已经是不活动的了"}};
    for (const auto& [code, text] : rows)
        EXPECT_EQ(textOf(code), text) << code;
}

TEST(AcadErrorStatusTextChs, NoTwoStatusesShareAText)
{
    std::map<std::wstring, int> seen;
    for (int code : codesWithText()) {
        const auto [at, added] = seen.emplace(textOf(code), code);
        EXPECT_TRUE(added) << code << " has the text of " << at->second;
    }
    EXPECT_EQ(seen.size(), 391u);
    EXPECT_EQ(seen.count(L"未知错误"), 0u);
}

TEST(AcadErrorStatusTextChs, NumbersWithoutStatusAreUnknown)
{
    const std::set<int> known = codesWithText();
    for (int code = -1; code <= 20100; ++code) {
        if (known.count(code) > 0) continue;
        ASSERT_EQ(textOf(code), L"未知错误") << code;
    }
}
} // namespace

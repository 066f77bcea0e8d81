// ICU asks for the platform by its macros, so it comes before the Windows interface.
#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include "QmCADLib.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <iconv.h>
#include <random>
#include <vector>

namespace
{
constexpr std::size_t megabyte = std::size_t{1} << 20;

/// Words of drawings: short runs of ASCII and of Chinese characters, as UTF-16 of about `bytes` in UTF-8.
std::vector<std::uint16_t> mixedUnits(std::size_t bytes)
{
    std::mt19937 random(1);
    std::vector<std::uint16_t> units;
    for (std::size_t made = 0; made < bytes;) {
        const bool chinese = random() % 2;
        for (unsigned run = 1 + random() % 12; run > 0; --run) {
            units.push_back(
                static_cast<std::uint16_t>(chinese ? 0x4e00 + random() % 0x5000 : 0x20 + random() % 0x5f));
            made += chinese ? 3 : 1;
        }
    }
    return units;
}

const std::vector<std::uint16_t>& units64()
{
    static const auto units = mixedUnits(64 * megabyte);
    return units;
}

const std::vector<char>& bytes64()
{
    static const auto bytes = [] {
        std::vector<char> made(3 * units64().size() + 1);
        made.resize(CEncoding::Unicode16ToUTF8(units64().data(), static_cast<std::uint32_t>(units64().size()),
                                               made.data(), static_cast<std::uint32_t>(made.size())) -
                    1);
        return made;
    }();
    return bytes;
}

void setThroughput(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

void decodeOurs(benchmark::State& state)
{
    const auto& source = bytes64();
    std::vector<std::uint16_t> target(source.size() + 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(CEncoding::UTF8ToUnicode16(
            reinterpret_cast<const std::uint8_t*>(source.data()), static_cast<std::uint32_t>(source.size()),
            target.data(), static_cast<std::uint32_t>(target.size())));
    setThroughput(state, source.size());
    state.counters["goal"] = 2;
}

void decodeIcu(benchmark::State& state)
{
    const auto& source = bytes64();
    std::vector<UChar> target(source.size() + 1);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t length = 0;
        u_strFromUTF8(target.data(), static_cast<std::int32_t>(target.size()), &length, source.data(),
                      static_cast<std::int32_t>(source.size()), &status);
        if (U_FAILURE(status)) state.SkipWithError(u_errorName(status));
        benchmark::DoNotOptimize(length);
    }
    setThroughput(state, source.size());
}

void encodeOurs(benchmark::State& state)
{
    const auto& source = units64();
    std::vector<char> target(3 * source.size() + 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CEncoding::Unicode16ToUTF8(source.data(), static_cast<std::uint32_t>(source.size()),
                                       target.data(), static_cast<std::uint32_t>(target.size())));
    setThroughput(state, bytes64().size());
    state.counters["goal"] = 2;
}

void encodeIcu(benchmark::State& state)
{
    const std::vector<UChar> source(units64().begin(), units64().end());
    std::vector<char> target(3 * source.size() + 1);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t length = 0;
        u_strToUTF8(target.data(), static_cast<std::int32_t>(target.size()), &length, source.data(),
                    static_cast<std::int32_t>(source.size()), &status);
        if (U_FAILURE(status)) state.SkipWithError(u_errorName(status));
        benchmark::DoNotOptimize(length);
    }
    setThroughput(state, bytes64().size());
}

/// The beginning of the mixed text, as far as it is in GBK: the block from 4E00 to 9FA5 is.
std::string gbkText(std::size_t bytes)
{
    auto units = mixedUnits(bytes);
    for (auto& unit : units)
        if (unit > 0x9fa5) unit = static_cast<std::uint16_t>(unit - 0x1000);
    std::vector<char> text(3 * units.size() + 1);
    text.resize(CEncoding::Unicode16ToUTF8(units.data(), static_cast<std::uint32_t>(units.size()),
                                           text.data(), static_cast<std::uint32_t>(text.size())) -
                1);
    return std::string(text.begin(), text.end());
}

void gbkOurs(benchmark::State& state)
{
    const std::string source = gbkText(16 * megabyte);
    for (auto _ : state)
        benchmark::DoNotOptimize(CEncoding::UTF8ToGBK(source));
    setThroughput(state, source.size());
    state.counters["goal"] = 1;
}

void gbkIconv(benchmark::State& state)
{
    std::string source = gbkText(16 * megabyte);
    const iconv_t converter = iconv_open("GBK", "UTF-8");
    for (auto _ : state) {
        std::string target(source.size(), '\0');
        char *from = source.data(), *to = target.data();
        std::size_t fromLeft = source.size(), toLeft = target.size();
        if (iconv(converter, &from, &fromLeft, &to, &toLeft) != 0) state.SkipWithError("not converted whole");
        target.resize(target.size() - toLeft);
        benchmark::DoNotOptimize(target);
    }
    iconv_close(converter);
    setThroughput(state, source.size());
}

/// Names of entities as drawings have them: a few Latin or Chinese prefixes, a storey, a number.
std::vector<CString> drawingNames(std::size_t count)
{
    static const wchar_t* const prefixes[] = {L"KL-",     L"kz",     L"WALL_",    L"A-",
                                              L"\x6881-", L"\x67f1", L"\x5899-Q", L"No."};
    std::mt19937 random(3);
    std::vector<CString> names(count);
    for (auto& name : names) {
        name = prefixes[random() % 8];
        name += std::to_wstring(random() % 30 + 1).c_str();
        name += random() % 2 ? L"F-" : L"\x5c42-";
        name += std::to_wstring(random() % 20000).c_str();
    }
    return names;
}

constexpr std::size_t nameCount = 1000000;

void sortOurs(benchmark::State& state)
{
    const auto names = drawingNames(nameCount);
    for (auto _ : state) {
        state.PauseTiming();
        CStringArray array;
        array.SetSize(nameCount);
        std::copy(names.begin(), names.end(), array.GetData());
        state.ResumeTiming();
        CFamStuStr::SortStrArray(array);
        benchmark::DoNotOptimize(array.GetData());
    }
    state.counters["goal"] = 4;
}

/// None of the names is the beginning of another, so the comparison itself can be the sort's. It takes its
/// arguments by value: most of the time goes into the copies, which touch both names' counts. No goal is set.
void sortByComparison(benchmark::State& state)
{
    const auto names = drawingNames(nameCount);
    for (auto _ : state) {
        state.PauseTiming();
        auto sorted = names;
        state.ResumeTiming();
        std::sort(sorted.begin(), sorted.end(),
                  [](const CString& a, const CString& b) { return CFamStuStr::CompareTowStr(a, b, 0) == 1; });
        benchmark::DoNotOptimize(sorted.data());
    }
}

void sortIcu(benchmark::State& state)
{
    std::vector<std::basic_string<UChar>> names;
    for (const auto& name : drawingNames(nameCount))
        names.emplace_back(name.GetString(), name.GetString() + name.GetLength());
    UErrorCode status = U_ZERO_ERROR;
    UCollator* const collator = ucol_open("zh", &status);
    ucol_setAttribute(collator, UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
    ucol_setStrength(collator, UCOL_SECONDARY); // ignores case
    if (U_FAILURE(status)) state.SkipWithError(u_errorName(status));
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<const std::basic_string<UChar>*> sorted;
        for (const auto& name : names)
            sorted.push_back(&name);
        state.ResumeTiming();
        std::sort(sorted.begin(), sorted.end(), [collator](const auto* a, const auto* b) {
            return ucol_strcoll(collator, a->data(), static_cast<std::int32_t>(a->size()), b->data(),
                                static_cast<std::int32_t>(b->size())) == UCOL_LESS;
        });
        benchmark::DoNotOptimize(sorted.data());
    }
    ucol_close(collator);
}
} // namespace

BENCHMARK(sortOurs)->Name("SortStrArray_1000000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(sortIcu)->Name("SortStrArray_1000000/icu")->Unit(benchmark::kMillisecond);
BENCHMARK(sortByComparison)->Name("CompareTowStr_1000000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(sortIcu)->Name("CompareTowStr_1000000/icu")->Unit(benchmark::kMillisecond);
BENCHMARK(gbkOurs)->Name("UTF8ToGBK_16MiB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(gbkIconv)->Name("UTF8ToGBK_16MiB/iconv")->Unit(benchmark::kMillisecond);
BENCHMARK(decodeOurs)->Name("UTF8ToUnicode16_64MiB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(decodeIcu)->Name("UTF8ToUnicode16_64MiB/icu")->Unit(benchmark::kMillisecond);
BENCHMARK(encodeOurs)->Name("Unicode16ToUTF8_64MiB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(encodeIcu)->Name("Unicode16ToUTF8_64MiB/icu")->Unit(benchmark::kMillisecond);

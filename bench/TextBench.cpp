// ICU asks for the platform by its macros, so it comes before the Windows interface.
#include <unicode/ustring.h>

#include "QmCADLib.h"

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
} // namespace

BENCHMARK(gbkOurs)->Name("UTF8ToGBK_16MiB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(gbkIconv)->Name("UTF8ToGBK_16MiB/iconv")->Unit(benchmark::kMillisecond);
BENCHMARK(decodeOurs)->Name("UTF8ToUnicode16_64MiB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(decodeIcu)->Name("UTF8ToUnicode16_64MiB/icu")->Unit(benchmark::kMillisecond);
BENCHMARK(encodeOurs)->Name("Unicode16ToUTF8_64MiB/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(encodeIcu)->Name("Unicode16ToUTF8_64MiB/icu")->Unit(benchmark::kMillisecond);

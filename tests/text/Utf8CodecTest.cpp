#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{
constexpr std::uint16_t untouchedUnit = 0xbeef;
constexpr char untouchedByte = '\x5a';

struct Conversion {
    std::string printed;
    std::uint32_t result = 0;
};

bool operator==(const Conversion& a, const Conversion& b)
{
    return a.printed == b.printed && a.result == b.result;
}

std::ostream& operator<<(std::ostream& out, const Conversion& c)
{
    return out << c.result << " and printed " << c.printed;
}

/// The decoder's rules, byte by byte. The buffer keeps its content behind the terminating 0.
Conversion decodePlainly(const std::vector<std::uint8_t>& src, std::vector<std::uint16_t>& dst)
{
    Conversion made;
    std::size_t at = 0, out = 0;
    unsigned unit = 0;
    while (at < src.size() && out < dst.size()) {
        const unsigned lead = src[at];
        const std::size_t length = lead < 0x80 ? 1 : lead <= 0xde ? 2 : lead <= 0xef ? 3 : 0;
        if (at + length > src.size()) {
            made.printed += "error!/n";
            break;
        }
        if (length == 0) made.printed += "error!/n";
        if (length == 1) unit = lead;
        if (length == 2) unit = ((lead & 0x1f) << 6) + (src[at + 1] & 0x3f);
        if (length == 3) unit = ((lead << 12) + ((src[at + 1] & 0x3f) << 6) + (src[at + 2] & 0x3f)) & 0xffff;
        dst[out++] = static_cast<std::uint16_t>(unit);
        at += length;
    }
    if (out == dst.size()) --out;
    dst[out] = 0;
    made.result = static_cast<std::uint32_t>(out + 1);
    return made;
}

Conversion encodePlainly(const std::vector<std::uint16_t>& src, std::vector<char>& dst)
{
    Conversion made;
    std::size_t out = 0;
    for (std::size_t at = 0; at < src.size() && out < dst.size(); ++at) {
        const unsigned unit = src[at];
        std::vector<unsigned> bytes;
        if (unit < 0x80)
            bytes = {unit};
        else if (unit < 0x7ff)
            bytes = {0xc0 | (unit >> 6), 0x80 | (unit & 0x3f)};
        else if (unit == 0x7ff)
            made.printed += "error/n";
        else
            bytes = {0xe0 | (unit >> 12), 0x80 | ((unit >> 6) & 0x3f), 0x80 | (unit & 0x3f)};
        if (bytes.size() > dst.size() - out) break;
        for (const unsigned byte : bytes)
            dst[out++] = static_cast<char>(byte);
    }
    if (out == dst.size()) --out;
    dst[out] = 0;
    made.result = static_cast<std::uint32_t>(out + 1);
    return made;
}

Conversion decode(const std::vector<std::uint8_t>& src, std::vector<std::uint16_t>& dst)
{
    testing::internal::CaptureStdout();
    Conversion made;
    made.result = CEncoding::UTF8ToUnicode16(src.data(), static_cast<std::uint32_t>(src.size()), dst.data(),
                                             static_cast<std::uint32_t>(dst.size()));
    made.printed = testing::internal::GetCapturedStdout();
    return made;
}

Conversion encode(const std::vector<std::uint16_t>& src, std::vector<char>& dst)
{
    testing::internal::CaptureStdout();
    Conversion made;
    made.result = CEncoding::Unicode16ToUTF8(src.data(), static_cast<std::uint32_t>(src.size()), dst.data(),
                                             static_cast<std::uint32_t>(dst.size()));
    made.printed = testing::internal::GetCapturedStdout();
    return made;
}

std::vector<std::uint16_t> decoded(const std::vector<std::uint8_t>& src, std::size_t size)
{
    std::vector<std::uint16_t> dst(size, untouchedUnit);
    decode(src, dst);
    return dst;
}

using Random = std::mt19937;

int below(Random& random, int bound)
{
    return static_cast<int>(random() % static_cast<unsigned>(bound));
}

std::uint16_t someUnit(Random& random, int kind)
{
    switch (kind) {
    case 0:
        return static_cast<std::uint16_t>(below(random, 0x80));
    case 1:
        return static_cast<std::uint16_t>(0x80 + below(random, 0x7ff - 0x80));
    case 2:
        return static_cast<std::uint16_t>(0x4e00 + below(random, 0x5000));
    case 3:
        return static_cast<std::uint16_t>(0xd800 + below(random, 0x800));
    default:
        return static_cast<std::uint16_t>(random());
    }
}

/// Runs of ASCII, of two-byte and three-byte units, of lone surrogates and of anything.
std::vector<std::uint16_t> someUnits(Random& random, std::size_t size, bool mixedFinely)
{
    std::vector<std::uint16_t> units;
    while (units.size() < size) {
        const int kind = below(random, 40) ? below(random, 4) : 4;
        for (int run = 1 + below(random, mixedFinely ? 5 : 90); run > 0 && units.size() < size; --run)
            units.push_back(someUnit(random, kind));
    }
    return units;
}

/// Encoded units, with some bytes turned into any others, now and then cut off.
std::vector<std::uint8_t> someBytes(Random& random, std::size_t size, bool mixedFinely, int faults)
{
    const auto units = someUnits(random, size / 2, mixedFinely);
    std::vector<char> text(3 * units.size() + 1);
    encodePlainly(units, text);
    std::vector<std::uint8_t> bytes(text.begin(), text.end());
    bytes.resize(size);
    for (; faults > 0 && size > 0; --faults)
        bytes[random() % size] = static_cast<std::uint8_t>(below(random, 8) ? random() % 0xf0 : random());
    return bytes;
}
} // namespace

TEST(Utf8Decoding, GivesTheSameAsByteByByteForAnyInputAndRoom)
{
    Random random(20210607);
    for (int round = 0; round < 3000; ++round) {
        const auto src = someBytes(random, below(random, 700), round % 2, round % 3 == 1 ? 0 : below(random, 9));
        const std::size_t room = 1 + (round % 5 ? src.size() + 20 : below(random, 300));
        std::vector<std::uint16_t> dst(room, untouchedUnit), expected(room, untouchedUnit);
        const Conversion wanted = decodePlainly(src, expected);
        ASSERT_EQ(decode(src, dst), wanted) << "round " << round;
        ASSERT_EQ(dst, expected) << "round " << round;
    }
}

TEST(Utf8Decoding, GivesTheSameAsByteByByteForPureNoise)
{
    Random random(77);
    for (int round = 0; round < 300; ++round) {
        std::vector<std::uint8_t> src(below(random, 400));
        for (auto& byte : src)
            byte = static_cast<std::uint8_t>(random() % (round % 3 ? 0xf0 : 0x100));
        std::vector<std::uint16_t> dst(src.size() + 1, untouchedUnit), expected = dst;
        const Conversion wanted = decodePlainly(src, expected);
        ASSERT_EQ(decode(src, dst), wanted) << "round " << round;
        ASSERT_EQ(dst, expected) << "round " << round;
    }
}

TEST(Utf8Decoding, EndOfASequenceIsNoLeadOfTheNext)
{
    // Continuation bytes are not checked, so a sequence may end with a byte that looks like a three-byte lead.
    // What follows must not see it, wherever the decoder changes its pace.
    for (std::size_t end = 56; end < 140; ++end) {
        for (const std::uint8_t last : {0xdf, 0xef, 0xf5}) {
            std::vector<std::uint8_t> src(end - 3, 'a');
            src.insert(src.end(), {0xe2, 0x8b, last, 'c', 'd', 0xc2, 0xa9});
            src.insert(src.end(), 120, 'e');
            std::vector<std::uint16_t> dst(400, untouchedUnit), expected = dst;
            const Conversion wanted = decodePlainly(src, expected);
            ASSERT_EQ(decode(src, dst), wanted) << "end " << end;
            ASSERT_EQ(dst, expected) << "end " << end;
        }
    }
}

TEST(Utf8Encoding, GivesTheSameAsUnitByUnitForAnyInputAndRoom)
{
    Random random(20210608);
    for (int round = 0; round < 3000; ++round) {
        auto src = someUnits(random, below(random, 400), round % 2);
        for (int faults = round % 3 ? 0 : below(random, 4); faults > 0 && !src.empty(); --faults)
            src[random() % src.size()] = 0x7ff;
        if (round % 7 == 0) src.insert(src.end(), 100, std::uint16_t{0x7ff});
        const std::size_t room = 1 + (round % 5 ? 3 * src.size() + 20 : below(random, 500));
        std::vector<char> dst(room, untouchedByte), expected(room, untouchedByte);
        const Conversion wanted = encodePlainly(src, expected);
        ASSERT_EQ(encode(src, dst), wanted) << "round " << round;
        ASSERT_EQ(dst, expected) << "round " << round;
    }
}

TEST(Utf8Decoding, ReadsLeadBytesByItsOwnRanges)
{
    // 80 and BF lead two bytes; DE is the last to do so: (1E << 6) + 3F = 7BF.
    EXPECT_EQ(decoded({0x80, 0x41, 0xbf, 0xbf, 0xde, 0xbf}, 4),
              (std::vector<std::uint16_t>{0x01, 0x7ff, 0x7bf, 0}));
    // DF leads three: DF << 12 is F000 in 16 bits.
    EXPECT_EQ(decoded({0xdf, 0x80, 0x81}, 2), (std::vector<std::uint16_t>{0xf001, 0}));
    EXPECT_EQ(decoded({0xed, 0xa0, 0xbd}, 2), (std::vector<std::uint16_t>{0xd83d, 0})); // a lone surrogate
}

TEST(Utf8Decoding, UnknownLeadByteFillsTheRestWithTheUnitBefore)
{
    std::vector<std::uint16_t> dst(5, untouchedUnit);
    const Conversion made = decode({'A', 0xf0, 0x9f, 0x98, 0x80}, dst);
    EXPECT_EQ(dst, (std::vector<std::uint16_t>{'A', 'A', 'A', 'A', 0}));
    EXPECT_EQ(made.result, 5u);
    EXPECT_EQ(made.printed, "error!/nerror!/nerror!/nerror!/n"); // four stored, the last made way for the 0
    EXPECT_EQ(decoded({0xff}, 3), (std::vector<std::uint16_t>{0, 0, 0}));
}

TEST(Utf8Decoding, PrintsADiagnosticForEachOfMillionsOfRepetitions)
{
    std::vector<std::uint16_t> dst(1000001, untouchedUnit);
    EXPECT_EQ(decode({0xf8}, dst).printed.size(), dst.size() * 8);
}

TEST(Utf8Decoding, CutOffSequenceStoresNothing)
{
    for (const std::vector<std::uint8_t>& src :
         {std::vector<std::uint8_t>{'A', 0xe4, 0xb8}, {'A', 0xe4}, {'A', 0xc3}}) {
        std::vector<std::uint16_t> dst(4, untouchedUnit);
        EXPECT_EQ(decode(src, dst), (Conversion{"error!/n", 2}));
        EXPECT_EQ(dst, (std::vector<std::uint16_t>{'A', 0, untouchedUnit, untouchedUnit}));
    }
}

TEST(Utf8Encoding, LeavesTheUnit7ffOut)
{
    std::vector<char> dst(8, untouchedByte);
    EXPECT_EQ(encode({0x7fe, 0x7ff, 0x800, 0x7f}, dst), (Conversion{"error/n", 7}));
    EXPECT_EQ(std::string(dst.data()), "\xdf\xbe\xe0\xa0\x80\x7f");
}

TEST(Utf8Encoding, EncodesEachSurrogateByItself)
{
    std::vector<char> dst(7);
    EXPECT_EQ(encode({0xd83d, 0xde00}, dst).result, 7u);
    EXPECT_EQ(std::string(dst.data()), "\xed\xa0\xbd\xed\xb8\x80");
}

TEST(Utf8Encoding, CharacterThatDoesNotFitEndsTheOutput)
{
    std::vector<char> dst(3, untouchedByte);
    EXPECT_EQ(encode({'a', 0x4e2d, 'b'}, dst).result, 2u);
    EXPECT_EQ(dst, (std::vector<char>{'a', 0, untouchedByte}));
    // A character that fits to the last cell gives that cell up to the 0.
    EXPECT_EQ(encode({0x4e2d, 'b'}, dst).result, 3u);
    EXPECT_EQ(dst, (std::vector<char>{'\xe4', '\xb8', 0}));
}

TEST(Utf8Codec, AnswersTheNecessarySizeForSizeZero)
{
    const std::uint8_t bytes[] = {1, 2};
    const std::uint16_t units[] = {1, 2};
    char room[1] = {untouchedByte};
    EXPECT_EQ(CEncoding::UTF8ToUnicode16(bytes, 2, nullptr, 0), 3u);
    EXPECT_EQ(CEncoding::UTF8ToUnicode16(bytes, 2, nullptr, 10), 3u);
    EXPECT_EQ(CEncoding::Unicode16ToUTF8(units, 2, room, 0), 7u);
    EXPECT_EQ(CEncoding::Unicode16ToUTF8(units, 2, nullptr, 10), 7u);
    EXPECT_EQ(room[0], untouchedByte);
    EXPECT_EQ(CEncoding::UTF8ToUnicode16(bytes, 0xffffffff, nullptr, 0), 0xffffffff);
    EXPECT_EQ(CEncoding::Unicode16ToUTF8(units, 0x80000000, nullptr, 0), 0xffffffff);
}

TEST(Utf8Codec, RoomForOneHoldsTheTerminatorOnly)
{
    std::vector<std::uint16_t> unit(1, untouchedUnit);
    EXPECT_EQ(decode({'a', 'b'}, unit).result, 1u);
    EXPECT_EQ(unit[0], 0);
    std::vector<char> byte(1, untouchedByte);
    EXPECT_EQ(encode({'a', 'b'}, byte).result, 1u);
    EXPECT_EQ(byte[0], 0);
}

TEST(Utf8Codec, NoSourceGivesTheTerminatorOnly)
{
    std::uint16_t units[2] = {untouchedUnit, untouchedUnit};
    char bytes[2] = {untouchedByte, untouchedByte};
    EXPECT_EQ(CEncoding::UTF8ToUnicode16(nullptr, 0, units, 2), 1u);
    EXPECT_EQ(CEncoding::UTF8ToUnicode16(nullptr, 5, units, 2), 1u);
    EXPECT_EQ(CEncoding::Unicode16ToUTF8(nullptr, 0, bytes, 2), 1u);
    EXPECT_EQ(CEncoding::Unicode16ToUTF8(nullptr, 5, bytes, 2), 1u);
    EXPECT_EQ(units[0], 0);
    EXPECT_EQ(units[1], untouchedUnit);
    EXPECT_EQ(bytes[0], 0);
    EXPECT_EQ(bytes[1], untouchedByte);
}

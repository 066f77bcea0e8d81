#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ed
{
/// Numbers out of a range, marked in any order and taken in theirs: a bit for each, and one for each 64 of
/// those.
class MarkedRanks
{
public:
    void resize(std::size_t count)
    {
        mBits.assign(count / 64 + 1, 0);
        mWords.assign(mBits.size() / 64 + 1, 0);
    }
    void mark(std::size_t rank)
    {
        mBits[rank / 64] |= bitOf(rank);
        mWords[rank / 64 / 64] |= bitOf(rank / 64);
    }
    /// Calls `take(rank)` for each, the smallest first; nothing is marked afterwards.
    template <class Take>
    void takeAll(Take take)
    {
        for (std::size_t i = 0; i < mWords.size(); ++i) {
            forEachBit(mWords[i], [&](std::size_t bit) {
                const std::size_t word = i * 64 + bit;
                forEachBit(mBits[word], [&](std::size_t low) { take(word * 64 + low); });
            });
        }
    }

private:
    static std::uint64_t bitOf(std::size_t number) { return std::uint64_t(1) << number % 64; }
    template <class Take>
    static void forEachBit(std::uint64_t& bits, Take take)
    {
        for (; bits; bits &= bits - 1)
            take(static_cast<std::size_t>(__builtin_ctzll(bits)));
    }

    std::vector<std::uint64_t> mBits, mWords;
};
} // namespace ed

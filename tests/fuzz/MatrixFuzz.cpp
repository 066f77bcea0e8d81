// fuzz_matrix SECONDS [SEED]: loads damaged matrix archives and CSV files for that long.
//
// Each round takes a valid file, changes a few of its bytes, cuts it, or repeats a part, and reads it. Either
// a matrix comes out, which must be stored and loaded again as it is, or one of the documented exceptions,
// which must leave the target alone. Anything else is reported with the round and the seed that repeat it.
// Memory out of proportion is a fault too: under the address sanitizer no single block may be larger than
// 64 MB, while the files have some kilobytes.

#include "../geometry/TemporaryFile.h"
#include "QmCADLib.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>

extern "C" const char* __asan_default_options();
const char* __asan_default_options()
{
    return "max_allocation_size_mb=64:allocator_may_return_null=1";
}

namespace
{
using Random = std::mt19937;

constexpr int archivesInRound = 10; // they need no file on disk, and are quicker

size_t below(Random& random, size_t limit)
{
    return limit == 0 ? 0 : random() % limit;
}

CMatrix randomMatrix(Random& random)
{
    CMatrix matrix(static_cast<int>(below(random, 12)), static_cast<int>(below(random, 12)));
    for (int x = 0; x < matrix.GetNumColumns(); ++x)
        for (int y = 0; y < matrix.GetNumRows(); ++y)
            matrix.SetElement(x, y, static_cast<double>(random()) / (1 + below(random, 1000)) - 1e5);
    return matrix;
}

/// What a damaged number may well be.
std::uint32_t oddNumber(Random& random)
{
    const std::uint32_t numbers[] = {0,          1,          2,
                                     0x7fffffff, 0x80000000, 0xffffffff,
                                     0x10000,    0x20000000, static_cast<std::uint32_t>(random())};
    return numbers[below(random, std::size(numbers))];
}

void overwriteNumber(std::string& bytes, Random& random)
{
    const std::uint32_t number = oddNumber(random);
    const size_t at = below(random, bytes.size() / 4) * 4;
    for (size_t i = 0; i < 4 && at + i < bytes.size(); ++i)
        bytes[at + i] = static_cast<char>(number >> (8 * i));
}

void damageOnce(std::string& bytes, Random& random)
{
    const size_t at = below(random, bytes.size()), count = below(random, 64);
    switch (random() % 6) {
    case 0:
        if (!bytes.empty()) bytes[at] = static_cast<char>(random());
        break;
    case 1:
        if (!bytes.empty()) bytes[at] = "0123456789,.eE+-\r\n\t xnif"[below(random, 24)];
        break;
    case 2:
        overwriteNumber(bytes, random);
        break;
    case 3:
        bytes.resize(at);
        break;
    case 4:
        bytes.insert(at, bytes.substr(below(random, bytes.size()), count));
        break;
    default:
        bytes.erase(at, count);
    }
}

std::string damaged(std::string bytes, Random& random)
{
    for (size_t changes = below(random, 6); changes > 0; --changes)
        damageOnce(bytes, random);
    return bytes;
}

std::string contentOf(CFile& file)
{
    std::string bytes(static_cast<size_t>(file.GetLength()), 0);
    file.SeekToBegin();
    file.Read(&bytes[0], static_cast<UINT>(bytes.size()));
    return bytes;
}

std::string stored(CMatrix matrix)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    matrix.Serialize(archive);
    archive.Close();
    return contentOf(file);
}

void require(bool holds, const char* claim)
{
    if (!holds) throw std::runtime_error(claim);
}

void load(CMatrix& matrix, std::string bytes)
{
    CMemFile file(reinterpret_cast<BYTE*>(&bytes[0]), static_cast<UINT>(bytes.size()));
    CArchive archive(&file, CArchive::load);
    matrix.Serialize(archive);
}

/// Returns whether the bytes were a matrix.
bool tryArchive(const std::string& bytes)
{
    const CMatrix before(2, true);
    CMatrix matrix(before);
    try {
        load(matrix, bytes);
    } catch (CArchiveException* error) {
        error->Delete();
        require(matrix == before, "a failed loading changed the matrix");
        return false;
    }
    const std::string again = stored(matrix);
    require(bytes.compare(0, again.size(), again) == 0, "a matrix is stored as it was loaded");
    return true;
}

std::string narrowed(const std::string& utf16)
{
    std::string bytes;
    for (size_t i = 0; i < utf16.size(); i += 2)
        bytes += utf16[i];
    return bytes;
}

std::string csvOf(const CMatrix& matrix, const TemporaryFile& file, Random& random)
{
    matrix.WriteAsCSVFile(file.path());
    const std::string bytes = file.bytes();
    return random() % 4 == 0 ? narrowed(bytes) : bytes;
}

bool tryCsv(const std::string& bytes, const TemporaryFile& file)
{
    file.setBytes(bytes);
    CMatrix matrix;
    try {
        matrix = CMatrix::ReadFromCSVFile(file.path());
    } catch (const char* message) {
        require(std::strcmp(message, "Cannot concatenate matrices, not same size") == 0, "another message");
        return false;
    }
    const auto elements =
        static_cast<size_t>(matrix.GetNumColumns()) * static_cast<size_t>(matrix.GetNumRows());
    require(elements <= bytes.size(), "more elements than bytes");
    matrix.WriteAsCSVFile(file.path());
    const std::string written = file.bytes();
    CMatrix::ReadFromCSVFile(file.path()).WriteAsCSVFile(file.path());
    require(file.bytes() == written, "a file is read back as it was written");
    return true;
}

struct Tally {
    unsigned long long rounds = 0, archives = 0, csvFiles = 0;
};

void runRound(Random& random, const TemporaryFile& file, Tally& tally)
{
    const CMatrix matrix = randomMatrix(random);
    const std::string archive = stored(matrix);
    for (int i = 0; i < archivesInRound; ++i)
        tally.archives += tryArchive(damaged(archive, random));
    tally.csvFiles += tryCsv(damaged(csvOf(matrix, file, random), random), file);
    ++tally.rounds;
}

/// The rounds have seeds of their own, so that one can be repeated alone.
Tally runFor(std::chrono::seconds time, unsigned seed)
{
    const TemporaryFile file;
    const auto end = std::chrono::steady_clock::now() + time;
    Tally tally;
    for (; std::chrono::steady_clock::now() < end; ++seed) {
        Random random(seed);
        try {
            runRound(random, file, tally);
        } catch (const std::exception& error) {
            std::printf("seed %u: %s\n", seed, error.what());
            std::exit(1);
        } catch (CException* error) {
            wchar_t text[256] = L"";
            error->GetErrorMessage(text, 256);
            std::printf("seed %u: an exception that is not documented: %ls\n", seed, text);
            std::exit(1);
        }
    }
    return tally;
}
} // namespace

int main(int count, char** arguments)
{
    if (count < 2) return std::printf("fuzz_matrix SECONDS [SEED]\n"), 2;
    const unsigned seed = count > 2 ? static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10)) : 1;
    const Tally tally = runFor(std::chrono::seconds(std::atoi(arguments[1])), seed);
    std::printf(
        "%llu archives and %llu CSV files from seed %u, of which %llu and %llu were still valid; no fault\n",
        archivesInRound * tally.rounds, tally.rounds, seed, tally.archives, tally.csvFiles);
    return 0;
}

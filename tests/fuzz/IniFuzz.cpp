// fuzz_ini [--seconds N] [--iterations N] [--seed N]: reads and edits profile files that chance has damaged.
//
// Every file is made from a sound one by a few random mutations. Whatever it holds, no call may fail in a way
// that a sanitizer sees, and the claims below must hold. At the first that does not, the program says which,
// leaves the file and ends with 1. Without arguments: 2000 files from seed 1.

#include "QmCADLib.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace
{
/// Pieces that mean something to a reader: line ends, brackets, marks, half characters.
const std::vector<std::string> pieces = {"\r\n",
                                         "\n",
                                         "\r",
                                         "[",
                                         "]",
                                         "[]",
                                         "[s]",
                                         "=",
                                         ";",
                                         "\"",
                                         "'",
                                         " ",
                                         "\t",
                                         "\x1A",
                                         "\xFF",
                                         "\x81",
                                         "\xEF\xBB\xBF",
                                         "\xFF\xFE",
                                         "\xFE\xFF",
                                         "k=v\r\n",
                                         "\xE6\xA2",
                                         "\xC1",
                                         "\xD8",
                                         std::string(1, '\0'),
                                         "[\x81\x5D\n",
                                         "\r\r\n",
                                         "[s]\r\nk=",
                                         "=\r\n",
                                         "\xC1\xBA=1",
                                         "[S]",
                                         " k ",
                                         std::string(300, 'x')};

const std::vector<std::string> sound = {
    "",
    "[s]\r\nk=v\r\nk2=\"quoted\"\r\n;comment\r\n\r\n[t]\nn=-12\nd=2.5\n",
    "\xEF\xBB\xBF; head\r\n[\xE6\xA2\x81]\r\n\xE6\x9F\xB1=1\r\n[s]\r\nk=v\r\n",
    std::string("\xFF\xFE[\0s\0]\0\r\0\n\0k\0=\0v\0\n\0\x81\x68=\0\x31\0\n\0", 28),
    std::string("\xFE\xFF\0[\0s\0]\0\r\0\n\0k\0=\0v\0\n\x68\x81\0=\0\x31\0\n", 28),
    "head\n[\xC1\xBA]\r\n\xD6\xF9 = 3 \r\n[s]\r\nk=v"};

class Mutator
{
public:
    explicit Mutator(unsigned seed) : _random(seed) {}

    std::size_t below(std::size_t limit) { return limit ? _random() % limit : 0; }

    std::string next()
    {
        std::string bytes = sound[below(sound.size())];
        for (std::size_t left = 1 + below(8); left > 0; --left)
            mutate(bytes);
        return bytes;
    }

private:
    void mutate(std::string& bytes)
    {
        const std::size_t at = below(bytes.size() + 1);
        const std::string& piece = pieces[below(pieces.size())];
        switch (below(5)) {
        case 0:
            bytes.insert(at, piece);
            break;
        case 1:
            bytes.replace(at, piece.size(), piece);
            break;
        case 2:
            bytes.erase(at, 1 + below(6));
            break;
        case 3:
            bytes.insert(at, bytes.substr(below(bytes.size() + 1), below(40)));
            break;
        default:
            if (at < bytes.size()) bytes[at] = static_cast<char>(_random());
        }
    }

    std::mt19937 _random;
};

/// A claim that does not hold.
struct Broken {
    const char* claim;
};

void claim(bool holds, const char* what)
{
    if (!holds) throw Broken{what};
}

class Subject
{
public:
    Subject()
    {
        std::string folder = std::filesystem::temp_directory_path() / "fuzz-ini-XXXXXX";
        _path = std::string(mkdtemp(folder.data())) + "/a.ini";
        _file = L"Z:" + CString(_path.c_str());
    }

    const std::string& path() const { return _path; }
    void removeFolder() const { std::filesystem::remove_all(std::filesystem::path(_path).parent_path()); }

    void check(const std::string& bytes, Mutator& random)
    {
        put(bytes);
        checkSystemLists();
        checkSections();
        claim(get() == bytes, "reading leaves the file alone");
        checkSameLines(bytes);
        checkRemoval(bytes, random);
        checkChange(bytes, random);
        checkKeys(bytes);
    }

private:
    void put(const std::string& bytes) const
    {
        std::ofstream(_path, std::ios::binary | std::ios::trunc) << bytes;
    }
    std::string get() const
    {
        std::ifstream in(_path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    std::vector<CString> lines() const
    {
        CStringArray all;
        claim(CFamStuIniFile::GetAllLines(all, _file) == 1, "a file that is there has lines");
        return std::vector<CString>(all.GetData(), all.GetData() + all.GetSize());
    }

    void checkSystemLists() const
    {
        for (DWORD size : {0u, 1u, 2u, 7u, 4000u}) {
            std::vector<wchar_t> buffer(size + 1, L'#');
            GetPrivateProfileSectionNamesW(buffer.data(), size, _file);
            GetPrivateProfileSectionW(L"s", buffer.data(), size, _file);
            GetPrivateProfileStringW(L"s", nullptr, L"", buffer.data(), size, _file);
            GetPrivateProfileStringW(L"s", L"k", L"default", buffer.data(), size, _file);
            claim(buffer[size] == L'#', "the system's lists stay within their buffers");
        }
    }

    void checkSections() const
    {
        CStringArray names, keys, values, onlyKeys;
        claim(CFamStuIniFile::GetAllSeg(names, _file) == 1, "a file that is there has a list of sections");
        for (INT_PTR i = 0; i < names.GetSize(); ++i) {
            claim(!names[i].IsEmpty(), "no section is without a name");
            claim(CFamStuIniFile::GetSegValue(keys, values, _file, names[i]) == 1, "listed sections exist");
            claim(keys.GetSize() == values.GetSize(), "each key has a value");
            CFamStuIniFile::GetSegKey(onlyKeys, _file, names[i]);
            claim(onlyKeys.GetSize() == keys.GetSize(), "the lists of keys are the same");
            for (INT_PTR k = 0; k < keys.GetSize(); ++k)
                CFamStuIniFile::ReadKey(_file, names[i], keys[k], L"default");
        }
    }

    void checkSameLines(const std::string& bytes) const
    {
        CStringArray all;
        CFamStuIniFile::GetAllLines(all, _file);
        claim(CFamStuIniFile::writerLines(all, _file) == 1, "the lines of a file can be written");
        claim(get() == bytes, "lines that are written as they were change nothing");
    }

    /// Whether a line begins with a mark, which may not come first in a file of another encoding.
    static bool hasMarkInside(const std::string& bytes)
    {
        for (const char* start : {"\n\xEF\xBB\xBF", "\n\xFF\xFE", "\n\xFE\xFF"})
            if (bytes.find(start) != std::string::npos) return true;
        return false;
    }

    void checkRemoval(const std::string& bytes, Mutator& random) const
    {
        auto expected = lines();
        if (expected.empty()) return claim(CFamStuIniFile::DelOneRow(_file, 0) == 0, "there is no line");
        const std::size_t line = random.below(expected.size());
        const std::size_t count = 1 + random.below(expected.size() - line);
        CString description, definition;
        claim(CFamStuIniFile::getLnDesDef(description, definition, _file, static_cast<int>(line)) == 1 &&
                  definition == expected[line],
              "a line is its own definition");
        const bool isRemoved =
            CFamStuIniFile::DelLnLines(_file, static_cast<int>(line), static_cast<int>(count)) == 1;
        if (!isRemoved) {
            claim(line == 0 && hasMarkInside(bytes), "lines that are there can be removed");
            return claim(get() == bytes, "a refused change changes nothing");
        }
        const auto from = expected.begin() + static_cast<std::ptrdiff_t>(line);
        expected.erase(from, from + static_cast<std::ptrdiff_t>(count));
        claim(lines() == expected, "the other lines stay");
        put(bytes);
    }

    void checkChange(const std::string& bytes, Mutator& random) const
    {
        auto expected = lines();
        if (expected.empty()) return;
        const std::size_t line = random.below(expected.size());
        CStringArray changed;
        changed.Add(L"changed=1");
        claim(CFamStuIniFile::ModifyLnLines(_file, static_cast<int>(line), changed) == 1,
              "a line that is there can be changed");
        expected[line] = L"changed=1";
        claim(lines() == expected, "the other lines stay when one changes");
        put(bytes);
    }

    void checkKeys(const std::string& bytes) const
    {
        claim(CFamStuIniFile::WriteKey(L"s", L"k", L"written", _file) != 0, "a key can be written");
        claim(CFamStuIniFile::ReadKey(_file, L"s", L"k", L"") == L"written",
              "a key that was written is read");
        claim(CFamStuIniFile::DeleteKey(_file, L"s", L"k") != 0, "a key can be removed");
        claim(CFamStuIniFile::DeleteSeg(_file, L"s") != 0, "a section can be removed");
        put(bytes);
        CFamStuIniFile::ReadKey(L"s", L"k", 1, _file);
        CFamStuIniFile::ReadKey(L"s", L"k", 1.0, _file);
    }

    std::string _path;
    CString _file;
};

struct Limits {
    long seconds = 0;
    long iterations = 0;
    unsigned seed = 1;
};

/// False when an argument is unknown.
bool readArguments(int count, char** values, Limits& limits)
{
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string name = values[i];
        const long value = std::atol(values[i + 1]);
        if (name == "--seconds")
            limits.seconds = value;
        else if (name == "--iterations")
            limits.iterations = value;
        else if (name == "--seed")
            limits.seed = static_cast<unsigned>(value);
        else
            return false;
    }
    if (limits.seconds == 0 && limits.iterations == 0) limits.iterations = 2000;
    return count % 2 == 1;
}

int run(const Limits& limits)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(limits.seconds);
    Mutator mutator(limits.seed);
    Subject subject;
    long done = 0;
    try {
        for (; limits.iterations ? done < limits.iterations : Clock::now() < end; ++done)
            subject.check(mutator.next(), mutator);
    } catch (const Broken& broken) {
        std::cout << "file " << done << " of seed " << limits.seed << " breaks the claim that "
                  << broken.claim << "; as it is now: " << subject.path() << "\n";
        return 1;
    }
    std::cout << done << " files from seed " << limits.seed << ", nothing found\n";
    subject.removeFolder();
    return 0;
}
} // namespace

int main(int count, char** values)
{
    Limits limits;
    if (readArguments(count, values, limits)) return run(limits);
    std::cout << "fuzz_ini [--seconds N] [--iterations N] [--seed N]\n";
    return 2;
}

#include "GroupTexts.h"

#include <cstdlib>
#include <random>

using namespace dxf;
using namespace dxftest;

namespace
{
using Random = std::mt19937;

std::size_t below(Random& random, std::size_t limit)
{
    return limit ? random() % limit : 0;
}

std::vector<std::string> linesOf(const std::string& file)
{
    std::vector<std::string> lines(1);
    for (const char c : file) {
        lines.back() += c;
        if (c == '\n') lines.emplace_back();
    }
    return lines;
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string file;
    for (const std::string& line : lines)
        file += line;
    return file;
}

void flipBytes(std::string& file, Random& random)
{
    for (auto i = 1 + below(random, 8); i > 0; --i)
        file[below(random, file.size())] = static_cast<char>(random());
}

void changeLines(std::string& file, Random& random)
{
    std::vector<std::string> lines = linesOf(file);
    for (auto i = 1 + below(random, 4); i > 0; --i) {
        const auto at = lines.begin() + static_cast<std::ptrdiff_t>(below(random, lines.size() - 1));
        if (random() % 3 == 0)
            lines.erase(at);
        else if (random() % 2)
            lines.insert(at, std::string(*at));
        else
            *at = "99999999999999999999999999\n";
    }
    file = joined(lines);
}

/// A run of bytes that are the largest lengths and codes, or none.
void putExtremes(std::string& file, Random& random)
{
    const std::size_t at = below(random, file.size());
    file.replace(at, 1 + below(random, 16), std::string(below(random, 16), random() % 2 ? '\xFF' : '\0'));
}

void mutate(std::string& file, Random& random)
{
    switch (random() % 4) {
    case 0:
        return flipBytes(file, random);
    case 1:
        return changeLines(file, random);
    case 2:
        return file.resize(below(random, file.size()));
    default:
        return putExtremes(file, random);
    }
}

/// Reads and writes whatever is left of the drawing and checks that what was written is read as it was.
void checkMutant(const std::string& file)
{
    const OpenedDrawing opened = openDrawing(Input::ofBytes(file));
    if (!opened.reader) return;
    dxf::MemorySink sink;
    dxf::AsciiWriter writer(sink, opened.reader->encoding());
    std::size_t groups = 0;
    while (opened.reader->next()) {
        writer.group(opened.reader->group(), opened.reader->encoding());
        opened.reader->text();
        // A group takes a byte for its code and one for its value at least.
        ASSERT_LE(++groups * 2, file.size());
    }
    writer.finish();
    // Each byte can become two digits; a number gets a code line and an extra ".0".
    ASSERT_LE(sink.bytes().size(), 8 * file.size() + 64 * groups);
    AsciiReader again(Input::ofBytes(sink.bytes()));
    std::size_t groupsAgain = 0;
    while (again.next())
        ++groupsAgain;
    ASSERT_EQ(groupsAgain, groups);
}

/// The number of mutants: QM_MUTATIONS, or 2000.
int mutantCount()
{
    const char* const text = std::getenv("QM_MUTATIONS");
    return text ? std::atoi(text) : 2000;
}
} // namespace

TEST(Mutations, DamagedFilesAreReadWithoutHarm)
{
    const std::string ascii = smallDrawing();
    const auto open = [&] { return openDrawing(Input::ofBytes(ascii)).reader; };
    const std::string files[] = {ascii, toBinary(*open(), true), toBinary(*open(), false)};
    const int count = mutantCount();
    Random random(1);
    for (int i = 0; i < count; ++i) {
        std::string file = files[i % 3];
        mutate(file, random);
        if (file.empty()) continue;
        SCOPED_TRACE(i);
        ASSERT_NO_FATAL_FAILURE(checkMutant(file));
    }
}

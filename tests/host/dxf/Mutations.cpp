#include "Mutations.h"

namespace dxftest
{
namespace
{
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
    for (auto i = 1 + below(random, 4); i > 0 && lines.size() > 1; --i) {
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

} // namespace

void mutate(std::string& file, Random& random)
{
    if (file.empty()) return;
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
} // namespace dxftest

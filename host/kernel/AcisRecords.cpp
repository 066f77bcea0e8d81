#include "AcisRecords.h"

#include "AcisText.h"

#include <charconv>
#include <cmath>

namespace kernel
{
namespace
{
constexpr std::size_t kHeaderLines = 3;
constexpr std::size_t kLongestGroup = 255;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

template <class Number>
bool parse(const std::string& text, Number& value)
{
    const char *first = text.data(), *last = first + text.size();
    if (first != last && *first == '+') ++first;
    const auto end = std::from_chars(first, last, value);
    return end.ec == std::errc() && end.ptr == last;
}

/// The next word of a line; "@n" announces a text of n characters, which is one word.
bool nextWord(const std::string& line, std::size_t& at, std::string& word)
{
    while (at < line.size() && isBlank(line[at]))
        ++at;
    if (at >= line.size()) return false;
    const std::size_t from = at;
    while (at < line.size() && !isBlank(line[at]))
        ++at;
    word = line.substr(from, at - from);
    std::size_t length = 0;
    if (word[0] != '@' || !parse(word.substr(1), length)) return true;
    word = line.substr(std::min(at + 1, line.size()), length);
    at = std::min(line.size(), at + 1 + std::min(length, line.size()));
    return true;
}

/// A record may begin with its number, as "-12".
bool isNumbering(const std::string& word)
{
    int number = 0;
    return word.size() > 1 && word[0] == '-' && parse(word, number);
}
} // namespace

AcisRecords acisRecords(const std::vector<std::string>& lines)
{
    AcisRecords result;
    std::size_t at = 0;
    std::string word;
    if (lines.size() < kHeaderLines || !nextWord(lines[0], at, word)) return result;
    result.hasHeader = parse(word, result.version) && result.version > 0;
    AcisRecord record;
    for (std::size_t i = kHeaderLines; i < lines.size(); ++i) {
        at = 0;
        while (nextWord(lines[i], at, word)) {
            if (word == "#") {
                result.records.push_back(std::move(record));
                record = {};
            } else if (!record.name.empty()) {
                record.fields.push_back(word);
            } else if (!isNumbering(word)) {
                record.name = word;
                record.line = static_cast<int>(i) + 1;
            }
        }
    }
    result.isWhole = record.name.empty() || record.name.rfind("End-of-", 0) == 0;
    return result;
}

std::string AcisFields::word()
{
    if (atEnd()) mOk = false;
    return mOk ? mRecord.fields[mNext++] : std::string();
}

bool AcisFields::accept(const char* text)
{
    if (atEnd() || !mOk || mRecord.fields[mNext] != text) return false;
    ++mNext;
    return true;
}

double AcisFields::real()
{
    double value = 0;
    if (!parse(word(), value) || !std::isfinite(value)) mOk = false;
    return mOk ? value : 0;
}

int AcisFields::whole()
{
    int value = 0;
    if (!parse(word(), value)) mOk = false;
    return mOk ? value : 0;
}

int AcisFields::pointer()
{
    const std::string text = word();
    int value = 0;
    if (text.empty() || text[0] != '$' || !parse(text.substr(1), value)) mOk = false;
    return mOk ? value : -1;
}

AcGePoint3d AcisFields::point()
{
    const double x = real(), y = real(), z = real();
    return {x, y, z};
}

std::string acisNumber(double value)
{
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value == 0 ? 0.0 : value);
    return {text, end.ptr};
}

std::string acisCoded(std::string text)
{
    for (char& c : text)
        if (c > ' ' && c < 127) c = static_cast<char>(159 - c);
    return text;
}

std::vector<AcisGroup> acisGroups(const std::vector<std::string>& lines)
{
    std::vector<AcisGroup> groups;
    for (const std::string& line : lines) {
        const std::string coded = acisCoded(line);
        groups.push_back({1, coded.substr(0, kLongestGroup)});
        for (std::size_t at = kLongestGroup; at < coded.size(); at += kLongestGroup)
            groups.push_back({3, coded.substr(at, kLongestGroup)});
    }
    return groups;
}

std::vector<std::string> acisLines(const std::vector<AcisGroup>& groups)
{
    std::vector<std::string> lines;
    for (const AcisGroup& group : groups) {
        if (group.code == 1 || lines.empty()) lines.emplace_back();
        lines.back() += acisCoded(group.text);
    }
    return lines;
}
} // namespace kernel

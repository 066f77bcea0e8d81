#include "CRegexString.h"

#include "RegexMatcher.h"

#include <algorithm>

namespace
{
constexpr size_t longestResult = size_t(1) << 27;

/// The matches of a pattern in a text, one after the other.
class Matches
{
public:
    Matches(const std::wstring& text, const regex::Program& program)
        : m_matcher(program, text.data(), text.size()), m_size(text.size())
    {
    }

    /// Moves to the next match; false when there is no other or when the search was given up.
    bool next()
    {
        if (m_first) {
            m_first = false;
            return m_matcher.search(0);
        }
        m_previousEnd = end();
        if (begin() != end()) return m_matcher.search(m_previousEnd);
        if (m_matcher.matchSome(m_previousEnd)) return true;
        return m_previousEnd < m_size && m_matcher.search(m_previousEnd + 1);
    }
    size_t begin() const { return m_matcher.begin(0); }
    size_t end() const { return m_matcher.end(0); }
    size_t previousEnd() const { return m_previousEnd; }
    const regex::Matcher& matcher() const { return m_matcher; }

private:
    regex::Matcher m_matcher;
    size_t m_size;
    size_t m_previousEnd = 0;
    bool m_first = true;
};

std::string narrow(const wchar_t* text, size_t length)
{
    const int units = static_cast<int>(length);
    const int size = units ? WideCharToMultiByte(CP_ACP, 0, text, units, nullptr, 0, nullptr, nullptr) : 0;
    std::string result(static_cast<size_t>(size), '\0');
    if (size) WideCharToMultiByte(CP_ACP, 0, text, units, &result[0], size, nullptr, nullptr);
    return result;
}

/// Builds a result that may not become longer than the limit.
class Result
{
public:
    void append(const std::wstring& source, size_t begin, size_t end)
    {
        if (end - begin > longestResult - m_text.size())
            m_tooLong = true;
        else
            m_text.append(source, begin, end - begin);
    }
    void append(const std::wstring& source) { append(source, 0, source.size()); }
    bool isTooLong() const { return m_tooLong; }
    std::wstring& text() { return m_text; }

private:
    std::wstring m_text;
    bool m_tooLong = false;
};

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// Appends what the two digits or the one digit at `at` of a replacement refer to; gives their number.
size_t appendGroup(Result& result, const std::wstring& text, const std::wstring& replacement, size_t at,
                   const regex::Matcher& match, int groups)
{
    int group = replacement[at] - L'0';
    const bool twoDigits = at + 1 < replacement.size() && isDigit(replacement[at + 1]);
    if (twoDigits) group = group * 10 + (replacement[at + 1] - L'0');
    if (group < groups && match.tookPart(group)) result.append(text, match.begin(group), match.end(group));
    return twoDigits ? 2 : 1;
}

/// Appends what stands behind the "$" in front of `at`; gives the number of characters that belong to it.
size_t appendReference(Result& result, const std::wstring& text, const std::wstring& replacement, size_t at,
                       const Matches& match, int groups)
{
    const wchar_t c = at < replacement.size() ? replacement[at] : L'\0';
    if (c == L'&')
        result.append(text, match.begin(), match.end());
    else if (c == L'`')
        result.append(text, match.previousEnd(), match.begin());
    else if (c == L'\'')
        result.append(text, match.end(), text.size());
    else if (isDigit(c))
        return appendGroup(result, text, replacement, at, match.matcher(), groups);
    else
        result.append(L"$");
    return c == L'&' || c == L'`' || c == L'\'' || c == L'$';
}

void appendReplacement(Result& result, const std::wstring& text, const std::wstring& replacement,
                       const Matches& match, int groups)
{
    for (size_t at = 0; at < replacement.size();) {
        const size_t dollar = std::min(replacement.find(L'$', at), replacement.size());
        result.append(replacement, at, dollar);
        at = dollar;
        if (at < replacement.size())
            at += 1 + appendReference(result, text, replacement, at + 1, match, groups);
    }
}

struct Options {
    bool firstOnly = false;
    bool literal = false;
    std::vector<std::string>* matches = nullptr;
};

/// Replaces; false when that cannot be carried out.
bool replaceMatches(Result& result, const std::wstring& text, const regex::Program& program,
                    const std::wstring& replacement, const Options& options)
{
    Matches match(text, program);
    size_t copied = 0;
    while (!result.isTooLong() && match.next()) {
        result.append(text, copied, match.begin());
        copied = match.end();
        if (options.literal)
            result.append(replacement);
        else
            appendReplacement(result, text, replacement, match, program.groups);
        if (options.matches)
            options.matches->push_back(narrow(text.data() + match.begin(), match.end() - match.begin()));
        if (options.firstOnly) break;
    }
    result.append(text, copied, text.size());
    return !match.matcher().hasGivenUp() && !result.isTooLong();
}

std::wstring replaced(const std::wstring& text, const std::wstring& pattern, const std::wstring& replacement,
                      const Options& options)
{
    if (options.matches) options.matches->clear();
    const std::optional<regex::Program> program = regex::compile(pattern);
    Result result;
    if (program && replaceMatches(result, text, *program, replacement, options))
        return std::move(result.text());
    if (options.matches) options.matches->clear();
    return text;
}
} // namespace

std::wstring CRegexString::regexReplace(const std::wstring& text, const std::wstring& pattern,
                                        const std::wstring& replacement)
{
    return replaced(text, pattern, replacement, {});
}

std::wstring CRegexString::regexReplace(const std::wstring& text, const std::wstring& pattern,
                                        const std::wstring& replacement, std::vector<std::string>& matches)
{
    return replaced(text, pattern, replacement, {false, false, &matches});
}

std::wstring CRegexString::regexReplace1(const std::wstring& text, const std::wstring& pattern,
                                         const std::wstring& replacement)
{
    return replaced(text, pattern, replacement, {true, false, nullptr});
}

std::wstring CRegexString::regexReplace2(const std::wstring& text, const std::wstring& pattern,
                                         const std::wstring& replacement)
{
    return replaced(text, pattern, replacement, {false, true, nullptr});
}

bool CRegexString::regexSearch(const std::wstring& text, const std::wstring& pattern,
                               std::vector<std::string>& matches)
{
    matches.clear();
    const std::optional<regex::Program> program = regex::compile(pattern);
    if (!program) return false;
    Matches match(text, *program);
    while (match.next())
        matches.push_back(narrow(text.data() + match.begin(), match.end() - match.begin()));
    if (match.matcher().hasGivenUp()) matches.clear();
    return !matches.empty();
}

#pragma once

/// The text of a regular expression, as its compiler reads it.

#include "RegexProgram.h"

#include <optional>
#include <string>

namespace regex
{
/// What ends the reading of a malformed pattern. It does not leave the compiler.
struct Malformed {
};

/// Whether a backslash and this letter stand for a class of characters: d, s, w and their capitals.
bool isClassEscape(wchar_t c);

/// Goes through a pattern, which has to outlive it. What the pattern does not hold as expected is Malformed.
class PatternText
{
public:
    explicit PatternText(const std::wstring& pattern) : m_at(pattern.data()), m_end(m_at + pattern.size()) {}

    bool atEnd() const { return m_at == m_end; }
    bool sees(wchar_t c) const { return m_at != m_end && *m_at == c; }
    /// Steps over a character or text; false, and no step, when something else comes.
    bool skip(wchar_t c);
    bool skip(const wchar_t* text);
    wchar_t take();
    void stepBack() { --m_at; }
    void expect(wchar_t c);
    /// Digits, at least one, up to INT_MAX.
    int number();
    /// What a backslash and `c`, which was taken, stand for; no class.
    wchar_t escapedCharacter(wchar_t c);
    /// The set in brackets, behind the opening one.
    CharacterSet bracket();

private:
    wchar_t hexadecimal(int digits);
    /// One character, a range, or a class. A "-" beside a class, or first or last, stands for itself.
    void bracketItem(CharacterSet& set);
    bool isRangeAhead() const;
    /// The next character of a bracket; nothing when it was a class, which is added to the set.
    std::optional<wchar_t> bracketCharacter(CharacterSet& set);
    std::wstring nameUntil(wchar_t mark);

    const wchar_t* m_at;
    const wchar_t* m_end;
};
} // namespace regex

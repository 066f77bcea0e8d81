#pragma once

/// Regular expressions in the ECMAScript grammar of the standard library, as programs for RegexMatcher.
///
/// The standard library's own matcher calls itself for every character that a loop takes, so that a text of
/// some ten thousand characters can use up the stack and end the process. This one keeps what it may have to
/// come back to in memory of its own.

#include <bitset>
#include <cstddef>
#include <cwctype>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace regex
{
/// A set of characters, as a pattern writes it in brackets or as \d, \s and \w.
class CharacterSet
{
public:
    void add(wchar_t first, wchar_t last);
    void add(std::wctype_t characterClass) { m_classes.push_back(characterClass); }
    /// \d, \s and \w, and with a capital letter their complement.
    void addEscape(wchar_t letter);
    void negate() { m_negated = true; }
    /// To be called when the set is complete.
    void prepare();
    bool contains(wchar_t c) const { return isCommon(c) ? m_common[static_cast<size_t>(c)] : search(c); }

private:
    static constexpr size_t commonSize = 128;
    static bool isCommon(wchar_t c) { return c >= 0 && static_cast<size_t>(c) < commonSize; }
    bool search(wchar_t c) const;

    bool m_negated = false;
    std::vector<std::pair<wchar_t, wchar_t>> m_ranges;
    std::vector<std::wctype_t> m_classes;
    std::vector<CharacterSet> m_complements; ///< of the sets that are part of this one by what they lack
    std::bitset<commonSize> m_common;        ///< the answers for the first characters
};

enum class Op {
    // one character
    character,    ///< the one with the code `a`
    anyCharacter, ///< any but a line end
    characterSet, ///< one of set number `a`
    // repetition of one character
    repeat, ///< the one-character operation `one` with its `a`, from `least` to `most` times
    // control; distances count instructions from this one
    split,         ///< go on at the distance `a`; when that fails, at the distance `b`
    jump,          ///< go on at the distance `a`
    save,          ///< store the position in slot `a`
    clear,         ///< forget the slots from `a` to before `b`
    checkProgress, ///< fail when the position is still that of slot `a`
    accept,        ///< the end
    // tests that take no character
    textBegin,
    textEnd,
    wordBoundary,
    noWordBoundary,
    lookAhead,   ///< what follows, up to the distance `a`, matches here
    noLookAhead, ///< ... does not match here
    // text that was found before
    backReference ///< the text of group `a`
};

struct Instruction {
    Op op;
    int a = 0;
    int b = 0;
    Op one = Op::accept;
    int least = 0;
    int most = 0;
    bool greedy = true;
};

/// "At least so many times" without an end.
constexpr int unlimited = -1;

struct Program {
    std::vector<Instruction> instructions;
    std::vector<CharacterSet> sets;
    int groups = 1; ///< the whole match and the groups in parentheses; group n is in slots 2n and 2n + 1
    int slots = 2;  ///< with those that are no group's
};

/// The program of a pattern; nothing when the pattern is malformed or, its repetitions written out, longer
/// than 200,000 instructions or nested more than 200 deep.
///
/// Where the grammar leaves a choice: "^" and "$" stand for the ends of the text, not of its lines; "\w" and
/// "\d" are ASCII; [[:alpha:]] and the other classes are those of the C locale in force; a bracket may name a
/// collating element or an equivalence class of one character only; an escaped letter without a meaning is
/// malformed; a reference to a group that has not ended yet is malformed, one to a group that took no part
/// is empty.
std::optional<Program> compile(const std::wstring& pattern);
} // namespace regex

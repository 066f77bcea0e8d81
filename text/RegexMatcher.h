#pragma once

#include "RegexProgram.h"

namespace regex
{
constexpr size_t noPosition = static_cast<size_t>(-1);

/// Finds the matches of a program in a text: at each place the first that the order of the pattern's
/// alternatives and the greed of its repetitions give, found by trying and coming back.
///
/// Some patterns, such as (a+)+b, have so many ways to try on some texts that it would take years. A matcher
/// therefore gives up when it has taken 50 million steps and 100 more for each character of the text, or when
/// it would have to remember more than 8 million places to come back to.
class Matcher
{
public:
    /// The program and the text have to outlive the matcher.
    Matcher(const Program& program, const wchar_t* text, size_t length);

    /// Finds the first match that starts at `from` or behind; `from` is at most the length of the text.
    /// False when there is none or when the matcher has given up.
    bool search(size_t from);
    /// Finds a match that starts at `at` and is not empty.
    bool matchSome(size_t at);
    bool hasGivenUp() const { return m_gaveUp; }

    /// Where group `group` of the last match begins and ends; noPosition when it took no part. Group 0 is the
    /// match.
    size_t begin(int group) const { return m_slots[2 * group]; }
    size_t end(int group) const { return m_slots[2 * group + 1]; }
    bool tookPart(int group) const { return end(group) != noPosition; }

private:
    enum class Kind : unsigned char { branch, shrink, grow, slot };
    /// Something to come back to. `index` is an instruction, or the number of a slot.
    struct Memory {
        Kind kind;
        int index;
        size_t first;
        size_t second;
    };
    struct State {
        int at;
        size_t position;
    };

    bool matchAt(size_t start, bool mayBeEmpty);
    bool run(State state, size_t floor, bool mayBeEmpty);
    bool step(State& state);
    bool branch(State& state, const Instruction& in);
    bool repeat(State& state, const Instruction& in);
    bool look(State& state, const Instruction& in);
    bool repeatGroup(State& state, int group);
    bool takes(Op op, int operand, size_t position) const;
    bool isWordBoundary(size_t position) const;
    bool comeBack(State& state, size_t floor);
    bool growOnce(State& state);
    void forgetBranches(size_t floor);
    void setSlot(int slot, size_t position);
    void remember(Kind kind, int index, size_t first, size_t second);
    void spend(size_t steps);

    const Program& m_program;
    const wchar_t* m_text;
    size_t m_length;
    size_t m_steps;
    bool m_gaveUp = false;
    std::vector<size_t> m_slots;
    std::vector<Memory> m_memory;
};
} // namespace regex
